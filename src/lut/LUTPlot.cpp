// SPDX-License-Identifier: Apache-2.0
#include "lut/LUTPlot.h"

#include <cmath>

void LUTPlot::setRange(int pointCount, int maxValue)
{
    m_nRight = qBound(1, pointCount, LUTLimits::kMostPoints);
    m_nTop = qMax(1, maxValue);
    m_fXScale = (kSizePx - 1.0F) / static_cast<float>(qMax(1, m_nRight - 1));
    m_fYScale = (kSizePx - 1.0F) / static_cast<float>(m_nTop);
}

void LUTPlot::setScales(float xScale, float yScale)
{
    m_fXScale = xScale;
    m_fYScale = yScale;
}

bool LUTPlot::contains(const QPoint& pixel)
{
    return pixel == bounded(pixel);
}

QPoint LUTPlot::bounded(const QPoint& pixel)
{
    return {qBound(0, pixel.x(), kSizePx), qBound(0, pixel.y(), kSizePx)};
}

int LUTPlot::indexAt(int x) const
{
    const double width = m_nRight - m_nLeft;
    return static_cast<int>(std::floor(m_nLeft + x * (width / kSizePx)));
}

int LUTPlot::valueAt(int y) const
{
    const double height = static_cast<double>(m_nTop) - m_nBottom;
    const double value = m_nTop - qBound(0, y, kSizePx) * (height / kSizePx);
    return static_cast<int>(std::lround(value));
}

QPointF LUTPlot::pixelOf(const LUTPoint& point) const
{
    return {pixelX(point.index), pixelY(point.value)};
}

bool LUTPlot::isNearRow(int y, int value) const
{
    // In whole pixels, as the mouse has them.
    return std::abs(y - std::lround(pixelY(value))) <= kGrabPx;
}

int LUTPlot::sampleIndex(int k) const
{
    const double width = m_nRight - m_nLeft;
    const int index = static_cast<int>(m_nLeft + k * (width / kSizePx));
    return qBound(m_nLeft, index, m_nRight - 1);
}
