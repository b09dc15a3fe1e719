// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QModelIndex>
#include <QtGlobal>

class OpenEditors;
class ORXPropertyTreeDelegate;
class QTreeView;
class QWidget;

// Where the focus of a view goes among its rows and their editors. Belongs to the view; GUI thread.
//
// The rows directly below the root are a line of one pixel, which is never the current row, nor is
// a row whose picture stands elsewhere.
class RowFocus
{
public:
    // None of them is owned.
    RowFocus(QTreeView* view, OpenEditors* editors, const ORXPropertyTreeDelegate* delegate);

    // Groups directly below the root are a thin line; the side column names them. So is a row
    // whose picture stands below the rows.
    static bool isThin(const QModelIndex& index);
    // Where a move from one row to another ends: a thin row is passed in steps of -1 or +1 row; 0
    // does not pass it. Invalid when there is nowhere to stay.
    QModelIndex passThin(const QModelIndex& from, const QModelIndex& to, int step) const;
    // Makes the first shown row the current one when the focused view's own has gone out of it:
    // there nobody would see the focus.
    void keepCurrentShown();

    // Brings the cell into sight and gives its editor the focus; false when it has none to take
    // it.
    bool focusCell(const QModelIndex& cell, Qt::FocusReason reason);
    // The same with the row's first editor that takes it.
    bool focusRow(const QModelIndex& row);
    // From editor to editor in the order of the rows; false when the focus is to leave them.
    bool focusNext(bool next);
    // The row of the focused editor becomes the current one, so that its description is shown.
    void followFocus(QWidget* now);

private:
    QModelIndex nextCell(const QModelIndex& cell, bool next) const;

    QTreeView* m_view;                         // Not owned.
    OpenEditors* m_editors;                    // Not owned.
    const ORXPropertyTreeDelegate* m_delegate; // Not owned.
};
