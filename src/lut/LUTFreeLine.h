// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lut/LUTLine.h"

// The free line: each point of the table by itself, drawn by hand. What the mouse skips between two
// samples is filled by a straight line. Owned by LUTCurve, GUI thread.
class LUTFreeLine : public LUTLine
{
public:
    void rebuildFrom(const LUTPoints& table) override;

    // A straight line: index i has the value 4 i, even where the camera's values end earlier;
    // boundedTable() keeps within them.
    void ClearFreePoints();
    // Sets the point under the pixel, which is bounded to the plot, and returns its index.
    int ChangedFreePoint(const QPoint& pixel, const LUTPlot& plot);

    bool press(const QPoint& pixel, const LUTPlot& plot) override;
    bool drag(const QPoint& pixel, const LUTPlot& plot) override;
    bool release(const QPoint& pixel, const LUTPlot& plot) override;
    // Every index has its own point, so a step of index selects another one.
    bool moveSelected(int indexStep, int valueStep) override;

    LUTPoint selectedPoint() const override { return m_points.value(m_nSelected); }

protected:
    int selectableCount() const override { return int(m_points.size()); }
};
