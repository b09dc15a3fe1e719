// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/ZELCustomLook.h"

#include <QSpinBox>

// Styled spin box for 32-bit integers. Typing emits valueChanged once, on Enter or focus loss. The
// mouse wheel works only with the keyboard focus.
class STYLEDCTL_EXPORT ZELCustomSpinBox : public QSpinBox, public ZELCustomLook
{
    Q_OBJECT
public:
    enum StyleSelector { Style_Default = 0, Style_Panel = 1, Style_Cell = 2 };

    explicit ZELCustomSpinBox(QWidget* parent = nullptr, StyleSelector style = Style_Default);

    using QSpinBox::lineEdit;
    void stepBy(int steps) override;

signals:
    // The user stepped the value (keys, buttons or wheel): the place to save it. Typed values
    // come with editingFinished().
    void SigSaveParam();

protected:
    void wheelEvent(QWheelEvent* event) override;
};
