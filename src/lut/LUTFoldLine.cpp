// SPDX-License-Identifier: Apache-2.0
#include "lut/LUTFoldLine.h"

namespace {

constexpr int kFirst = 0;
constexpr int kLast = 4;
// A press farther right than this takes no point.
constexpr int kRightmostPressPx = LUTPlot::kSizePx + LUTPlot::kBesidePx;

} // namespace

LUTPoints LUTFoldLine::GetFlodLineVector(const LUTPoints& table)
{
    const int quarter = int(table.size()) / 4;
    LUTPoints points;
    for (const int position : {0, quarter - 1, 2 * quarter - 1, 3 * quarter - 1, 4 * quarter - 1})
        points.append(table.value(qMax(0, position)));
    return points;
}

LUTPoints LUTFoldLine::controlsOf(const LUTPoints& table) const
{
    return GetFlodLineVector(table);
}

void LUTFoldLine::redraw()
{
    m_points = LUTTable::expand(m_controls, int(m_points.size()));
}

bool LUTFoldLine::press(const QPoint& pixel, const LUTPlot& plot)
{
    if (pixel.x() > kRightmostPressPx || m_controls.isEmpty())
        return false;
    if (pixel.x() < 1)
        return pressEnd(kFirst, pixel.y(), plot);
    if (pixel.x() >= LUTPlot::kSizePx)
        return pressEnd(kLast, pixel.y(), plot);
    const int index = plot.indexAt(pixel.x());
    const int value = valueAt(index);
    const int number = innerPointFor(index);
    if (number == kNone || !plot.isNearRow(pixel.y(), value))
        return false;
    place(number, {index, value});
    take(number);
    return true;
}

bool LUTFoldLine::pressEnd(int number, int y, const LUTPlot& plot)
{
    if (!plot.isNearRow(y, m_controls.at(number).value))
        return false;
    take(number);
    return true;
}

int LUTFoldLine::innerPointFor(int index) const
{
    const auto middle = [this](int a, int b) {
        return (m_controls.at(a).index + m_controls.at(b).index) / 2.0;
    };
    if (index < middle(1, 2))
        return 1;
    if (index < middle(2, 3))
        return 2;
    return index >= m_points.size() - 1 ? kNone : 3;
}

LUTPoint LUTFoldLine::droppedAt(const QPoint& pixel, const LUTPlot& plot) const
{
    // The index was settled by the press; a drop changes the value only.
    return {m_controls.at(m_nSelected).index, plot.valueAt(pixel.y())};
}
