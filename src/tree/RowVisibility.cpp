// SPDX-License-Identifier: Apache-2.0
#include "tree/RowVisibility.h"

#include "model/ORXPropertyTreeModel.h"
#include "tree/ORXPropertyTreeDelegate.h"
#include "tree/OpenEditors.h"

#include <QTreeView>

RowVisibility::RowVisibility(QTreeView* view, ORXPropertyTreeModel* model, OpenEditors* editors,
                             ORXPropertyTreeItem::ParentType page)
    : m_view(view)
    , m_model(model)
    , m_editors(editors)
    , m_pageType(page)
{
}

bool RowVisibility::setShown(ORXPropertyTreeItem* item, bool shown)
{
    if (!setHidden(item, !shown))
        return false;
    updateAbove(item->parent(m_pageType), item->indexInParent(m_pageType));
    return true;
}

bool RowVisibility::setHidden(ORXPropertyTreeItem* item, bool hidden)
{
    const QModelIndex index = m_model->indexFromItem(item, 0);
    if (!index.isValid() || m_view->isRowHidden(index.row(), index.parent()) == hidden)
        return false;
    if (hidden)
        m_editors->closeBelow(item);
    m_view->setRowHidden(index.row(), index.parent(), hidden);
    return true;
}

// The search for a shown row starts at the one that changed: rows are mostly hidden and shown in
// order, and a whole group must not cost a scan of all its rows for each of them.
void RowVisibility::updateAbove(ORXPropertyTreeItem* item, int changedRow)
{
    while (item && item != m_model->rootItem()) {
        const QModelIndex index = m_model->indexFromItem(item, 0);
        const int rows = item->childCount();
        bool anyShown = false;
        for (int i = 0; i < rows && !anyShown; ++i)
            anyShown = !m_view->isRowHidden((qMax(0, changedRow) + i) % rows, index);
        if (!setHidden(item, !anyShown))
            return;
        changedRow = item->indexInParent(m_pageType);
        item = item->parent(m_pageType);
    }
}

void RowVisibility::update(ORXPropertyTreeItem* item, bool visible)
{
    const bool shown = item->visible() && visible && item->groupVisible();
    const QVector<ORXPropertyTreeItem*> children = item->children();
    for (ORXPropertyTreeItem* child : children)
        update(child, shown);
    if (item != m_model->rootItem())
        setHidden(item, !shown);
}

int RowVisibility::height() const
{
    return m_model->rootItem() ? heightBelow(m_model->rootItem()) : 0;
}

int RowVisibility::heightBelow(ORXPropertyTreeItem* item) const
{
    int height = 0;
    const QVector<ORXPropertyTreeItem*> children = item->children();
    for (ORXPropertyTreeItem* child : children) {
        const QModelIndex index = m_model->indexFromItem(child, 0);
        if (!child->value() || m_view->isRowHidden(index.row(), index.parent()))
            continue;
        if (child->tag() == FeatureTag::CCM)
            height += ORXPropertyTreeDelegate::kMatrixRowHeight;
        else if (item != m_model->rootItem())
            height += ORXPropertyTreeDelegate::kRowHeight;
        if (child->childCount() > 0 && m_view->isExpanded(index))
            height += heightBelow(child);
    }
    return height;
}
