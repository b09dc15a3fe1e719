// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/private/ZELLook.h"

#include <QRect>

class QPainter;
class QStyleOption;
class QWidget;

// The states of a control that change how it is drawn.
struct ZELState
{
    explicit ZELState(const QStyleOption& option);

    bool enabled;
    bool hover;
    bool pressed;
    bool focus;
    bool on;
};

// A rounded rectangle with a fill and a border on whole pixels: the frame of every control.
struct ZELBox
{
    QBrush fill = Qt::NoBrush;
    QColor border;
    qreal borderWidth = 0;
    qreal radius = 0;
    // Line inside the border that keeps a focus ring visible on a fill of the same colour.
    QColor innerLine;
    // Line along the lower edge (tabs).
    QColor underline;

    void paint(QPainter* painter, const QRect& rect) const;
    // Whether nothing that stands behind the box can be seen: a square fill is all there is.
    bool coversAll() const;

    static ZELBox forEdit(const ZELState& state, const ZELLook* look, bool flat);
    static ZELBox forButton(const ZELState& state, const ZELLook* look, bool flat);
    static ZELBox forPushButton(const ZELState& state, const ZELLook* look);
    static ZELBox forIndicator(const ZELState& state, bool filled);
    static ZELBox forSwitch(const ZELState& state, bool on);

    // The look of a control of this library, else null.
    static const ZELLook* lookOf(const QWidget* widget);
    static ZELLook::Shape shapeOf(const QWidget* widget);

private:
    // What the control itself asks for; the focus ring stays.
    void apply(const ZELState& state, const ZELLook* look);
    void ring(const ZELState& state);
};
