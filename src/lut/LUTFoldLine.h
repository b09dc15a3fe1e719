// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lut/LUTControlLine.h"

// The fold line: straight pieces between five points. The outer two only change their value; an
// inner one is taken wherever the line is pressed near it. Owned by LUTCurve, GUI thread.
class LUTFoldLine : public LUTControlLine
{
public:
    // The five points that stand for a table: the first, and the last of each quarter.
    static LUTPoints GetFlodLineVector(const LUTPoints& table);

    bool press(const QPoint& pixel, const LUTPlot& plot) override;

protected:
    LUTPoints controlsOf(const LUTPoints& table) const override;
    void redraw() override;
    LUTPoint droppedAt(const QPoint& pixel, const LUTPlot& plot) const override;

private:
    // Number of the inner point that a press at the index moves, kNone when it moves none.
    int innerPointFor(int index) const;
    bool pressEnd(int number, int y, const LUTPlot& plot);
};
