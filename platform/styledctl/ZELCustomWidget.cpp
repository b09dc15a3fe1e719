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

void ZELCustomWidget::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);
    ZELBox box;
    box.fill = cBackground();
    box.border = cBorderColor();
    box.borderWidth = qMax(0, cBorderWidth() < 0 ? 1 : cBorderWidth());
    box.radius = qMax(0, cBorderRadius());
    QPainter painter(this);
    box.paint(&painter, rect());
}
