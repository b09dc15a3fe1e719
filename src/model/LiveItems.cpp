// SPDX-License-Identifier: Apache-2.0
#include "model/LiveItems.h"

#include "model/ItemStateLock.h"

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

void LiveItems::insert(const ORXPropertyTreeItem* item)
{
    const ItemStateLock lock;
    liveItems().insert(item);
}

void LiveItems::erase(const ORXPropertyTreeItem* item)
{
    const ItemStateLock lock;
    liveItems().erase(item);
    ++destroyedItems;
}

bool LiveItems::contains(const ORXPropertyTreeItem* item)
{
    const ItemStateLock lock;
    return liveItems().count(item) > 0;
}

quint64 LiveItems::destroyedCount()
{
    const ItemStateLock lock;
    return destroyedItems;
}
