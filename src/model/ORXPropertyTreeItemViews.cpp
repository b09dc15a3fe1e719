// SPDX-License-Identifier: Apache-2.0
// What ORXPropertyTreeItem tells its views: values, visibility, expansion, search.
#include "device/GuiThread.h"
#include "model/CTreeItemValue.h"
#include "model/IORXFeatureNotify.h"
#include "model/ItemStateLock.h"
#include "model/KeywordHtml.h"
#include "model/ORXPropertyTreeItem.h"

namespace {

const QLatin1String kRecreateMarker("NeedRecreateEditor:");

// True when both statuses carry the marker and differ behind it.
bool needsNewEditor(const QString& before, const QString& after)
{
    const int oldAt = before.indexOf(kRecreateMarker);
    const int newAt = after.indexOf(kRecreateMarker);
    return oldAt >= 0 && newAt >= 0 && before.midRef(oldAt) != after.midRef(newAt);
}

} // namespace

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
        destroyed = destroyedCount();
    }
    const auto died = [&] { return destroyedCount() != destroyed && !isAlive(item); };
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
