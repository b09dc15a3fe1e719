// SPDX-License-Identifier: Apache-2.0
#include "lut/LUTLine.h"

#include <QMap>

#include <cmath>

void LUTLine::setRange(int pointCount, int maxValue)
{
    m_nMaxValue = qMax(1, maxValue);
    m_points = LUTTable::expand({}, qBound(1, pointCount, LUTLimits::kMostPoints));
    clearSelection();
}

void LUTLine::replaceBy(const LUTPoints& table)
{
    // What the line shows already keeps its handles where they are.
    if (table == boundedTable())
        return;
    rebuildFrom(table);
    m_points = table;
}

LUTPoints LUTLine::boundedTable() const
{
    LUTPoints table = m_points;
    for (LUTPoint& point : table)
        point.value = boundedValue(point.value);
    return table;
}

int LUTLine::valueAt(int index) const
{
    return m_points.isEmpty() ? 0 : m_points.at(qBound(0, index, m_points.size() - 1)).value;
}

bool LUTLine::addPoint(const QPoint&, const LUTPlot&)
{
    return false;
}

bool LUTLine::removeSelected()
{
    return false;
}

bool LUTLine::selectNeighbour(int step)
{
    const int before = m_nSelected;
    const int from = before == kNone ? (step < 0 ? 0 : -1) : before;
    m_nSelected = static_cast<int>(
        qBound(qint64(0), qint64(from) + step, qint64(qMax(0, selectableCount() - 1))));
    return m_nSelected != before;
}

void LUTLine::clearSelection()
{
    m_nSelected = kNone;
    m_bDragging = false;
}

namespace LUTTable {

int between(const LUTPoint& a, const LUTPoint& b, int index)
{
    if (b.index == a.index)
        return b.value;
    const double rise = (static_cast<double>(b.value) - a.value) / (b.index - a.index);
    return static_cast<int>(std::lround(a.value + rise * (index - a.index)));
}

LUTPoints expand(const LUTPoints& pairs, int pointCount)
{
    LUTPoints table(pointCount);
    for (int i = 0; i < pointCount; ++i)
        table[i].index = i;
    QMap<int, int> values;
    for (const LUTPoint& pair : pairs)
        values.insert(pair.index, pair.value);
    if (values.isEmpty())
        return table;
    auto right = values.cbegin();
    LUTPoint left{right.key(), right.value()};
    for (LUTPoint& point : table) {
        while (right != values.cend() && right.key() < point.index) {
            left = {right.key(), right.value()};
            ++right;
        }
        if (right == values.cend() || right == values.cbegin())
            point.value = right == values.cend() ? left.value : right.value();
        else
            point.value = between(left, {right.key(), right.value()}, point.index);
    }
    return table;
}

} // namespace LUTTable
