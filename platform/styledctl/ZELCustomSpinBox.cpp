// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomSpinBox.h"

#include "styledctl/private/ZELSpinEdit.h"

#include <QWheelEvent>

ZELCustomSpinBox::ZELCustomSpinBox(QWidget* parent, StyleSelector style)
    : QSpinBox(parent)
    , ZELCustomLook(this, style)
{
    ZELSpinEdit::prepare(this, lineEdit());
}

void ZELCustomSpinBox::stepBy(int steps)
{
    const int before = value();
    QSpinBox::stepBy(steps);
    if (value() != before)
        emit SigSaveParam();
}

void ZELCustomSpinBox::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QSpinBox::wheelEvent(event);
    else
        event->ignore();
}
