// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomDoubleSpinBox.h"

#include "styledctl/private/ZELSpinEdit.h"

#include <QWheelEvent>

ZELCustomDoubleSpinBox::ZELCustomDoubleSpinBox(QWidget* parent, StyleSelector style)
    : QDoubleSpinBox(parent)
    , ZELCustomLook(this, style)
{
    ZELSpinEdit::prepare(this, lineEdit());
}

void ZELCustomDoubleSpinBox::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QDoubleSpinBox::wheelEvent(event);
    else
        event->ignore();
}
