// SPDX-License-Identifier: Apache-2.0
// Keyboard and focus in ORXFeatureTreeView.
#include "model/ORXPropertyTreeModel.h"
#include "tree/EditorFocus.h"
#include "tree/ORXFeatureTreeView.h"
#include "tree/ORXPropertyTreeDelegate.h"

#include <QApplication>
#include <QKeyEvent>

namespace {

bool isTwoBoxes(const QModelIndex& cell)
{
    const ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(cell);
    return item && (item->tag() == FeatureTag::Watermark || item->tag() == FeatureTag::Event);
}

} // namespace

// The cell whose editor is, or holds, the widget.
QModelIndex ORXFeatureTreeView::cellOfEditor(QWidget* widget) const
{
    const QWidget* editor = editorAround(widget);
    if (!editor)
        return {};
    for (ORXPropertyTreeItem* item : m_openEditors) {
        for (int column = 0; column < 2; ++column) {
            if (editorOf(item, column) == editor)
                return m_pModel->indexFromItem(item, column);
        }
    }
    return {};
}

QModelIndex ORXFeatureTreeView::firstCell(const QModelIndex& row) const
{
    return row.siblingAtColumn(isTwoBoxes(row) ? 0 : 1);
}

QModelIndex ORXFeatureTreeView::nextCell(const QModelIndex& cell, bool next) const
{
    if (next)
        return cell.column() == 0 ? cell.siblingAtColumn(1)
                                  : firstCell(indexBelow(cell.siblingAtColumn(0)));
    if (cell.column() == 1 && isTwoBoxes(cell))
        return cell.siblingAtColumn(0);
    return indexAbove(cell.siblingAtColumn(0)).siblingAtColumn(1);
}

// Brings the cell into sight and gives its editor the focus; false when it has none to take it.
bool ORXFeatureTreeView::focusCell(const QModelIndex& cell, Qt::FocusReason reason)
{
    const ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(cell);
    if (!item || !m_pDelegate->isUsable(*item))
        return false;
    scrollTo(cell);
    syncEditors();
    QWidget* editor = indexWidget(cell);
    if (!editor || !editor->isEnabled() || !(editor->focusPolicy() & Qt::TabFocus))
        return false;
    editor->setFocus(reason);
    return true;
}

// The widget directly in the viewport that is, or holds, the widget; null when it stands elsewhere.
QWidget* ORXFeatureTreeView::editorAround(QWidget* widget) const
{
    while (widget && widget->parentWidget() != viewport())
        widget = widget->parentWidget();
    return widget;
}

bool ORXFeatureTreeView::focusNextPrevChild(bool next)
{
    QWidget* held = window()->focusWidget();
    QWidget* lost = isVisible() && held && !(held->isVisible() && held->isEnabled())
                        ? editorAround(held)
                        : nullptr;
    // Nobody pressed a key: Qt looks for another place because this one was disabled or hidden.
    if (lost) {
        EditorFocus::drop(lost);
        return true;
    }
    QWidget* focus = QApplication::focusWidget();
    QModelIndex cell;
    if (focus == this && next) {
        cell = firstCell(currentIndex().isValid() ? currentIndex() : indexAt(QPoint(0, 0)));
    } else {
        cell = cellOfEditor(focus);
        // Inside an editor of several widgets the order is its own.
        if (cell.isValid() && indexWidget(cell) != focus)
            cell = QModelIndex();
        if (cell.isValid())
            cell = nextCell(cell, next);
    }
    for (; cell.isValid(); cell = nextCell(cell, next)) {
        if (focusCell(cell, next ? Qt::TabFocusReason : Qt::BacktabFocusReason))
            return true;
    }
    return QTreeView::focusNextPrevChild(next);
}

// The row of the focused editor is the current one, so that its description is shown.
void ORXFeatureTreeView::onFocusChanged(QWidget*, QWidget* now)
{
    const QModelIndex cell = cellOfEditor(now);
    if (!cell.isValid() || cell.siblingAtColumn(0) == currentIndex().siblingAtColumn(0))
        return;
    // The focus may come with a mouse press: the row must not move from under the pointer.
    const bool scrolls = hasAutoScroll();
    setAutoScroll(false);
    // A current name cell leaves the focus where it is, unless it has an editor of its own.
    selectionModel()->setCurrentIndex(isTwoBoxes(cell) ? cell : cell.siblingAtColumn(0),
                                      QItemSelectionModel::ClearAndSelect |
                                          QItemSelectionModel::Rows);
    setAutoScroll(scrolls);
}

// A row that becomes the current one does not take the focus into its editor: the one before may
// have gone from under the user's hands.
bool ORXFeatureTreeView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event)
{
    return trigger != CurrentChanged && QTreeView::edit(index, trigger, event);
}

// Groups directly below the root are a thin line; the side column names them. So is a row whose
// picture stands below the rows.
bool ORXFeatureTreeView::isThin(const QModelIndex& index)
{
    const ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index);
    return item && (!index.parent().isValid() || item->tag() == FeatureTag::Draw);
}

void ORXFeatureTreeView::focusInEvent(QFocusEvent* event)
{
    QTreeView::focusInEvent(event);
    keepCurrentShown();
}

// The focus of the view stands in its current row: in a row that has gone out of the view nobody
// would see it.
void ORXFeatureTreeView::keepCurrentShown()
{
    const QModelIndex current = currentIndex();
    if (!hasFocus() || (!isThin(current) && visualRect(current).isValid()))
        return;
    QModelIndex row = indexAt(QPoint(0, 0));
    while (isThin(row))
        row = indexBelow(row);
    if (row.isValid())
        selectionModel()->setCurrentIndex(row, QItemSelectionModel::NoUpdate);
}

// Rows are walked in the name column: a current value cell would give the focus to its editor.
QModelIndex ORXFeatureTreeView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex from = currentIndex().siblingAtColumn(0);
    const QModelIndex to = QTreeView::moveCursor(action, modifiers).siblingAtColumn(0);
    if (!isThin(to))
        return to;
    QModelIndex row = to;
    if (action == MoveLeft)
        row = QModelIndex();
    const bool up =
        action == MoveUp || action == MovePrevious || action == MoveEnd || action == MovePageDown;
    while (isThin(row))
        row = up ? indexAbove(row) : indexBelow(row);
    if (row.isValid() || isThin(from))
        return row;
    return from;
}

void ORXFeatureTreeView::keyboardSearch(const QString& search)
{
    const QPersistentModelIndex before = currentIndex();
    QTreeView::keyboardSearch(search);
    if (isThin(currentIndex()))
        setCurrentIndex(before);
}

void ORXFeatureTreeView::keyPressEvent(QKeyEvent* event)
{
    // Keys that an editor left over are not for the rows, but for the way back to them.
    if (!hasFocus()) {
        event->setAccepted(event->key() == Qt::Key_Escape);
        if (event->isAccepted())
            setFocus(Qt::OtherFocusReason);
        return;
    }
    const bool moves = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
    if (moves && event->modifiers() == Qt::AltModifier &&
        moveFavorite(currentIndex(), event->key() == Qt::Key_Up)) {
        event->accept();
        return;
    }
    const bool wantsEditor = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                             event->key() == Qt::Key_F2;
    const QModelIndex row = currentIndex();
    if (wantsEditor && (focusCell(firstCell(row), Qt::TabFocusReason) ||
                        focusCell(row.siblingAtColumn(1), Qt::TabFocusReason)))
        event->accept();
    else
        QTreeView::keyPressEvent(event);
}
