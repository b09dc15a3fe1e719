// SPDX-License-Identifier: Apache-2.0
#include "tree/RowFocus.h"

#include "model/ORXPropertyTreeModel.h"
#include "tree/EditorFocus.h"
#include "tree/ORXPropertyTreeDelegate.h"
#include "tree/OpenEditors.h"

#include <QApplication>
#include <QTreeView>

namespace {

bool hasNameEditor(const QModelIndex& cell)
{
    const ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(cell);
    return item && OpenEditors::hasNameEditor(*item);
}

QModelIndex firstCell(const QModelIndex& row)
{
    return row.siblingAtColumn(hasNameEditor(row) ? 0 : 1);
}

} // namespace

RowFocus::RowFocus(QTreeView* view, OpenEditors* editors, const ORXPropertyTreeDelegate* delegate)
    : m_view(view)
    , m_editors(editors)
    , m_delegate(delegate)
{
}

// Rows --------------------------------------------------------------------------------------------

bool RowFocus::isThin(const QModelIndex& index)
{
    const ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index);
    return item && (!index.parent().isValid() || item->tag() == FeatureTag::Draw);
}

QModelIndex RowFocus::passThin(const QModelIndex& from, const QModelIndex& to, int step) const
{
    if (!isThin(to))
        return to;
    QModelIndex row = step == 0 ? QModelIndex() : to;
    while (isThin(row))
        row = step < 0 ? m_view->indexAbove(row) : m_view->indexBelow(row);
    return row.isValid() || isThin(from) ? row : from;
}

void RowFocus::keepCurrentShown()
{
    const QModelIndex current = m_view->currentIndex();
    if (!m_view->hasFocus() || (!isThin(current) && m_view->visualRect(current).isValid()))
        return;
    QModelIndex row = m_view->indexAt(QPoint(0, 0));
    while (isThin(row))
        row = m_view->indexBelow(row);
    if (row.isValid())
        m_view->selectionModel()->setCurrentIndex(row, QItemSelectionModel::NoUpdate);
}

// Editors -----------------------------------------------------------------------------------------

QModelIndex RowFocus::nextCell(const QModelIndex& cell, bool next) const
{
    if (next)
        return cell.column() == 0 ? cell.siblingAtColumn(1)
                                  : firstCell(m_view->indexBelow(cell.siblingAtColumn(0)));
    if (cell.column() == 1 && hasNameEditor(cell))
        return cell.siblingAtColumn(0);
    return m_view->indexAbove(cell.siblingAtColumn(0)).siblingAtColumn(1);
}

bool RowFocus::focusCell(const QModelIndex& cell, Qt::FocusReason reason)
{
    const ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(cell);
    if (!item || !m_delegate->isUsable(*item))
        return false;
    m_view->scrollTo(cell);
    m_editors->sync();
    QWidget* editor = m_view->indexWidget(cell);
    if (!editor || !editor->isEnabled() || !(editor->focusPolicy() & Qt::TabFocus))
        return false;
    editor->setFocus(reason);
    return true;
}

bool RowFocus::focusRow(const QModelIndex& row)
{
    return focusCell(firstCell(row), Qt::TabFocusReason) ||
           focusCell(row.siblingAtColumn(1), Qt::TabFocusReason);
}

bool RowFocus::focusNext(bool next)
{
    QWidget* held = m_view->window()->focusWidget();
    QWidget* lost = m_view->isVisible() && held && !(held->isVisible() && held->isEnabled())
                        ? m_editors->editorAround(held)
                        : nullptr;
    // Nobody pressed a key: Qt looks for another place because this one was disabled or hidden.
    if (lost) {
        EditorFocus::drop(lost);
        return true;
    }
    QWidget* focus = QApplication::focusWidget();
    const QModelIndex current = m_view->currentIndex();
    QModelIndex cell;
    if (focus == m_view && next) {
        cell = firstCell(current.isValid() ? current : m_view->indexAt(QPoint(0, 0)));
    } else {
        cell = m_editors->cellOf(focus);
        // Inside an editor of several widgets the order is its own.
        if (cell.isValid() && m_view->indexWidget(cell) != focus)
            cell = QModelIndex();
        if (cell.isValid())
            cell = nextCell(cell, next);
    }
    for (; cell.isValid(); cell = nextCell(cell, next)) {
        if (focusCell(cell, next ? Qt::TabFocusReason : Qt::BacktabFocusReason))
            return true;
    }
    return false;
}

void RowFocus::followFocus(QWidget* now)
{
    const QModelIndex cell = m_editors->cellOf(now);
    const QModelIndex name = cell.siblingAtColumn(0);
    if (!cell.isValid() || name == m_view->currentIndex().siblingAtColumn(0))
        return;
    // The focus may come with a mouse press: the row must not move from under the pointer.
    const bool scrolls = m_view->hasAutoScroll();
    m_view->setAutoScroll(false);
    // A current name cell leaves the focus where it is, unless it has an editor of its own.
    m_view->selectionModel()->setCurrentIndex(hasNameEditor(cell) ? cell : name,
                                              QItemSelectionModel::ClearAndSelect |
                                                  QItemSelectionModel::Rows);
    m_view->setAutoScroll(scrolls);
}
