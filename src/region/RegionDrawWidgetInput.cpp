// SPDX-License-Identifier: Apache-2.0
// What RegionDrawWidget does about mouse and keyboard.
#include "region/RegionDrawWidget.h"
#include "region/RegionGeometry.h"

#include <QKeyEvent>
#include <QMap>
#include <QMouseEvent>

#include <cmath>

namespace {

constexpr double kGrabPx = 7.0; // how far from an edge it can be grabbed

qint64 rounded(double value)
{
    return static_cast<qint64>(std::floor(value + 0.5));
}

} // namespace

int RegionDrawWidget::sidesAt(const QPointF& position) const
{
    const RegionArea* area = edited();
    if (!area)
        return NoSide;
    const QRectF rect = toWidget(area->current());
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

RegionArea::Target RegionDrawWidget::targetAt(const QPointF& position) const
{
    const RegionArea* area = edited();
    RegionArea::Target target = area->current();
    const QPointF way = (position - m_pressed) / place().scale();
    if (m_sides == AllSides)
        return {area->x().moved(target.x.offset + rounded(way.x())),
                area->y().moved(target.y.offset + rounded(way.y()))};
    if (m_sides & Left)
        target.x = area->x().withBegin(target.x.offset + rounded(way.x()));
    if (m_sides & Right)
        target.x = area->x().withEnd(target.x.end() + rounded(way.x()));
    if (m_sides & Top)
        target.y = area->y().withBegin(target.y.offset + rounded(way.y()));
    if (m_sides & Bottom)
        target.y = area->y().withEnd(target.y.end() + rounded(way.y()));
    return target;
}

void RegionDrawWidget::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || m_target)
        return;
    m_sides = sidesAt(event->localPos());
    if (m_sides == NoSide)
        return;
    m_pressed = event->localPos();
    m_target = edited()->current();
    update();
}

void RegionDrawWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (m_sides == NoSide || !m_target) {
        showCursor(event->localPos());
        return;
    }
    m_target = targetAt(event->localPos());
    update();
}

void RegionDrawWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || m_sides == NoSide)
        return;
    if (m_target)
        m_target = targetAt(event->localPos());
    m_sides = NoSide;
    finishEdit();
}

void RegionDrawWidget::showCursor(const QPointF& position)
{
    static const QMap<int, Qt::CursorShape> kShapes = {{AllSides, Qt::SizeAllCursor},
                                                       {Left, Qt::SizeHorCursor},
                                                       {Right, Qt::SizeHorCursor},
                                                       {Top, Qt::SizeVerCursor},
                                                       {Bottom, Qt::SizeVerCursor},
                                                       {Left | Top, Qt::SizeFDiagCursor},
                                                       {Right | Bottom, Qt::SizeFDiagCursor},
                                                       {Right | Top, Qt::SizeBDiagCursor},
                                                       {Left | Bottom, Qt::SizeBDiagCursor}};
    setCursor(kShapes.value(sidesAt(position), Qt::ArrowCursor));
}

void RegionDrawWidget::keyPressEvent(QKeyEvent* event)
{
    static const QMap<int, QPoint> kSteps = {{Qt::Key_Left, {-1, 0}},
                                             {Qt::Key_Right, {1, 0}},
                                             {Qt::Key_Up, {0, -1}},
                                             {Qt::Key_Down, {0, 1}}};
    const RegionArea* area = edited();
    if (event->key() == Qt::Key_Escape && m_target) {
        cancelEdit();
        return;
    }
    const QPoint step = kSteps.value(event->key());
    if (!area || step.isNull() || m_sides != NoSide) {
        QWidget::keyPressEvent(event);
        return;
    }
    const RegionArea::Target from = m_target.value_or(area->current());
    const RegionAxis x(area->x().limits(), from.x);
    const RegionAxis y(area->y().limits(), from.y);
    RegionArea::Target target = from;
    if (event->modifiers() & Qt::ShiftModifier) {
        if (step.x() != 0)
            target.x = x.withEnd(from.x.end() + step.x() * x.limits().sizeIncrement);
        if (step.y() != 0)
            target.y = y.withEnd(from.y.end() + step.y() * y.limits().sizeIncrement);
    } else {
        if (step.x() != 0)
            target.x = x.moved(from.x.offset + step.x() * x.limits().offsetIncrement);
        if (step.y() != 0)
            target.y = y.moved(from.y.offset + step.y() * y.limits().offsetIncrement);
    }
    m_byKeys = true;
    m_target = target;
    update();
}

// A held key repeats; the camera hears of the last step only.
void RegionDrawWidget::keyReleaseEvent(QKeyEvent* event)
{
    if (event->isAutoRepeat() || !m_byKeys)
        QWidget::keyReleaseEvent(event);
    else
        finishEdit();
}

void RegionDrawWidget::focusOutEvent(QFocusEvent* event)
{
    if (m_byKeys)
        finishEdit();
    QWidget::focusOutEvent(event);
    update();
}

void RegionDrawWidget::finishEdit()
{
    const RegionArea* area = edited();
    const std::optional<RegionArea::Target> target = m_target;
    m_target.reset();
    m_byKeys = false;
    update();
    if (area && target && !area->writesTo(*target).isEmpty())
        emit SigEdited(*target);
}

void RegionDrawWidget::cancelEdit()
{
    m_target.reset();
    m_byKeys = false;
    m_sides = NoSide;
    update();
}
