// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lut/LUTFoldLine.h"
#include "lut/LUTFreeLine.h"
#include "lut/LUTPlot.h"
#include "lut/LUTSmoothCurve.h"

// What the curve editor edits: one table as each kind of line shows it, the kind that is shown, and
// the plot that they stand in. Knows neither widgets nor the camera; owned by QLUTDrawWidget, GUI
// thread. A type is a QLUTDrawWidget::DrawLineType.
class LUTCurve
{
public:
    // A straight line.
    LUTCurve();

    // Shows the other kind of line; nothing is selected then. False for an unknown type or the
    // same.
    bool setType(int type);
    int type() const { return m_nType; }
    LUTLine& line() { return *m_lines[m_nType]; }
    const LUTLine& line() const { return *m_lines[m_nType]; }
    const LUTPlot& plot() const { return m_plot; }
    // Points of a table, the same in the whole process: those of the camera that was read last.
    static int pointCount() { return s_nPointCount; }

    // Back to a straight line, in all kinds of line.
    void clear();
    // Makes one line out of pairs; what lies between them is filled in. False for an unknown type.
    bool replaceBy(const LUTPoints& pairs, int type);
    // A whole table of the camera, in all kinds of line. The scales are pixels for each index and
    // value.
    void showTable(const LUTPoints& table, int maximumValue, float xScale, float yScale);

private:
    static bool isType(int type) { return type >= 0 && type < kTypes; }
    void setRange(int pointCount, int maximumValue);

    static constexpr int kTypes = 3;
    static int s_nPointCount; // GUI thread

    LUTPlot m_plot;
    LUTFoldLine m_foldLine;
    LUTSmoothCurve m_smoothCurve;
    LUTFreeLine m_freeLine;
    LUTLine* const m_lines[kTypes] = {&m_foldLine, &m_smoothCurve, &m_freeLine}; // by type
    int m_nType = 0;
};
