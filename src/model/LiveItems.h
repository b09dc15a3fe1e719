// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

class ORXPropertyTreeItem;

// Which items live, in the whole process. Any thread; each operation takes the item state lock for
// its own length.
namespace LiveItems {

void insert(const ORXPropertyTreeItem* item);
void erase(const ORXPropertyTreeItem* item);
// False once the item was destroyed; the pointer is only compared.
bool contains(const ORXPropertyTreeItem* item);
// How many items were destroyed so far.
quint64 destroyedCount();

} // namespace LiveItems
