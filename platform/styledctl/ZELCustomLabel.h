// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/ZELCustomLook.h"

#include <QLabel>

// Styled text label. Elides nothing; use cSetFontSize() and cSetTextColor() for emphasis.
class STYLEDCTL_EXPORT ZELCustomLabel : public QLabel, public ZELCustomLook
{
    Q_OBJECT
public:
    enum StyleSelector {
        Style_Default = 0, // body text
        Style_Title = 1,   // heading of a group
        Style_Muted = 2    // secondary text
    };

    explicit ZELCustomLabel(QWidget* parent = nullptr, StyleSelector style = Style_Default);
    ZELCustomLabel(const QString& text, QWidget* parent, StyleSelector style = Style_Default);

protected:
    void paintEvent(QPaintEvent* event) override;
};
