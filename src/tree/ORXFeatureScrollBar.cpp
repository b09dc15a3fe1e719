// SPDX-License-Identifier: Apache-2.0
#include "tree/ORXFeatureScrollBar.h"

#include <QMouseEvent>

ORXFeatureScrollBar::ORXFeatureScrollBar(QWidget* parent)
    : QScrollBar(Qt::Vertical, parent)
{
}

void ORXFeatureScrollBar::mousePressEvent(QMouseEvent* event)
{
    QScrollBar::mousePressEvent(event);
    event->ignore();
}

void ORXFeatureScrollBar::mouseMoveEvent(QMouseEvent* event)
{
    QScrollBar::mouseMoveEvent(event);
    event->ignore();
}

void ORXFeatureScrollBar::mouseReleaseEvent(QMouseEvent* event)
{
    QScrollBar::mouseReleaseEvent(event);
    event->ignore();
}
