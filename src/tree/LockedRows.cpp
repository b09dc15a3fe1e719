// SPDX-License-Identifier: Apache-2.0
#include "tree/LockedRows.h"

#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "tree/IFeatureItems.h"

LockedRows::LockedRows(const IFeatureItems& items)
    : m_items(items)
{
}

void LockedRows::lock(const QStringList& names)
{
    for (const QString& name : names) {
        if (++m_locks[name] == 1)
            show(name);
    }
}

void LockedRows::unlock(const QStringList& names)
{
    for (const QString& name : names) {
        const auto locks = m_locks.find(name);
        if (locks == m_locks.end() || --*locks > 0)
            continue;
        m_locks.erase(locks);
        show(name);
    }
}

void LockedRows::show(const QString& name)
{
    ORXPropertyTreeItem* item = m_items.propertyItemByName(name);
    if (!item || !item->value())
        return;
    const bool enabled = !m_locks.contains(name);
    item->value()->setEnabled(enabled);
    // The favourite's copy has a switch of its own.
    if (ORXPropertyTreeItem* mirror = item->mappingItem())
        mirror->value()->setEnabled(enabled);
    emit SigRowChanged(item);
}
