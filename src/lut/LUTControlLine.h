// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lut/LUTLine.h"

// A line that runs through a few control points, which are what the user moves. The control points
// stand in order of their indexes. Owned by LUTCurve, GUI thread.
class LUTControlLine : public LUTLine
{
public:
    void setRange(int pointCount, int maxValue) override;
    void rebuildFrom(const LUTPoints& table) override;

    bool drag(const QPoint& pixel, const LUTPlot& plot) override;
    // Inside the plot the held point takes the position, outside it goes back to where it was
    // taken.
    bool release(const QPoint& pixel, const LUTPlot& plot) override;
    bool moveSelected(int indexStep, int valueStep) override;

    LUTPoints handles() const override { return m_controls; }
    LUTPoint selectedPoint() const override { return m_controls.value(m_nSelected); }

protected:
    int selectableCount() const override { return int(m_controls.size()); }

    // The control points that stand for a table.
    virtual LUTPoints controlsOf(const LUTPoints& table) const = 0;
    // Fills m_points from m_controls.
    virtual void redraw() = 0;
    // Where the held point would go.
    virtual LUTPoint droppedAt(const QPoint& pixel, const LUTPlot& plot) const = 0;

    // Takes hold of a control point where it is now.
    void take(int number);
    void place(int number, const LUTPoint& point);
    // The index nearest to the wanted one that keeps the point between its neighbours; the first
    // and the last point keep theirs.
    int allowedIndex(int number, int wanted) const;

    LUTPoints m_controls;

private:
    bool takesDrop(const QPoint& pixel) const;

    LUTPoint m_pressPoint; // of the held point when it was taken
};
