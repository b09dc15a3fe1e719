// SPDX-License-Identifier: Apache-2.0
#include "model/ORXPropertyTreeItem.h"

#include "basetools/ORXInterface.h"
#include "device/GuiThread.h"
#include "model/CTreeItemValue.h"
#include "model/IORXFeatureNotify.h"
#include "model/ItemValueFactory.h"
#include "model/KeywordHtml.h"

namespace {

const QLatin1String kRecreateMarker("NeedRecreateEditor:");

// True when both statuses carry the marker and differ behind it.
bool needsNewEditor(const QString& before, const QString& after)
{
    const int oldAt = int(before.indexOf(kRecreateMarker));
    const int newAt = int(after.indexOf(kRecreateMarker));
    return oldAt >= 0 && newAt >= 0 && before.mid(oldAt) != after.mid(newAt);
}

} // namespace

ORXPropertyTreeItem::ORXPropertyTreeItem(ORXPropertyTreeItem* parent, ParentType type)
    : m_pValue(makeItemValue(FeatureTag::Other))
{
    const ItemStateLock lock;
    LiveItems::insert(this);
    joinNew(parent, type);
}

ORXPropertyTreeItem::~ORXPropertyTreeItem()
{
    const ItemStateLock lock;
    LiveItems::erase(this);
    setMappingItem(nullptr);
    clear();
    leaveParents();
}

bool ORXPropertyTreeItem::visible() const
{
    const ItemStateLock lock;
    if (lockedChildren().isEmpty())
        return m_bVisible;
    for (const ORXPropertyTreeItem* child : lockedChildren()) {
        if (child->visible())
            return true;
    }
    return false;
}

void ORXPropertyTreeItem::setDefaultExpanded(bool expanded)
{
    const ItemStateLock lock;
    m_bDefaultExpanded = expanded;
    m_bExpanded = expanded;
}

