// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/StyledCtlGlobal.h"

#include <QBrush>
#include <QColor>

// What a control tells the style that draws it: the style knows no class of controls. GUI thread.
class STYLEDCTL_EXPORT ZELLook
{
public:
    // What the control's class and its own choice of style come to.
    enum class Shape {
        Framed,
        Flat,    // no frame until hovered or focused
        Primary, // filled with the accent colour
        Danger,  // framed in the colour of errors
        Tab,     // line under the checked one
        Compact, // smaller box
        Switch   // sliding switch
    };
    enum class IconPlace { LeftEdge, BesideText, RightEdge };

    virtual ~ZELLook() = default;

    virtual Shape cShape() const = 0;
    virtual IconPlace cIconPlace() const = 0;
    // An invalid colour, Qt::NoBrush or -1 means: as the theme says. Widths and radii are
    // device-independent pixels.
    virtual QBrush cBackground() const = 0;
    virtual QColor cBorderColor() const = 0;
    virtual QColor cTextColor() const = 0;
    virtual int cBorderWidth() const = 0;
    virtual int cBorderRadius() const = 0;
};
