// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lut/LUTPlot.h"
#include "lut/LUTPoint.h"

#include <QPoint>

// One way of drawing a look-up table: a whole table of points and the rules by which mouse and
// keyboard change it. Knows neither widgets nor the camera; owned by LUTCurve, GUI thread.
//
// Pixels are those of the plot. Operations that return a bool tell whether the line or its
// selection changed and must be drawn again.
class LUTLine
{
public:
    static constexpr int kNone = -1;

    virtual ~LUTLine() = default;

    // A new table of this many points, all zero; values are bounded to 0 ... maxValue.
    virtual void setRange(int pointCount, int maxValue);
    // The line that the kind of line makes of a table, which must have as many points.
    virtual void rebuildFrom(const LUTPoints& table) = 0;
    // The table itself, exactly, until the next edit.
    void replaceBy(const LUTPoints& table);

    // One point for each index, in order, each value within the range.
    LUTPoints boundedTable() const;
    // The value drawn at an index; the index is bounded.
    int valueAt(int index) const;
    int pointCount() const { return int(m_points.size()); }

    virtual bool press(const QPoint& pixel, const LUTPlot& plot) = 0;
    virtual bool drag(const QPoint& pixel, const LUTPlot& plot) = 0;
    virtual bool release(const QPoint& pixel, const LUTPlot& plot) = 0;
    virtual bool addPoint(const QPoint& pixel, const LUTPlot& plot);
    // Halfway from the selected point to the next one, where the line is already.
    virtual bool addBehindSelected() { return false; }
    virtual bool removeSelected();
    // Steps of index and value; without a selection the first point becomes selected instead.
    virtual bool moveSelected(int indexStep, int valueStep) = 0;
    // Selects the point that many places on; bounded at both ends.
    bool selectNeighbour(int step);

    // What can be taken hold of; empty when the line has no handles.
    virtual LUTPoints handles() const { return {}; }
    // Number of the handle (or index) that the keyboard moves, kNone without one.
    int selected() const { return m_nSelected; }
    // The selected point itself; only with a selection.
    virtual LUTPoint selectedPoint() const = 0;
    bool isDragging() const { return m_bDragging; }
    void clearSelection();

protected:
    virtual int selectableCount() const = 0;
    int boundedValue(int value) const { return qBound(0, value, m_nMaxValue); }

    LUTPoints m_points; // m_points[i].index is i
    int m_nMaxValue = LUTLimits::kDefaultMaxValue;
    int m_nSelected = kNone;
    bool m_bDragging = false;
};

namespace LUTTable {
// Makes a whole table of pairs in any order: straight between neighbours, level beyond the first
// and the last; of two pairs with one index the later counts. Without pairs all values are zero.
LUTPoints expand(const LUTPoints& pairs, int pointCount);
// The value of a straight line from `a` to `b` at an index between them, rounded.
int between(const LUTPoint& a, const LUTPoint& b, int index);
} // namespace LUTTable
