// SPDX-License-Identifier: Apache-2.0
#include "lut/LUTSmoothCurve.h"

#include <algorithm>
#include <cmath>

void LUTSmoothCurve::rebuildFrom(const LUTPoints& table)
{
    if (!m_controls.isEmpty() && table == boundedTable())
        clearSelection();
    else
        LUTControlLine::rebuildFrom(table);
}

LUTPoints LUTSmoothCurve::controlsOf(const LUTPoints& table) const
{
    LUTPoints controls;
    const int last = int(table.size()) - 1;
    const int quarter = int(table.size()) / 4;
    for (const int position : {0, quarter - 1, 2 * quarter - 1, 3 * quarter - 1, last}) {
        // A table of few points has fewer control points.
        if (controls.isEmpty() || position > controls.constLast().index)
            controls.append(table.value(position));
    }
    return controls;
}

// Shape ------------------------------------------------------------------------------------------

QPointF LUTSmoothCurve::PointOnSquareBezier(const QPointF& start, const QPointF& control,
                                            const QPointF& end, double t)
{
    const double rest = 1.0 - t;
    return rest * rest * start + 2.0 * t * rest * control + t * t * end;
}

// The harmonic mean of the rises on both sides, level where the direction turns: never more than
// twice the smaller rise, which is what keeps a piece between its end points.
QVector<double> LUTSmoothCurve::slopes() const
{
    const int count = int(m_controls.size());
    QVector<double> rises(count - 1);
    for (int i = 0; i + 1 < count; ++i)
        rises[i] = (static_cast<double>(m_controls.at(i + 1).value) - m_controls.at(i).value) /
                   (m_controls.at(i + 1).index - m_controls.at(i).index);
    QVector<double> result(count);
    for (int i = 1; i + 1 < count; ++i) {
        const double a = rises.at(i - 1);
        const double b = rises.at(i);
        result[i] = a * b > 0.0 ? 2.0 * a * b / (a + b) : 0.0;
    }
    const auto atEnd = [](double rise, double inner) {
        const double wanted = (3.0 * rise - inner) / 2.0;
        return rise >= 0.0 ? qBound(0.0, wanted, 2.0 * rise) : qBound(2.0 * rise, wanted, 0.0);
    };
    result.first() = atEnd(rises.constFirst(), result.at(1));
    result.last() = atEnd(rises.constLast(), result.at(count - 2));
    return result;
}

void LUTSmoothCurve::redraw()
{
    if (m_controls.size() < 3) {
        m_points = LUTTable::expand(m_controls, int(m_points.size()));
        return;
    }
    const QVector<double> slope = slopes();
    for (int i = 0; i + 1 < m_controls.size(); ++i) {
        const QPointF start(m_controls.at(i).index, m_controls.at(i).value);
        const QPointF end(m_controls.at(i + 1).index, m_controls.at(i + 1).value);
        const double quarter = (end.x() - start.x()) / 4.0;
        const QPointF first = start + QPointF(quarter, quarter * slope.at(i));
        const QPointF second = end - QPointF(quarter, quarter * slope.at(i + 1));
        const QPointF middle = (first + second) / 2.0;
        drawPiece(start, first, middle);
        drawPiece(middle, second, end);
    }
}

// The control point stands midway between the ends, so the index grows evenly with t.
void LUTSmoothCurve::drawPiece(const QPointF& start, const QPointF& control, const QPointF& end)
{
    const int last = static_cast<int>(std::floor(end.x()));
    for (int index = static_cast<int>(std::ceil(start.x())); index <= last; ++index) {
        const double t = (index - start.x()) / (end.x() - start.x());
        const double value = PointOnSquareBezier(start, control, end, t).y();
        m_points[index].value = boundedValue(static_cast<int>(std::lround(value)));
    }
}

// Editing ----------------------------------------------------------------------------------------

int LUTSmoothCurve::IsSmoothPointSelected(const QPoint& pixel, const LUTPlot& plot) const
{
    int nearest = kNone;
    double distance = LUTPlot::kGrabPx;
    for (int i = 0; i < m_controls.size(); ++i) {
        const QPointF away = plot.pixelOf(m_controls.at(i)) - pixel;
        const double length = std::hypot(away.x(), away.y());
        if (length <= distance) {
            nearest = i;
            distance = length;
        }
    }
    return nearest;
}

bool LUTSmoothCurve::press(const QPoint& pixel, const LUTPlot& plot)
{
    const int number = IsSmoothPointSelected(pixel, plot);
    if (number == kNone)
        return false;
    take(number);
    return true;
}

bool LUTSmoothCurve::addPoint(const QPoint& pixel, const LUTPlot& plot)
{
    if (!LUTPlot::contains(pixel) || m_controls.size() >= kMostControls ||
        IsSmoothPointSelected(pixel, plot) != kNone)
        return false;
    const LUTPoint added{plot.indexAt(pixel.x()), boundedValue(plot.valueAt(pixel.y()))};
    const auto place =
        std::lower_bound(m_controls.begin(), m_controls.end(), added,
                         [](const LUTPoint& a, const LUTPoint& b) { return a.index < b.index; });
    // One value for an index, and nothing outside the first and the last control point.
    if (place == m_controls.begin() || place == m_controls.end() || place->index == added.index)
        return false;
    insertControl(static_cast<int>(place - m_controls.begin()), added);
    return true;
}

bool LUTSmoothCurve::addBehindSelected()
{
    if (m_controls.size() < 2 || m_controls.size() >= kMostControls)
        return false;
    const int before = qBound(0, m_nSelected, int(m_controls.size()) - 2);
    const int first = m_controls.at(before).index;
    const int index = first + (m_controls.at(before + 1).index - first) / 2;
    if (index == first) // no room
        return false;
    insertControl(before + 1, {index, valueAt(index)});
    return true;
}

void LUTSmoothCurve::insertControl(int number, const LUTPoint& point)
{
    m_nSelected = number;
    m_bDragging = false;
    m_controls.insert(number, point);
    redraw();
}

bool LUTSmoothCurve::removeSelected()
{
    if (m_nSelected <= 0 || m_nSelected >= m_controls.size() - 1)
        return false;
    m_controls.removeAt(m_nSelected);
    clearSelection();
    redraw();
    return true;
}

LUTPoint LUTSmoothCurve::ChangeSmoothPoint(const QPoint& pixel, const LUTPlot& plot) const
{
    return {plot.indexAt(pixel.x()), plot.valueAt(pixel.y())};
}

LUTPoint LUTSmoothCurve::droppedAt(const QPoint& pixel, const LUTPlot& plot) const
{
    return ChangeSmoothPoint(pixel, plot);
}
