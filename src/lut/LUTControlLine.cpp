// SPDX-License-Identifier: Apache-2.0
#include "lut/LUTControlLine.h"

void LUTControlLine::setRange(int pointCount, int maxValue)
{
    LUTLine::setRange(pointCount, maxValue);
    m_controls.clear();
    rebuildFrom(boundedTable());
}

void LUTControlLine::rebuildFrom(const LUTPoints& table)
{
    clearSelection();
    m_controls = controlsOf(table);
    for (LUTPoint& control : m_controls)
        control.value = boundedValue(control.value);
    redraw();
}

void LUTControlLine::take(int number)
{
    m_nSelected = number;
    m_bDragging = true;
    m_pressPoint = m_controls.at(number);
}

void LUTControlLine::place(int number, const LUTPoint& point)
{
    m_controls[number] = {allowedIndex(number, point.index), boundedValue(point.value)};
    redraw();
}

int LUTControlLine::allowedIndex(int number, int wanted) const
{
    const int present = m_controls.at(number).index;
    if (number <= 0 || number >= m_controls.size() - 1)
        return present;
    const int lowest = m_controls.at(number - 1).index + 1;
    const int highest = m_controls.at(number + 1).index - 1;
    return lowest > highest ? present : qBound(lowest, wanted, highest);
}

// The outer points stand on the plot's edges and only their value changes: the few pixels beside
// the plot where they can be taken count for them as inside.
bool LUTControlLine::takesDrop(const QPoint& pixel) const
{
    const bool outer = m_nSelected == 0 || m_nSelected == m_controls.size() - 1;
    const bool beside = outer && pixel.x() >= -LUTPlot::kBesidePx &&
                        pixel.x() <= LUTPlot::kSizePx + LUTPlot::kBesidePx;
    return LUTPlot::contains(beside ? QPoint(0, pixel.y()) : pixel);
}

bool LUTControlLine::drag(const QPoint& pixel, const LUTPlot& plot)
{
    if (!m_bDragging)
        return false;
    place(m_nSelected, takesDrop(pixel) ? droppedAt(pixel, plot) : m_pressPoint);
    return true;
}

bool LUTControlLine::release(const QPoint& pixel, const LUTPlot& plot)
{
    const bool held = drag(pixel, plot);
    m_bDragging = false;
    return held;
}

bool LUTControlLine::moveSelected(int indexStep, int valueStep)
{
    if (m_nSelected == kNone)
        return selectNeighbour(1);
    const LUTPoint before = m_controls.at(m_nSelected);
    const qint64 value = qint64(before.value) + valueStep;
    place(m_nSelected, {before.index + indexStep,
                        static_cast<int>(qBound(qint64(0), value, qint64(m_nMaxValue)))});
    return m_controls.at(m_nSelected) != before;
}
