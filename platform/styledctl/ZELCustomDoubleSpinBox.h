// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/ZELCustomLook.h"

#include <QDoubleSpinBox>

// Styled spin box for floating point numbers, in the C locale. Typing emits valueChanged once, on
// Enter or focus loss. The mouse wheel works only with the keyboard focus.
class STYLEDCTL_EXPORT ZELCustomDoubleSpinBox : public QDoubleSpinBox, public ZELCustomLook
{
    Q_OBJECT
public:
    enum StyleSelector { Style_Default = 0, Style_Panel = 1, Style_Cell = 2 };

    explicit ZELCustomDoubleSpinBox(QWidget* parent = nullptr, StyleSelector style = Style_Default);

    using QDoubleSpinBox::lineEdit;

protected:
    void wheelEvent(QWheelEvent* event) override;
};
