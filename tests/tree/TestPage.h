// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tree/IORXFeatureWidget.h"

#include "support/Literals.h"

#include <QStringList>
#include <QVariant>

#include <functional>

// A page of which a test makes the root and the items, and which notes what is written through it
// and what its view tells it.
class TestPage : public IORXFeatureWidget
{
public:
    using Item = ORXPropertyTreeItem;

    explicit TestPage(Item::ParentType type = Item::CommonPage);

    // A page item below `parent`, writable, shown by this page's view.
    Item* add(Item* parent, const QString& name, const char* tag = "");
    // A root with one group, which has a feature for each tag, named after its tag.
    Item* addGroupOfTags(const QStringList& tags);
    // Shows the page with the root of camera 1 and waits until its window is active.
    void open(const QSize& size = QSize(500, 700));
    Item* item(const QString& name) { return getItemByNodeName(name, nullptr, -1); }
    // The editor of an item, of a class; null when there is none of that class.
    template <typename Editor>
    Editor* editor(const QString& name, int column = 1)
    {
        return qobject_cast<Editor*>(anyEditor(name, column));
    }
    QWidget* anyEditor(const QString& name, int column = 1);

    bool setFeatureValue(const QString& tag, const QString& name, const QVariant& value) override;
    Item* creatRootItem() override;
    void itemValueChanged(Item* item) override;
    void itemVisibleStateChanged(Item* item) override;
    void itemExpandStateChanged(Item* item, bool expanded) override;
    QString readOnlyReason(const Item&) const override { return reason; }
    void updateValue() override { log.append("updateValue"_s); }
    void resetSpecialItemValue() override { log.append("resetSpecial"_s); }
    void createTransMap() override { m_transMap = translations; }

    std::function<Item*()> makeRoot;
    bool answer = true; // of writes
    std::function<void()> onWrite;
    QStringList writes; // "name value"
    QVariant lastWritten;
    QStringList log;
    QString reason; // why no item can be edited
    QMap<QString, QString> translations;
};
