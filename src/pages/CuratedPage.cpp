// SPDX-License-Identifier: Apache-2.0
#include "pages/CuratedPage.h"

#include "model/CTreeBooleanItemValue.h"
#include "model/CTreeEnumationItemValue.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXFeatureTreeView.h"
#include "tree/PageSupport.h"

#include <QCoreApplication>
#include <QHBoxLayout>

namespace {

// Puts a table's start value into a page item; its tag has decided the class of the value.
struct StartValue
{
    CTreeItemValue* value; // Not owned.
    const char* context;

    void operator()(std::monostate) const {}
    void operator()(bool checked) const { value->setValue(checked); }
    void operator()(const CTreeIntergerItemValue::Numbers& numbers) const
    {
        if (auto* typed = dynamic_cast<CTreeIntergerItemValue*>(value))
            typed->setNumbers(numbers);
    }
    void operator()(const CTreeFloatItemValue::Numbers& numbers) const
    {
        if (auto* typed = dynamic_cast<CTreeFloatItemValue*>(value))
            typed->setNumbers(numbers);
    }
    void operator()(const CuratedEntries& entries) const
    {
        fillEntries(entries);
        value->setValue(entries.current);
    }
    void fillEntries(const CuratedEntries& entries) const
    {
        auto* typed = dynamic_cast<CTreeEnumationItemValue*>(value);
        if (!typed)
            return;
        QStringList english;
        QStringList shown;
        QMap<qint64, QString> byNumber;
        QMap<QString, QString> byName;
        for (const char* text : entries.texts) {
            const QString source = QString::fromLatin1(text);
            byNumber.insert(english.size(), source);
            byName.insert(source, source);
            english.append(source);
            shown.append(QCoreApplication::translate(context, text));
        }
        typed->replaceEnumList(english, shown, byNumber, byName);
    }
};

QString latin(const char* text)
{
    return QString::fromLatin1(text);
}

} // namespace

CuratedPage::CuratedPage(const CuratedPageTable& table, ORXPropertyTreeItem::ParentType type,
                         QWidget* parent)
    : IORXFeatureWidget(type, parent)
    , m_table(table)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(treeView());
    cSetBackgroundColor(QStringLiteral("ZEL_DB_COLOR_CommonColor_FeatureWidget_backgroundRole"));
}

CuratedPage::~CuratedPage()
{
    const QList<qint64> cameras = m_observed.uniqueKeys();
    for (const qint64 cameraId : cameras)
        forgetObserved(cameraId);
}

// Building ----------------------------------------------------------------------------------------

ORXPropertyTreeItem* CuratedPage::creatRootItem()
{
    if (!tree() || m_table.groups.isEmpty())
        return nullptr;
    auto* root = new ORXPropertyTreeItem(nullptr, pageType());
    root->setIsFeatureTreeItem(false);
    root->setItemType(ORXPropertyTreeItem::CustomItem);
    root->value()->setDisplayName(latin(m_table.title));
    for (const CuratedGroup& group : m_table.groups) {
        ORXPropertyTreeItem* item =
            createOneItem(true, root, latin(group.name), nullptr, true, true);
        for (const CuratedItem& line : group.items)
            addItem(item, line);
    }
    followVisibility(root, QString(), -1);
    afterItemsCreated(root);
    connect(tree(), &ORXFeatureTree::SigPassEnded, treeView(), &ORXFeatureTreeView::describeEditors,
            Qt::UniqueConnection);
    // Only a group that got no item at all is hidden by this.
    const QVector<ORXPropertyTreeItem*> groups = root->children();
    for (ORXPropertyTreeItem* group : groups)
        group->setVisible(false, -1);
    return root;
}

ORXPropertyTreeItem* CuratedPage::addItem(ORXPropertyTreeItem* group, const CuratedItem& line)
{
    if (!line.isOwn()) // Never hidden here: the flag is the whole tree's, too.
        return createOneItem(false, group, latin(line.name), tree(), false, true);
    ORXPropertyTreeItem* item = createOneItem(true, group, latin(line.name), nullptr, false, false);
    item->setTagName(featureTagName(line.tag));
    std::visit(StartValue{item->value(), m_table.context}, line.value);
    return item;
}

void CuratedPage::afterItemsCreated(ORXPropertyTreeItem*) {}

