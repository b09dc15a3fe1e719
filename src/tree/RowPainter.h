// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointer>
#include <QStyleOptionViewItem>

class ChangeMarks;
class ORXPropertyTreeItem;
class QPainter;

// How a row looks: name with the found text marked, unit, a dash for what was never read, the mark
// of a change, and the line where a dragged row would land. Owned by the delegate; GUI thread.
class RowPainter
{
public:
    // The row that shows the drop line, above it or below; null for none. Not owned.
    void setDropLine(const ORXPropertyTreeItem* item, bool below);

    // The marks that rows carry; null for none. Not owned.
    void setMarks(const ChangeMarks* marks);
    // Where a row that takes `row` has its mark.
    static QRect markPlace(const QRect& row);

    // Paints one cell of the item. `cell` is the option with the cell's texts filled in.
    void paint(QPainter* painter, const QStyleOptionViewItem& cell, const ORXPropertyTreeItem& item,
               int column) const;

    // The style that a cell is drawn and measured with.
    static QStyle* styleOf(const QStyleOptionViewItem& option);

private:
    void paintDropLine(QPainter* painter, const QStyleOptionViewItem& option) const;
    void paintMark(QPainter* painter, const QRect& row, const ORXPropertyTreeItem& item) const;

    const ORXPropertyTreeItem* m_pDropItem = nullptr; // Not owned, only compared.
    bool m_bDropBelow = false;
    QPointer<const ChangeMarks> m_pMarks;
};
