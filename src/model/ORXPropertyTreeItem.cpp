// SPDX-License-Identifier: Apache-2.0
#include "model/ORXPropertyTreeItem.h"

#include "basetools/ORXInterface.h"
#include "model/ItemStateLock.h"
#include "model/ItemValueFactory.h"

#include <unordered_set>

namespace {

std::unordered_set<const ORXPropertyTreeItem*>& liveItems()
{
    // Never destroyed: items may outlive the other statics of the process.
    static auto* const items = new std::unordered_set<const ORXPropertyTreeItem*>;
    return *items;
}

quint64 destroyedItems = 0; // guarded by ItemStateLock

} // namespace

ORXPropertyTreeItem::ORXPropertyTreeItem(ORXPropertyTreeItem* parent, ParentType type)
    : m_pValue(makeItemValue(FeatureTag::Other))
{
    const ItemStateLock lock;
    liveItems().insert(this);
    if (!parent || type >= kParentTypes)
        return;
    m_parents[type] = parent;
    m_rowHints[type] = parent->m_children.size();
    parent->m_children.append(this);
}

ORXPropertyTreeItem::~ORXPropertyTreeItem()
{
    const ItemStateLock lock;
    liveItems().erase(this);
    ++destroyedItems;
    setMappingItem(nullptr);
    clear();
    removeFromParents();
    m_views.clear();
}

// A page may have borrowed the item; its list must not keep a pointer to it.
void ORXPropertyTreeItem::removeFromParents()
{
    for (ORXPropertyTreeItem*& parent : m_parents) {
        if (parent)
            parent->m_children.removeOne(this);
        parent = nullptr;
    }
}

bool ORXPropertyTreeItem::isAlive(const ORXPropertyTreeItem* item)
{
    const ItemStateLock lock;
    return liveItems().count(item) > 0;
}

quint64 ORXPropertyTreeItem::destroyedCount()
{
    const ItemStateLock lock;
    return destroyedItems;
}

bool ORXPropertyTreeItem::visible() const
{
    const ItemStateLock lock;
    if (m_children.isEmpty())
        return m_bVisible;
    for (const ORXPropertyTreeItem* child : m_children) {
        if (child->visible())
            return true;
    }
    return false;
}

bool ORXPropertyTreeItem::groupVisible() const
{
    const ItemStateLock lock;
    return m_bGroupVisible;
}

bool ORXPropertyTreeItem::searchMatch() const
{
    const ItemStateLock lock;
    return m_bSearchMatch;
}

bool ORXPropertyTreeItem::isExpanded() const
{
    const ItemStateLock lock;
    return m_bExpanded;
}

bool ORXPropertyTreeItem::isDefaultExpanded() const
{
    const ItemStateLock lock;
    return m_bDefaultExpanded;
}

void ORXPropertyTreeItem::setDefaultExpanded(bool expanded)
{
    const ItemStateLock lock;
    m_bDefaultExpanded = expanded;
    m_bExpanded = expanded;
}

bool ORXPropertyTreeItem::readOnly() const
{
    const ItemStateLock lock;
    return m_bReadOnly;
}

void ORXPropertyTreeItem::setReadOnly(bool readOnly)
{
    const ItemStateLock lock;
    m_bReadOnly = readOnly;
    if (m_pMappingItem)
        m_pMappingItem->m_bReadOnly = readOnly;
}

QString ORXPropertyTreeItem::tagName() const
{
    const ItemStateLock lock;
    return m_strTagName;
}

FeatureTag ORXPropertyTreeItem::tag() const
{
    const ItemStateLock lock;
    return m_tag;
}

void ORXPropertyTreeItem::setTagName(const QString& tagName)
{
    const ItemStateLock lock;
    if (tagName.isEmpty() || tagName == m_strTagName || !m_pValue)
        return;
    m_strTagName = tagName;
    m_tag = featureTag(tagName);
    std::unique_ptr<CTreeItemValue> value = makeItemValue(m_tag);
    value->CTreeItemValue::copy(m_pValue.get(), true);
    m_pValue = std::move(value);
}

CTreeItemValue* ORXPropertyTreeItem::value() const
{
    const ItemStateLock lock;
    return m_pValue.get();
}

ORXPropertyTreeItem::ITEM_TYEP ORXPropertyTreeItem::itemType() const
{
    const ItemStateLock lock;
    return m_itemType;
}

void ORXPropertyTreeItem::setItemType(ITEM_TYEP type)
{
    const ItemStateLock lock;
    m_itemType = type;
}

QString ORXPropertyTreeItem::visibilityString() const
{
    const ItemStateLock lock;
    return m_strVisibility;
}

void ORXPropertyTreeItem::setVisibilityString(const QString& visibility)
{
    const ItemStateLock lock;
    if (m_strVisibility != visibility)
        m_strVisibility = visibility;
}

bool ORXPropertyTreeItem::wasRead() const
{
    const ItemStateLock lock;
    return m_bWasRead;
}

bool ORXPropertyTreeItem::isFeatureTreeItem() const
{
    const ItemStateLock lock;
    return m_bIsFeatureTreeItem;
}

void ORXPropertyTreeItem::setIsFeatureTreeItem(bool is)
{
    const ItemStateLock lock;
    m_bIsFeatureTreeItem = is;
}

ORXPropertyTreeItem* ORXPropertyTreeItem::mappingItem() const
{
    const ItemStateLock lock;
    return m_pMappingItem;
}

void ORXPropertyTreeItem::setMappingItem(ORXPropertyTreeItem* item)
{
    const ItemStateLock lock;
    if (m_pMappingItem)
        m_pMappingItem->m_pMappingItem = nullptr;
    m_pMappingItem = item;
    if (!item)
        return;
    if (item->m_pMappingItem)
        item->m_pMappingItem->m_pMappingItem = nullptr;
    item->m_pMappingItem = this;
    item->m_bWasRead = m_bWasRead;
}

QString ORXPropertyTreeItem::searchText() const
{
    const ItemStateLock lock;
    return m_strSearchText;
}

QString ORXPropertyTreeItem::getHighlightSerachText() const
{
    const ItemStateLock lock;
    // Made when a row is painted: most hits of a search are never in sight.
    return m_bSearchMatch && !m_strSearchText.isEmpty() ? toKeywordHtml(searchedName()) : QString();
}

int ORXPropertyTreeItem::searchChildCount() const
{
    const ItemStateLock lock;
    int count = 0;
    for (const ORXPropertyTreeItem* child : m_children)
        count += child->searchChildCount();
    // A group directly below a page's root counts by its children only.
    const ORXPropertyTreeItem* above = parentLocked(AnyParent);
    const bool countsItself = !above || above->m_itemType != CustomItem;
    if (countsItself && m_bSearchMatch && !m_strSearchText.isEmpty() && visible())
        ++count;
    return count;
}

void ORXPropertyTreeItem::copy(const ORXPropertyTreeItem* from)
{
    if (!from)
        return;
    const ItemStateLock lock;
    if (!m_pValue)
        return;
    setTagName(from->m_strTagName);
    m_pValue->copy(from->m_pValue.get(), true);
    setReadOnly(from->m_bReadOnly);
    m_itemType = from->m_itemType;
    m_strVisibility = from->m_strVisibility;
    m_bVisible = from->m_bVisible;
    m_bWasRead = from->m_bWasRead;
}

bool isCanVisible(const QString&)
{
    return true;
}

QString getMatchLangue(ORXPropertyTreeItem::ParentType)
{
    return ORXInterface::language(0);
}
