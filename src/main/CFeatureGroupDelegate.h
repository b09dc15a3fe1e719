// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStyledItemDelegate>

// Paints the rows of the side column: pages in bold with an arrow, groups indented, the current
// group with a bar. A group with a change that was not seen has a dot; a closed page has it for
// its groups. While a search is on, rows with hits show their number and the others step
// back. Owned by its view; GUI thread.
class CFeatureGroupDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit CFeatureGroupDelegate(QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    // Where the arrow of a page row stands.
    static QRect arrowPlace(const QRect& row);
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};
