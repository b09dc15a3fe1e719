// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tree/SelectorRowsLock.h"

class CuratedPage;
class ORXPropertyTreeItem;
class QLUTDrawWidget;

// The page items of the look-up table: what they do to the curve editor, and when they can be used.
// While a table is transferred the camera's own features of it are locked. Owned by the page; GUI
// thread.
class LUTItems
{
public:
    // Neither is owned.
    LUTItems(CuratedPage& page, QLUTDrawWidget& editor);

    // Leaves the items that the page's table has made to a camera that has a look-up table.
    void createLUTItems(ORXPropertyTreeItem* root);
    // As "LUTEnable" was read last.
    void update();
    // A transfer has begun or ended.
    void lockTable(bool lock);

private:
    CuratedPage& m_page;          // Not owned.
    QLUTDrawWidget& m_editor;     // Not owned.
    SelectorRowsLock m_tableLock; // while a table is transferred
};
