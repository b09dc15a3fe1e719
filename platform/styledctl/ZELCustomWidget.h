// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/ZELCustomLook.h"

#include <QWidget>

struct ZELBox;

// Plain styled container: fills itself with a background and draws a border, both settable
// (ZELCustomLook). Transparent and borderless at first.
class STYLEDCTL_EXPORT ZELCustomWidget : public QWidget, public ZELCustomLook
{
    Q_OBJECT
public:
    explicit ZELCustomWidget(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
    void cRedraw() override;

private:
    ZELBox box() const;
};
