// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lut/LUTPoint.h"

#include <QPoint>
#include <QPointF>

// Geometry of the curve's plot: a square of 240 pixels that shows a rectangle of indexes and
// values. All pixels here are device-independent and relative to the plot's left upper corner. A
// plain value, any thread.
class LUTPlot
{
public:
    static constexpr int kSizePx = 240;
    // Of the plot in the widget.
    static constexpr int kOffsetPx = 30;
    // How far from a point or line a press still takes hold of it.
    static constexpr int kGrabPx = 9;
    // How far beside the plot a point on its edge can still be taken.
    static constexpr int kBesidePx = 10;

    // Both at least 1; the scales are 239 pixels for each of them.
    void setRange(int pointCount, int maxValue);
    // Pixels for each index and value, as the camera's limits gave them.
    void setScales(float xScale, float yScale);

    int pointCount() const { return m_nRight; }
    int maxValue() const { return m_nTop; }

    // The whole plot, edges included.
    static bool contains(const QPoint& pixel);
    static QPoint bounded(const QPoint& pixel);

    // Index under a pixel column: negative or beyond the table when the pixel lies outside.
    int indexAt(int x) const;
    // Value under a pixel row, bounded to the plot's values.
    int valueAt(int y) const;
    double pixelX(int index) const { return (index - m_nLeft) * static_cast<double>(m_fXScale); }
    double pixelY(int value) const { return (m_nTop - value) * static_cast<double>(m_fYScale); }
    QPointF pixelOf(const LUTPoint& point) const;
    bool isNearRow(int y, int value) const;
    // Index of the sample `k` (0 to 239) of a line drawn across the plot.
    int sampleIndex(int k) const;

private:
    // The rectangle; the right edge is the number of points, one more than the last index.
    int m_nLeft = 0;
    int m_nTop = LUTLimits::kDefaultMaxValue;
    int m_nRight = LUTLimits::kDefaultPoints;
    int m_nBottom = 0;
    float m_fXScale = (kSizePx - 1.0F) / (LUTLimits::kDefaultPoints - 1);
    float m_fYScale = (kSizePx - 1.0F) / LUTLimits::kDefaultMaxValue;
};