void ORXPropertyTreeItem::setReadOnly(bool readOnly, ReadOnlyCause cause)
{
    const ItemStateLock lock;
    if (m_pValue && m_pValue->readOnlyCause() != cause)
        m_bShownUnpublished = true;
    for (ORXPropertyTreeItem* item : {this, m_pMappingItem}) {
        if (!item)
            continue;
        item->m_bReadOnly = readOnly;
        if (item->m_pValue)
            item->m_pValue->setReadOnlyCause(cause);
    }
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

void ORXPropertyTreeItem::setItemType(ITEM_TYEP type)
{
    const ItemStateLock lock;
    m_itemType = type;
}

void ORXPropertyTreeItem::setVisibilityString(const QString& visibility)
{
    const ItemStateLock lock;
    if (m_strVisibility != visibility)
        m_strVisibility = visibility;
}

void ORXPropertyTreeItem::setIsFeatureTreeItem(bool is)
{
    const ItemStateLock lock;
    m_bIsFeatureTreeItem = is;
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

void ORXPropertyTreeItem::copy(const ORXPropertyTreeItem* from)
{
    if (!from)
        return;
    const ItemStateLock lock;
    if (!m_pValue)
        return;
    setTagName(from->m_strTagName);
    m_pValue->copy(from->m_pValue.get(), true);
    setReadOnly(from->m_bReadOnly, from->m_pValue->readOnlyCause());
    m_itemType = from->m_itemType;
    m_strVisibility = from->m_strVisibility;
    m_bVisible = from->m_bVisible;
    m_bWasRead = from->m_bWasRead;
}

ORXPropertyTreeItem* ORXPropertyTreeItem::findChild(const QString& nodeName) const
{
    const ItemStateLock lock;
    for (ORXPropertyTreeItem* child : lockedChildren()) {
        if (child->m_pValue && child->m_pValue->nodeName(0) == nodeName)
            return child;
    }
    return nullptr;
}

// Views -------------------------------------------------------------------------------------------

void ORXPropertyTreeItem::callMappingViews(bool copyValue, const ItemViews::Call& call)
{
    if (!onGuiThread()) {
        // One lock over copy and calls, so that the mirror cannot go in between.
        const ItemStateLock lock;
        if (!m_pMappingItem)
            return;
        if (copyValue && m_pMappingItem->m_pValue)
            m_pMappingItem->m_pValue->copy(m_pValue.get(), false);
        m_pMappingItem->m_views.call(m_pMappingItem, call);
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
        mirror->m_views.call(mirror, call);
}

void ORXPropertyTreeItem::callAllViews(bool copyValue, const ItemViews::Call& call)
{
    if (m_views.call(this, call))
        callMappingViews(copyValue, call);
}

void ORXPropertyTreeItem::notifyViewUpdate(qint64 cameraId, int column, bool needRecreateEditor)
{
    callAllViews(true, [=](IORXFeatureNotify* view, ORXPropertyTreeItem* item) {
        view->itemValueChanged(cameraId, item, column, needRecreateEditor);
    });
}

void ORXPropertyTreeItem::notifiViewSpecialUpdate(NotifyViewSpecial info, qint64 cameraId)
{
    const ItemViews::Call call = [=](IORXFeatureNotify* view, ORXPropertyTreeItem* item) {
        view->itemSpecialInfoChanged(cameraId, item, static_cast<int>(info));
    };
    ORXPropertyTreeItem* mirror = mappingItem();
    const ItemViews::Call callBoth = [&](IORXFeatureNotify* view, ORXPropertyTreeItem* item) {
        call(view, item);
        if (mirror && isAlive(mirror))
            call(view, mirror);
    };
    if (m_views.call(this, callBoth))
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
        if (before == status && !m_bShownUnpublished)
            return false;
        m_bShownUnpublished = false;
        recreate = needsNewEditor(before, status);
        if (m_pMappingItem && m_pMappingItem->m_pValue)
            m_pMappingItem->m_pValue->copy(m_pValue.get(), true);
    }
    notifyViewUpdate(cameraId, -1, recreate);
    return true;
}

void ORXPropertyTreeItem::noteShownState()
{
    const ItemStateLock lock;
    if (!m_bShownUnpublished && m_pValue)
        m_bShownUnpublished =
            m_pValue->currentStatus() != m_pValue->createCurrentStauts(m_bReadOnly);
}

void ORXPropertyTreeItem::setVisible(bool visible, qint64 cameraId)
{
    bool shown = false;
    {
        const ItemStateLock lock;
        if (!lockedChildren().isEmpty() || m_bVisible == visible)
            return;
        m_bVisible = visible;
        shown = visible && m_bGroupVisible && m_bSearchMatch;
    }
    const bool alive = m_views.call(this, [=](IORXFeatureNotify* view, ORXPropertyTreeItem* item) {
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

void ORXPropertyTreeItem::setWasRead(bool read, qint64 cameraId)
{
    {
        const ItemStateLock lock;
        if (m_bWasRead == read)
            return;
        m_bWasRead = read;
        if (m_pMappingItem)
            m_pMappingItem->m_bWasRead = read;
    }
    // The cell changes, but not the value: pages need not know.
    constexpr int kCellOnly = 1;
    notifyViewUpdate(cameraId, kCellOnly, false);
}

void ORXPropertyTreeItem::setGroupVisible(bool visible, qint64 cameraId)
{
    bool shown = false;
    {
        const ItemStateLock lock;
        if (m_bGroupVisible == visible)
            return;
        m_bGroupVisible = visible;
        if (!lockedChildren().isEmpty())
            return;
        shown = visible && m_bVisible && m_bSearchMatch;
    }
    tellVisible(shown, cameraId);
}

void ORXPropertyTreeItem::setExpanded(bool expanded, qint64 cameraId)
{
    {
        const ItemStateLock lock;
        if (lockedChildren().isEmpty())
            return;
        m_bExpanded = expanded;
    }
    callAllViews(false, [=](IORXFeatureNotify* view, ORXPropertyTreeItem* item) {
        view->itemExpanded(cameraId, item, expanded);
    });
}

// Search ------------------------------------------------------------------------------------------

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
    m_views.call(this, [=](IORXFeatureNotify* view, ORXPropertyTreeItem* item) {
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
    for (const ORXPropertyTreeItem* child : lockedChildren())
        count += child->searchChildCount();
    // A group directly below a page's root counts by its children only.
    const ORXPropertyTreeItem* above = parent(AnyParent);
    const bool countsItself = !above || above->m_itemType != CustomItem;
    if (countsItself && m_bSearchMatch && !m_strSearchText.isEmpty() && visible())
        ++count;
    return count;
}

bool isCanVisible(const QString&)
{
    return true;
}

QString getMatchLangue(ORXPropertyTreeItem::ParentType)
{
    return ORXInterface::language(0);
}
