// SPDX-License-Identifier: Apache-2.0
#include "lut/LUTKeys.h"

#include "lut/LUTLine.h"

#include <QKeyEvent>

namespace LUTKeys {

namespace {

constexpr int kLargeStep = 10; // with Shift

struct KeyStep
{
    int key;
    int index;
    int value;
};
constexpr KeyStep kArrows[] = {
    {Qt::Key_Left, -1, 0},
    {Qt::Key_Right, 1, 0},
    {Qt::Key_Up, 0, 1},
    {Qt::Key_Down, 0, -1},
};

} // namespace

bool press(LUTLine& line, const QKeyEvent& event)
{
    const int step = event.modifiers().testFlag(Qt::ShiftModifier) ? kLargeStep : 1;
    switch (event.key()) {
    case Qt::Key_PageUp:
        line.selectNeighbour(-step);
        return true;
    case Qt::Key_PageDown:
        line.selectNeighbour(step);
        return true;
    case Qt::Key_Home:
        line.selectNeighbour(-line.pointCount());
        return true;
    case Qt::Key_End:
        line.selectNeighbour(line.pointCount());
        return true;
    case Qt::Key_Insert:
        line.addBehindSelected();
        return true;
    case Qt::Key_Delete:
        line.removeSelected();
        return true;
    default:
        break;
    }
    for (const KeyStep& arrow : kArrows) {
        if (arrow.key != event.key())
            continue;
        line.moveSelected(arrow.index * step, arrow.value * step);
        return true;
    }
    return false;
}

} // namespace LUTKeys
