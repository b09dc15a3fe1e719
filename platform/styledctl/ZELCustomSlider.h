// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/ZELCustomLook.h"

#include <QSlider>

// Styled slider. Clicking the groove moves the handle there. The mouse wheel works only with the
// keyboard focus.
class STYLEDCTL_EXPORT ZELCustomSlider : public QSlider, public ZELCustomLook
{
    Q_OBJECT
public:
    explicit ZELCustomSlider(QWidget* parent = nullptr);
    explicit ZELCustomSlider(Qt::Orientation orientation, QWidget* parent = nullptr);

signals:
    // The user moved the handle by keyboard or wheel: the place to save the value. Dragging ends
    // with sliderReleased().
    void SigSaveParam();

protected:
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};
