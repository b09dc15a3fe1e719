// SPDX-License-Identifier: Apache-2.0
#include "lut/LUTCurve.h"

int LUTCurve::s_nPointCount = LUTLimits::kDefaultPoints;

LUTCurve::LUTCurve()
{
    setRange(s_nPointCount, m_plot.maxValue());
    clear();
}

bool LUTCurve::setType(int type)
{
    if (type == m_nType || !isType(type))
        return false;
    line().clearSelection();
    m_nType = type;
    line().clearSelection();
    return true;
}

void LUTCurve::setRange(int pointCount, int maximumValue)
{
    m_plot.setRange(pointCount, maximumValue);
    s_nPointCount = m_plot.pointCount();
    for (LUTLine* each : m_lines)
        each->setRange(s_nPointCount, maximumValue);
}

void LUTCurve::clear()
{
    m_freeLine.ClearFreePoints();
    const LUTPoints table = m_freeLine.boundedTable();
    m_foldLine.rebuildFrom(table);
    m_smoothCurve.rebuildFrom(table);
}

bool LUTCurve::replaceBy(const LUTPoints& pairs, int type)
{
    if (!isType(type))
        return false;
    LUTLine* target = m_lines[type];
    target->replaceBy(LUTTable::expand(pairs, target->pointCount()));
    return true;
}

void LUTCurve::showTable(const LUTPoints& table, int maximumValue, float xScale, float yScale)
{
    const int points = int(table.size());
    if (s_nPointCount != points || m_plot.pointCount() != points ||
        m_plot.maxValue() != maximumValue)
        setRange(points, maximumValue);
    m_plot.setScales(xScale, yScale);
    // The fold line goes back to its five places, wherever the user had moved its points.
    for (LUTLine* each : m_lines)
        each->rebuildFrom(table);
}
