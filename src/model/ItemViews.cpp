// SPDX-License-Identifier: Apache-2.0
#include "model/ItemViews.h"

#include "device/GuiThread.h"
#include "model/ItemStateLock.h"
#include "model/LiveItems.h"

void ItemViews::add(IORXFeatureNotify* view)
{
    const ItemStateLock lock;
    if (view)
        m_views.insert(view);
}

void ItemViews::remove(IORXFeatureNotify* view)
{
    const ItemStateLock lock;
    m_views.remove(view);
}

bool ItemViews::call(ORXPropertyTreeItem* item, const Call& tell) const
{
    if (!onGuiThread()) {
        const ItemStateLock lock;
        for (IORXFeatureNotify* view : m_views)
            tell(view, item);
        return true;
    }
    QSet<IORXFeatureNotify*> views;
    quint64 destroyed = 0;
    {
        const ItemStateLock lock;
        views = m_views;
        destroyed = LiveItems::destroyedCount();
    }
    // This object goes with its item.
    const auto died = [&] {
        return LiveItems::destroyedCount() != destroyed && !LiveItems::contains(item);
    };
    for (IORXFeatureNotify* view : qAsConst(views)) {
        // A slot of the view before may have removed this view or the item itself.
        {
            const ItemStateLock lock;
            if (died())
                return false;
            if (!m_views.contains(view))
                continue;
        }
        tell(view, item);
    }
    const ItemStateLock lock;
    return !died();
}
