// SPDX-License-Identifier: Apache-2.0
#include "tree/TestPage.h"

#include "model/CTreeItemValue.h"
#include "support/TestMain.h"
#include "tree/ORXFeatureTreeView.h"

#include <QVBoxLayout>

TestPage::TestPage(Item::ParentType type)
    : IORXFeatureWidget(type, nullptr)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(treeView());
}

TestPage::Item* TestPage::add(Item* parent, const QString& name, const char* tag)
{
    auto* item = new Item(parent, pageType());
    item->value()->setNodeName(name);
    item->value()->setDisplayName(name);
    item->setTagName(QString::fromLatin1(tag));
    item->setReadOnly(false);
    item->setIsFeatureTreeItem(false);
    if (*tag)
        item->setItemType(Item::FeatureItem);
    item->registerView(treeView());
    return item;
}

TestPage::Item* TestPage::addGroupOfTags(const QStringList& tags)
{
    auto* root = new Item(nullptr, pageType());
    root->setItemType(Item::CustomItem);
    Item* group = add(root, "Group"_s);
    for (const QString& tag : tags)
        add(group, tag, tag.toLatin1().constData());
    return root;
}

void TestPage::open(const QSize& size)
{
    resize(size);
    resetCamaraID(1);
    QVERIFY(showActive(*this));
}

QWidget* TestPage::anyEditor(const QString& name, int column)
{
    return treeView()->editorOf(item(name), column);
}

bool TestPage::setFeatureValue(const QString&, const QString& name, const QVariant& value)
{
    writes.append(name + QLatin1Char(' ') + value.toString());
    lastWritten = value;
    if (onWrite)
        onWrite();
    return answer;
}

TestPage::Item* TestPage::creatRootItem()
{
    return makeRoot ? makeRoot() : nullptr;
}

void TestPage::itemValueChanged(Item* item)
{
    log.append("value "_s + item->value()->nodeName(0));
}

void TestPage::itemExpandStateChanged(Item* item, bool expanded)
{
    log.append((expanded ? "expanded "_s : "collapsed "_s) + item->value()->nodeName(0));
}

void TestPage::itemVisibleStateChanged(Item* item)
{
    log.append("visible "_s + item->value()->nodeName(0));
}
