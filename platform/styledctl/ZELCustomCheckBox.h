// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/ZELCustomLook.h"

#include <QCheckBox>

// Styled check box; in the switch style it is drawn as a sliding switch. Space and Enter toggle.
class STYLEDCTL_EXPORT ZELCustomCheckBox : public QCheckBox, public ZELCustomLook
{
    Q_OBJECT
public:
    enum StyleSelector {
        Style_Default = 0, // box and text
        Style_Compact = 1, // smaller box and text
        Style_Label = 2,   // box and text in a tree cell
        Style_Switch = 3,  // sliding switch
        Style_Cell = 4     // box alone in a tree cell
    };

    explicit ZELCustomCheckBox(QWidget* parent = nullptr, StyleSelector style = Style_Default);
    ZELCustomCheckBox(const QString& text, QWidget* parent, StyleSelector style = Style_Default);

    // Draws the box as it looks now into `rect`, for drag pictures.
    void cDrawControl(QPainter* painter, const QRect& rect) const;
    Shape cShape() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
};
