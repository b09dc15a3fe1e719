// SPDX-License-Identifier: Apache-2.0
// What QLUTDrawWidget does about mouse, wheel and keyboard.
#include "lut/QLUTDrawWidget.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <QWheelEvent>

namespace {

constexpr int kLargeStep = 10; // with Shift
const QPoint kOffset(LUTPlot::kOffsetPx, LUTPlot::kOffsetPx);

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

void QLUTDrawWidget::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || m_bTransferring)
        return;
    if (line().press(event->pos() - kOffset, m_plot))
        update();
}

void QLUTDrawWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (!line().drag(event->pos() - kOffset, m_plot))
        return;
    update();
    showReading(event->pos());
}

void QLUTDrawWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && line().release(event->pos() - kOffset, m_plot))
        update();
}

void QLUTDrawWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || m_bTransferring)
        return;
    // The second press of a quick pair of presses, unless it makes a point.
    if (!line().addPoint(event->pos() - kOffset, m_plot))
        mousePressEvent(event);
    update();
}

// The wheel scrolls the page; it never changes the curve.
void QLUTDrawWidget::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

void QLUTDrawWidget::keyPressEvent(QKeyEvent* event)
{
    const int step = event->modifiers().testFlag(Qt::ShiftModifier) ? kLargeStep : 1;
    if (!editKey(event->key(), step))
        QWidget::keyPressEvent(event);
}

// True when the key belongs to the editor, whether or not it could do anything.
bool QLUTDrawWidget::editKey(int key, int step)
{
    if (m_bTransferring || line().isDragging())
        return false;
    bool mine = true;
    switch (key) {
    case Qt::Key_PageUp:
        line().selectNeighbour(-step);
        break;
    case Qt::Key_PageDown:
        line().selectNeighbour(step);
        break;
    case Qt::Key_Home:
        line().selectNeighbour(-s_nPointCount);
        break;
    case Qt::Key_End:
        line().selectNeighbour(s_nPointCount);
        break;
    case Qt::Key_Delete:
        line().removeSelected();
        break;
    default:
        mine = false;
        for (const KeyStep& arrow : kArrows) {
            if (arrow.key != key)
                continue;
            line().moveSelected(arrow.index * step, arrow.value * step);
            mine = true;
        }
    }
    if (mine)
        update();
    return mine;
}

void QLUTDrawWidget::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void QLUTDrawWidget::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}

bool QLUTDrawWidget::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    showReading(static_cast<QHelpEvent*>(event)->pos());
    return true;
}

void QLUTDrawWidget::showReading(const QPoint& position)
{
    const QPoint pixel = position - kOffset;
    if (!LUTPlot::contains(pixel)) {
        QToolTip::hideText();
        return;
    }
    const int index = qMin(m_plot.indexAt(pixel.x()), s_nPointCount - 1);
    QToolTip::showText(mapToGlobal(position),
                       tr("Index: %1\nValue: %2").arg(index).arg(m_plot.valueAt(pixel.y())), this);
}
