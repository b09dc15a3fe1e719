// SPDX-License-Identifier: Apache-2.0
#include "region/RegionEdit.h"

#include <cmath>

namespace {

constexpr double kGrabPx = 7.0; // how far from an edge it can be grabbed

qint64 rounded(double value)
{
    return static_cast<qint64>(std::floor(value + 0.5));
}

} // namespace

int RegionEdit::sidesAt(const QPointF& position, const QRectF& rect)
{
    if (!rect.adjusted(-kGrabPx, -kGrabPx, kGrabPx, kGrabPx).contains(position))
        return NoSide;
    // In a small region there must be a middle left to move it by.
    const double grabX = qMin(kGrabPx, rect.width() / 4);
    const double grabY = qMin(kGrabPx, rect.height() / 4);
    int sides = NoSide;
    if (position.x() <= rect.left() + grabX)
        sides |= Left;
    else if (position.x() >= rect.right() - grabX)
        sides |= Right;
    if (position.y() <= rect.top() + grabY)
        sides |= Top;
    else if (position.y() >= rect.bottom() - grabY)
        sides |= Bottom;
    return sides == NoSide ? AllSides : sides;
}

void RegionEdit::press(int sides, const QPointF& position, const RegionArea& area)
{
    m_sides = sides;
    m_pressed = position;
    m_target = area.current();
}

void RegionEdit::drag(const QPointF& position, double scale, const RegionArea& area)
{
    RegionArea::Target target = area.current();
    const QPointF way = (position - m_pressed) / scale;
    if (m_sides == AllSides) {
        target.x = area.x().moved(target.x.offset + rounded(way.x()));
        target.y = area.y().moved(target.y.offset + rounded(way.y()));
    } else {
        if (m_sides & Left)
            target.x = area.x().withBegin(target.x.offset + rounded(way.x()));
        if (m_sides & Right)
            target.x = area.x().withEnd(target.x.end() + rounded(way.x()));
        if (m_sides & Top)
            target.y = area.y().withBegin(target.y.offset + rounded(way.y()));
        if (m_sides & Bottom)
            target.y = area.y().withEnd(target.y.end() + rounded(way.y()));
    }
    m_target = target;
}

void RegionEdit::step(const QPoint& step, bool resize, const RegionArea& area)
{
    RegionArea::Target target = m_target.value_or(area.current());
    const auto stepped = [resize](const RegionAxis& now, const RegionAxis::Span& from, int steps) {
        const RegionAxis axis(now.limits(), from);
        return resize ? axis.withEnd(from.end() + steps * axis.limits().sizeIncrement)
                      : axis.moved(from.offset + steps * axis.limits().offsetIncrement);
    };
    if (step.x() != 0)
        target.x = stepped(area.x(), target.x, step.x());
    if (step.y() != 0)
        target.y = stepped(area.y(), target.y, step.y());
    m_byKeys = true;
    m_target = target;
}
