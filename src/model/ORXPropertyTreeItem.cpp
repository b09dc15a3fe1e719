// SPDX-License-Identifier: Apache-2.0
#include "model/ORXPropertyTreeItem.h"

#include "basetools/ORXInterface.h"
#include "device/GuiThread.h"
#include "model/IORXFeatureNotify.h"
#include "model/ItemStateLock.h"
#include "model/ItemValueFactory.h"
#include "model/KeywordHtml.h"

#include <unordered_set>

namespace {

std::unordered_set<const ORXPropertyTreeItem*>& liveItems()
{
    // Never destroyed: items may outlive the other statics of the process.
    static auto* const items = new std::unordered_set<const ORXPropertyTreeItem*>;
    return *items;
}

quint64 destroyedItems = 0; // guarded by ItemStateLock

const QLatin1String kRecreateMarker("NeedRecreateEditor:");

// True when both statuses carry the marker and differ behind it.
bool needsNewEditor(const QString& before, const QString& after)
{
    const int oldAt = before.indexOf(kRecreateMarker);
    const int newAt = after.indexOf(kRecreateMarker);
    return oldAt >= 0 && newAt >= 0 && before.midRef(oldAt) != after.midRef(newAt);
}

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

// Views -------------------------------------------------------------------------------------------

void ORXPropertyTreeItem::registerView(IORXFeatureNotify* view)
{
    const ItemStateLock lock;
    if (view)
        m_views.insert(view);
}

void ORXPropertyTreeItem::removeView(IORXFeatureNotify* view)
{
    const ItemStateLock lock;
    m_views.remove(view);
}

bool ORXPropertyTreeItem::callViews(ORXPropertyTreeItem* item, const ViewCall& call)
{
    if (!onGuiThread()) {
        const ItemStateLock lock;
        for (IORXFeatureNotify* view : qAsConst(item->m_views))
            call(view, item);
        return true;
    }
    QSet<IORXFeatureNotify*> views;
    quint64 destroyed = 0;
    {
        const ItemStateLock lock;
        views = item->m_views;
        destroyed = destroyedItems;
    }
    const auto died = [&] { return destroyedItems != destroyed && !isAlive(item); };
    for (IORXFeatureNotify* view : qAsConst(views)) {
        // A slot of the view before may have removed this view or the item itself.
        {
            const ItemStateLock lock;
            if (died())
                return false;
            if (!item->m_views.contains(view))
                continue;
        }
        call(view, item);
    }
    const ItemStateLock lock;
    return !died();
}

void ORXPropertyTreeItem::callMappingViews(bool copyValue, const ViewCall& call)
{
    if (!onGuiThread()) {
        // One lock over copy and calls, so that the mirror cannot go in between.
        const ItemStateLock lock;
        if (!m_pMappingItem)
            return;
        if (copyValue && m_pMappingItem->m_pValue)
            m_pMappingItem->m_pValue->copy(m_pValue.get(), false);
        callViews(m_pMappingItem, call);
        return;
    }
    ORXPropertyTreeItem* mirror = nullptr;
    {
        const ItemStateLock lock;
        mirror = m_pMappingItem;
        if (mirror && copyValue && mirror->m_pValue)
            mirror->m_pValue->copy(m_pValue.get(), false);
    }
    if (mirror)
        callViews(mirror, call);
}

void ORXPropertyTreeItem::notifyViewUpdate(qint64 cameraId, int column, bool needRecreateEditor)
{
    const ViewCall call = [=](IORXFeatureNotify* view, ORXPropertyTreeItem* item) {
        view->itemValueChanged(cameraId, item, column, needRecreateEditor);
    };
    if (callViews(this, call))
        callMappingViews(true, call);
}

void ORXPropertyTreeItem::notifiViewSpecialUpdate(NotifyViewSpecial info, qint64 cameraId)
{
    const ViewCall call = [=](IORXFeatureNotify* view, ORXPropertyTreeItem* item) {
        view->itemSpecialInfoChanged(cameraId, item, static_cast<int>(info));
    };
    ORXPropertyTreeItem* mirror = mappingItem();
    const ViewCall callBoth = [&](IORXFeatureNotify* view, ORXPropertyTreeItem* item) {
        call(view, item);
        if (mirror && isAlive(mirror))
            call(view, mirror);
    };
    if (callViews(this, callBoth))
        callMappingViews(true, call);
}

bool ORXPropertyTreeItem::endUpdateItem(qint64 cameraId)
{
    bool recreate = false;
    {
        const ItemStateLock lock;
        if (!m_pValue)
            return false;
        const QString status = m_pValue->createCurrentStauts(m_bReadOnly);
        const QString before = m_pValue->exchangeStatus(status);
        if (before == status)
            return false;
        recreate = needsNewEditor(before, status);
        if (m_pMappingItem && m_pMappingItem->m_pValue)
            m_pMappingItem->m_pValue->copy(m_pValue.get(), true);
    }
    notifyViewUpdate(cameraId, -1, recreate);
    return true;
}

void ORXPropertyTreeItem::setVisible(bool visible, qint64 cameraId)
{
    bool shown = false;
    {
        const ItemStateLock lock;
        if (!m_children.isEmpty() || m_bVisible == visible)
            return;
        m_bVisible = visible;
        shown = visible && m_bGroupVisible && m_bSearchMatch;
    }
    const bool alive = callViews(this, [=](IORXFeatureNotify* view, ORXPropertyTreeItem* item) {
        view->itemVisibleChanged(cameraId, item, shown);
    });
    if (!alive)
        return;
    bool mirrorShown = false;
    {
        const ItemStateLock lock;
        if (!m_pMappingItem)
            return;
        m_pMappingItem->m_bVisible = visible;
        // This item's search match together with the mirror's group: views were built on that.
        mirrorShown = visible && m_bSearchMatch && m_pMappingItem->m_bGroupVisible;
    }
    callMappingViews(false, [=](IORXFeatureNotify* view, ORXPropertyTreeItem* item) {
        view->itemVisibleChanged(cameraId, item, mirrorShown);
    });
}

void ORXPropertyTreeItem::setGroupVisible(bool visible, qint64 cameraId)
{
    bool shown = false;
    {
        const ItemStateLock lock;
        if (m_bGroupVisible == visible)
            return;
        m_bGroupVisible = visible;
        if (!m_children.isEmpty())
            return;
        shown = visible && m_bVisible && m_bSearchMatch;
    }
    callViews(this, [=](IORXFeatureNotify* view, ORXPropertyTreeItem* item) {
        view->itemVisibleChanged(cameraId, item, shown);
    });
}

void ORXPropertyTreeItem::setExpanded(bool expanded, qint64 cameraId)
{
    {
        const ItemStateLock lock;
        if (m_children.isEmpty())
            return;
        m_bExpanded = expanded;
    }
    const ViewCall call = [=](IORXFeatureNotify* view, ORXPropertyTreeItem* item) {
        view->itemExpanded(cameraId, item, expanded);
    };
    if (callViews(this, call))
        callMappingViews(false, call);
}

QString ORXPropertyTreeItem::searchedName() const
{
    return getMatchLangue(AnyParent) == QLatin1String("ENG") ? m_pValue->displayName()
                                                             : m_pValue->translateName();
}

ORXPropertyTreeItem::SearchEffect ORXPropertyTreeItem::applySearchText(const QString& text)
{
    const ItemStateLock lock;
    const bool canShow = m_bGroupVisible && visible();
    SearchEffect effect;
    effect.wasShown = canShow && m_bSearchMatch;
    m_strSearchText = text.trimmed();
    m_bSearchMatch = m_strSearchText.isEmpty() ||
                     m_pValue->nodeName(0).contains(m_strSearchText, Qt::CaseInsensitive) ||
                     searchedName().contains(m_strSearchText, Qt::CaseInsensitive);
    effect.shown = canShow && m_bSearchMatch;
    return effect;
}

void ORXPropertyTreeItem::tellVisible(bool shown, qint64 cameraId)
{
    callViews(this, [=](IORXFeatureNotify* view, ORXPropertyTreeItem* item) {
        view->itemVisibleChanged(cameraId, item, shown);
    });
}

void ORXPropertyTreeItem::setSearchText(const QString& text, qint64 cameraId)
{
    tellVisible(applySearchText(text).shown, cameraId);
}

QString ORXPropertyTreeItem::toKeywordHtml(const QString& text) const
{
    return KeywordHtml::mark(text, searchText());
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
}

bool isCanVisible(const QString&)
{
    return true;
}

QString getMatchLangue(ORXPropertyTreeItem::ParentType)
{
    return ORXInterface::language(0);
}