// Shows and hides the page items that follow `leader`; an empty name means every leader.
void CuratedPage::followVisibility(ORXPropertyTreeItem* root, const QString& leader,
                                   qint64 cameraId)
{
    for (const CuratedGroup& group : m_table.groups) {
        for (const CuratedItem& line : group.items) {
            if (!line.visibleWith || !(leader.isEmpty() || leader == latin(line.visibleWith)))
                continue;
            const ORXPropertyTreeItem* leading = pageItem(line.visibleWith, root);
            if (ORXPropertyTreeItem* item = pageItem(line.name, root))
                item->setVisible(leading && leading->visible(), cameraId);
        }
    }
}

void CuratedPage::itemVisibleStateChanged(ORXPropertyTreeItem* item)
{
    ORXPropertyTreeItem* root = getRootItem(-1, false);
    if (root && item->isFeatureTreeItem())
        followVisibility(root, item->value()->nodeName(0), cameraID());
}

QString CuratedPage::readOnlyReason(const ORXPropertyTreeItem& item) const
{
    const ORXFeatureTree* whole = tree();
    return whole ? whole->readOnlyReason(item) : QString();
}

void CuratedPage::removeCameraID(qint64 cameraId)
{
    forgetObserved(cameraId);
    IORXFeatureWidget::removeCameraID(cameraId);
}

// Looking up --------------------------------------------------------------------------------------

ORXFeatureTree* CuratedPage::tree() const
{
    return PageSupport::treeOf(cameraID());
}

ORXPropertyTreeItem* CuratedPage::pageItem(const char* name, ORXPropertyTreeItem* start)
{
    return getItemByNodeName(latin(name), start, cameraID());
}

ORXPropertyTreeItem* CuratedPage::cameraItem(const char* name) const
{
    const ORXFeatureTree* whole = tree();
    return whole ? whole->propertyItemByName(latin(name)) : nullptr;
}

void CuratedPage::observe(ORXPropertyTreeItem* item)
{
    if (!item)
        return;
    item->registerView(treeView());
    if (!m_observed.contains(cameraID(), item))
        m_observed.insert(cameraID(), item);
}

void CuratedPage::unobserve(ORXPropertyTreeItem* item)
{
    if (!item)
        return;
    item->removeView(treeView());
    m_observed.remove(cameraID(), item);
}

void CuratedPage::forgetObserved(qint64 cameraId)
{
    const QList<ORXPropertyTreeItem*> items = m_observed.values(cameraId);
    for (ORXPropertyTreeItem* item : items) {
        if (ORXPropertyTreeItem::isAlive(item))
            item->removeView(treeView());
    }
    m_observed.remove(cameraId);
}

// Writing -----------------------------------------------------------------------------------------

void CuratedPage::onOwnWrite(const char* name, const OwnWrite& write)
{
    m_ownWrites.insert(latin(name), write);
}

bool CuratedPage::setFeatureValue(const QString& tagName, const QString& nodeName,
                                  const QVariant& value)
{
    ORXFeatureTree* whole = tree();
    if (!whole)
        return true;
    if (!CuratedItem::isOwnName(nodeName))
        return whole->setFeatureValue(tagName, nodeName, value);
    const OwnWrite write = m_ownWrites.value(nodeName);
    return !write || write(value);
}

// Texts -------------------------------------------------------------------------------------------

QString CuratedPage::translated(const char* text) const
{
    return QCoreApplication::translate(m_table.context, text);
}

void CuratedPage::createTransMap()
{
    fillTransMap(m_table.texts());
}

void CuratedPage::fillTransMap(const QMap<QString, QString>& texts)
{
    for (auto text = texts.begin(); text != texts.end(); ++text)
        m_transMap.insert(text.key(), translated(text.value().toLatin1().constData()));
}

void CuratedPage::translate()
{
    if (ORXPropertyTreeItem* root = getRootItem(-1, true)) {
        root->value()->setTranslateName(translated(m_table.title));
        for (const CuratedGroup& group : m_table.groups) {
            for (const CuratedItem& line : group.items) {
                const auto* entries = std::get_if<CuratedEntries>(&line.value);
                ORXPropertyTreeItem* item = entries ? pageItem(line.name, root) : nullptr;
                if (item)
                    StartValue{item->value(), m_table.context}.fillEntries(*entries);
            }
        }
    }
    IORXFeatureWidget::translate();
}
