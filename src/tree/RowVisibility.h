// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ORXPropertyTreeItem.h"

class OpenEditors;
class ORXPropertyTreeModel;
class QTreeView;

// Which rows of a view are hidden. Editors close before their row is. Belongs to the view; GUI
// thread.
class RowVisibility
{
public:
    // The view shows the model. None of them is owned.
    RowVisibility(QTreeView* view, ORXPropertyTreeModel* model, OpenEditors* editors,
                  ORXPropertyTreeItem::ParentType page);

    // Shows or hides the row of an item without children, and those above it that then have a shown
    // row below them or none; false when the row already was as wanted.
    bool setShown(ORXPropertyTreeItem* item, bool shown);
    // Shows and hides the rows of `item` and below by the items' own flags; `visible` is whether
    // the rows above are shown.
    void update(ORXPropertyTreeItem* item, bool visible);
    // Height of all shown rows, in device-independent pixels.
    int height() const;

private:
    bool setHidden(ORXPropertyTreeItem* item, bool hidden);
    void updateAbove(ORXPropertyTreeItem* item, int changedRow);
    int heightBelow(ORXPropertyTreeItem* item) const;

    QTreeView* m_view;             // Not owned.
    ORXPropertyTreeModel* m_model; // Not owned.
    OpenEditors* m_editors;        // Not owned.
    ORXPropertyTreeItem::ParentType m_pageType;
};
