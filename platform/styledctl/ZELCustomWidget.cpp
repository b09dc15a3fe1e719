// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomWidget.h"

#include "styledctl/private/ZELBox.h"

#include <QPainter>

ZELCustomWidget::ZELCustomWidget(QWidget* parent)
    : QWidget(parent)
    , ZELCustomLook(this, 0)
{
    setAttribute(Qt::WA_Hover, false);
}

ZELBox ZELCustomWidget::box() const
{
    ZELBox box;
    box.fill = cBackground();
    box.border = cBorderColor();
    box.borderWidth = qMax(0, cBorderWidth() < 0 ? 1 : cBorderWidth());
    box.radius = qMax(0, cBorderRadius());
    return box;
}

void ZELCustomWidget::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);
    QPainter painter(this);
    const ZELBox box = this->box();
    if (box.coversAll()) // to the last pixel, at every scale
        painter.fillRect(rect(), box.fill);
    else
        box.paint(&painter, rect());
}

// Containers stand one in the other: what the inner one covers, the outer ones need not paint.
void ZELCustomWidget::cRedraw()
{
    setAttribute(Qt::WA_OpaquePaintEvent, box().coversAll());
    ZELCustomLook::cRedraw();
}
