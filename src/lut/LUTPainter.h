// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lut/LUTPoint.h"

#include <QString>

class LUTLine;
class LUTPlot;
class QPainter;
class QRect;

// Paints the curve editor: background with grid, numbers and captions, the line with its handles,
// and how far a transfer has come. Free of state; GUI thread.
class LUTPainter
{
public:
    static constexpr int kWidthPx = 300;
    static constexpr int kHeightPx = 314;

    struct Texts
    {
        QString index;
        QString value;
    };

    LUTPainter(QPainter& painter, const LUTPlot& plot);

    void InitBackground(const QRect& area, const Texts& texts);
    void drawDynamicLine(const LUTLine& line);
    // The handles that the line can be taken by; the selected one is filled when `focus` is set.
    void drawHandles(const LUTLine& line, bool focus);
    void drawFocusFrame();
    // `done` of `total` points, total above 0.
    void drawProgress(const QString& text, int done, int total);

private:
    void drawGrid();
    void drawIndexNumbers();
    void drawValueNumbers();

    QPainter& m_painter;   // Not owned.
    const LUTPlot& m_plot; // Not owned.
};
