// SPDX-License-Identifier: Apache-2.0
#include "changes/ThemedTable.h"

#include "styledctl/ZELCustom.h"
#include "styledctl/ZELTouchScrolling.h"

#include <QHeaderView>
#include <QKeyEvent>

#include <numeric>

namespace {

constexpr int kRowHeight = 32; // room for a finger
constexpr int kHeadHeight = 26;
constexpr int kFontPx = 13;

} // namespace

ThemedTable::ThemedTable(QAbstractItemModel* model, QWidget* parent)
    : QTableView(parent)
    , ZELCustomQssHelper(this)
{
    cSetStyleSheets({ZELCustom::Sheet_Table, ZELCustom::Sheet_ScrollBar});
    setFrameShape(QFrame::NoFrame);
    setModel(model);
    setShowGrid(false);
    setWordWrap(false);
    setAlternatingRowColors(true);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(kRowHeight);
    verticalHeader()->setMinimumSectionSize(kRowHeight);
    horizontalHeader()->setFont(ZELCustom::font(kFontPx));
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setFixedHeight(kHeadHeight);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    new ZELTouchScrolling(this);
}

void ThemedTable::setShares(const QVector<int>& shares)
{
    m_shares = shares;
    fitColumns();
}

void ThemedTable::fitColumns()
{
    const int all = std::accumulate(m_shares.begin(), m_shares.end(), 0);
    int left = viewport()->width();
    for (int column = 0; column < m_shares.size(); ++column) {
        const bool isLast = column + 1 == m_shares.size();
        const int width = isLast ? left : viewport()->width() * m_shares.at(column) / all;
        setColumnWidth(column, width);
        left -= width;
    }
}

void ThemedTable::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    fitColumns();
}

// Enter goes to what the row stands for, as a double click does, on every platform.
void ThemedTable::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && currentIndex().isValid())
        emit activated(currentIndex());
    else
        QTableView::keyPressEvent(event);
}
