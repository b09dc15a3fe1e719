// SPDX-License-Identifier: Apache-2.0
#include "lut/LUTFreeLine.h"

namespace {

constexpr int kClearedSlope = 4;

} // namespace

void LUTFreeLine::rebuildFrom(const LUTPoints& table)
{
    clearSelection();
    m_points = table;
}

void LUTFreeLine::ClearFreePoints()
{
    clearSelection();
    for (int i = 0; i < m_points.size(); ++i)
        m_points[i] = {i, kClearedSlope * i};
}

int LUTFreeLine::ChangedFreePoint(const QPoint& pixel, const LUTPlot& plot)
{
    const QPoint inside = LUTPlot::bounded(pixel);
    const int index = qBound(0, plot.indexAt(inside.x()), int(m_points.size()) - 1);
    m_points[index].value = boundedValue(plot.valueAt(inside.y()));
    return index;
}

bool LUTFreeLine::press(const QPoint& pixel, const LUTPlot& plot)
{
    if (!LUTPlot::contains(pixel))
        return false;
    m_nSelected = ChangedFreePoint(pixel, plot);
    m_bDragging = true;
    return true;
}

bool LUTFreeLine::drag(const QPoint& pixel, const LUTPlot& plot)
{
    if (!m_bDragging)
        return false;
    const LUTPoint from = m_points.at(m_nSelected);
    m_nSelected = ChangedFreePoint(pixel, plot);
    const LUTPoint to = m_points.at(m_nSelected);
    const int step = to.index < from.index ? -1 : 1;
    for (int i = from.index; i != to.index; i += step)
        m_points[i].value = LUTTable::between(from, to, i);
    return true;
}

bool LUTFreeLine::release(const QPoint&, const LUTPlot&)
{
    const bool drew = m_bDragging;
    m_bDragging = false;
    return drew;
}

bool LUTFreeLine::moveSelected(int indexStep, int valueStep)
{
    if (m_nSelected == kNone || indexStep != 0)
        return selectNeighbour(m_nSelected == kNone ? 1 : indexStep);
    LUTPoint& point = m_points[m_nSelected];
    const int before = point.value;
    point.value =
        static_cast<int>(qBound(qint64(0), qint64(before) + valueStep, qint64(m_nMaxValue)));
    return point.value != before;
}
