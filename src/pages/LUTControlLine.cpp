// SPDX-License-Identifier: Apache-2.0
#include "pages/LUTControlLine.h"

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

bool LUTControlLine::drag(const QPoint& pixel, const LUTPlot& plot)
{
    if (!m_bDragging)
        return false;
    place(m_nSelected, LUTPlot::contains(pixel) ? droppedAt(pixel, plot) : m_pressPoint);
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
    place(m_nSelected,
          {before.index + indexStep, static_cast<int>(qBound<qint64>(0, value, m_nMaxValue))});
    return m_controls.at(m_nSelected) != before;
}
