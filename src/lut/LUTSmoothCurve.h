// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lut/LUTControlLine.h"

#include <QPointF>

// The smooth curve: it passes through its control points in quadratic Bézier pieces, two between
// neighbours, joined without a kink. Between two points it never leaves their values, so it has
// neither loops nor overshoot. Owned by LUTCurve, GUI thread.
class LUTSmoothCurve : public LUTControlLine
{
public:
    static constexpr int kMostControls = 32;

    // A table that the curve shows already keeps the control points that the user added.
    void rebuildFrom(const LUTPoints& table) override;

    bool press(const QPoint& pixel, const LUTPlot& plot) override;
    // A new control point at the position, unless one is near or there are kMostControls.
    bool addPoint(const QPoint& pixel, const LUTPlot& plot) override;
    // The same, for the keyboard; before the last point where that one is selected.
    bool addBehindSelected() override;
    // The first and the last control point stay.
    bool removeSelected() override;

    // Number of the control point at a pixel, kNone when there is none.
    int IsSmoothPointSelected(const QPoint& pixel, const LUTPlot& plot) const;
    // What a control point becomes that is moved to the pixel.
    LUTPoint ChangeSmoothPoint(const QPoint& pixel, const LUTPlot& plot) const;
    // Point at `t` (0 to 1) of the quadratic Bézier curve.
    static QPointF PointOnSquareBezier(const QPointF& start, const QPointF& control,
                                       const QPointF& end, double t);

protected:
    LUTPoints controlsOf(const LUTPoints& table) const override;
    void redraw() override;
    LUTPoint droppedAt(const QPoint& pixel, const LUTPlot& plot) const override;

private:
    void insertControl(int number, const LUTPoint& point);
    QVector<double> slopes() const;
    void drawPiece(const QPointF& start, const QPointF& control, const QPointF& end);
};
