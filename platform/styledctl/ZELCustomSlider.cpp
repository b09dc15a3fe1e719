// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomSlider.h"

#include <QWheelEvent>

ZELCustomSlider::ZELCustomSlider(QWidget* parent)
    : ZELCustomSlider(Qt::Vertical, parent)
{
}

ZELCustomSlider::ZELCustomSlider(Qt::Orientation orientation, QWidget* parent)
    : QSlider(orientation, parent)
    , ZELCustomLook(this, 0)
{
    setFocusPolicy(Qt::StrongFocus);
}

void ZELCustomSlider::wheelEvent(QWheelEvent* event)
{
    if (!hasFocus()) {
        event->ignore();
        return;
    }
    const int before = value();
    QSlider::wheelEvent(event);
    if (value() != before)
        emit SigSaveParam();
}

void ZELCustomSlider::keyPressEvent(QKeyEvent* event)
{
    const int before = value();
    QSlider::keyPressEvent(event);
    if (value() != before)
        emit SigSaveParam();
}
