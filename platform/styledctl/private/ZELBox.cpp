// SPDX-License-Identifier: Apache-2.0
#include "styledctl/private/ZELBox.h"

#include "styledctl/ZELCustomLineEdit.h"
#include "styledctl/ZELCustomPushButton.h"
#include "styledctl/private/ZELColors.h"
#include "styledctl/private/ZELMetrics.h"

#include <QPainter>
#include <QStyleOption>

namespace {

constexpr qreal kRingWidth = 2;
constexpr int kUnderlineHeight = 2;

} // namespace

ZELState::ZELState(const QStyleOption& option)
    : enabled(option.state & QStyle::State_Enabled)
    , hover(enabled && (option.state & QStyle::State_MouseOver))
    , pressed(enabled && (option.state & QStyle::State_Sunken))
    , focus(enabled && (option.state & QStyle::State_HasFocus))
    , on(option.state & QStyle::State_On)
{
}

const ZELCustomLook* ZELBox::lookOf(const QWidget* widget)
{
    return dynamic_cast<const ZELCustomLook*>(widget);
}

bool ZELBox::isFlatEdit(const QWidget* widget)
{
    const auto* edit = qobject_cast<const ZELCustomLineEdit*>(widget);
    return edit && edit->cStyle() == ZELCustomLineEdit::Style_Flat;
}

void ZELBox::paint(QPainter* painter, const QRect& rect) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const qreal width = border.isValid() ? borderWidth : 0;
    const qreal half = width / 2;
    const QRectF outline = QRectF(rect).adjusted(half, half, -half, -half);
    const qreal corner = qMax<qreal>(0, radius - half);
    painter->setBrush(fill);
    painter->setPen(width > 0 ? QPen(border, width) : QPen(Qt::NoPen));
    painter->drawRoundedRect(outline, corner, corner);
    if (innerLine.isValid()) {
        const QRectF inner =
            QRectF(rect).adjusted(width + .5, width + .5, -width - .5, -width - .5);
        painter->setBrush(Qt::NoBrush);
        painter->setPen(QPen(innerLine, 1));
        painter->drawRoundedRect(inner, qMax<qreal>(0, radius - width),
                                 qMax<qreal>(0, radius - width));
    }
    if (underline.isValid()) {
        painter->fillRect(QRect(rect.left(), rect.bottom() + 1 - kUnderlineHeight, rect.width(),
                                kUnderlineHeight),
                          underline);
    }
    painter->restore();
}

void ZELBox::apply(const ZELState& state, const ZELCustomLook* look)
{
    if (!look)
        return;
    const QBrush background = look->cBackground();
    if (background.style() != Qt::NoBrush && !state.hover && !state.pressed)
        fill = background;
    if (look->cBorderColor().isValid() && state.enabled)
        border = look->cBorderColor();
    if (look->cBorderWidth() >= 0)
        borderWidth = look->cBorderWidth();
    if (look->cBorderRadius() >= 0)
        radius = look->cBorderRadius();
}

void ZELBox::ring(const ZELState& state)
{
    if (!state.focus)
        return;
    border = ZELColors::current().accent;
    borderWidth = kRingWidth;
}

ZELBox ZELBox::forEdit(const ZELState& state, const ZELCustomLook* look, bool flat)
{
    const ZELColors& colors = ZELColors::current();
    ZELBox box;
    box.radius = ZELMetrics::kRadius;
    box.borderWidth = 1;
    // A value that cannot be edited stands flat on the panel, in a thin frame.
    if (state.enabled && (!flat || state.hover || state.focus)) {
        box.fill = colors.input;
        box.border = state.hover ? colors.borderStrong : colors.border;
    } else if (!flat) {
        box.border = colors.separator;
    }
    box.apply(state, look);
    box.ring(state);
    return box;
}

ZELBox ZELBox::forButton(const ZELState& state, const ZELCustomLook* look, bool flat)
{
    const ZELColors& colors = ZELColors::current();
    ZELBox box;
    box.radius = ZELMetrics::kRadius;
    box.borderWidth = 1;
    if (state.enabled && (!flat || state.hover || state.pressed)) {
        box.fill = state.pressed ? colors.pressed : state.hover ? colors.hover : colors.raised;
        if (!flat)
            box.border = state.hover ? colors.borderStrong : colors.border;
    } else if (!flat) {
        box.border = colors.separator;
    }
    box.apply(state, look);
    box.ring(state);
    return box;
}

ZELBox ZELBox::forPushButton(const ZELState& state, const ZELCustomLook* look)
{
    const ZELColors& colors = ZELColors::current();
    const int style = look ? look->cStyle() : int(ZELCustomPushButton::Style_Default);
    const bool flat =
        style == ZELCustomPushButton::Style_Flat || style == ZELCustomPushButton::Style_Tab;
    ZELBox box = forButton(state, look, flat);
    if (style == ZELCustomPushButton::Style_Primary && state.enabled) {
        box.fill = state.pressed ? colors.accentPressed
                   : state.hover ? colors.accentHover
                                 : colors.accent;
        box.border = state.focus ? colors.text : QColor();
        box.innerLine = state.focus ? colors.onAccent : QColor();
    } else if (style == ZELCustomPushButton::Style_Danger && state.enabled && !state.focus) {
        box.border = colors.error;
    } else if (style == ZELCustomPushButton::Style_Tab) {
        box.radius = 0;
        if (state.on)
            box.underline = state.enabled ? colors.accent : colors.border;
    }
    return box;
}

ZELBox ZELBox::forIndicator(const ZELState& state, bool filled)
{
    const ZELColors& colors = ZELColors::current();
    ZELBox box;
    box.radius = ZELMetrics::kRadius - 1;
    box.borderWidth = 1.25;
    if (filled) {
        box.fill = !state.enabled ? colors.textDisabled
                   : state.hover  ? colors.accentHover
                                  : colors.accent;
        if (state.focus) {
            box.border = colors.text;
            box.borderWidth = kRingWidth;
            box.innerLine = colors.onAccent;
        }
        return box;
    }
    if (state.enabled)
        box.fill = colors.input;
    box.border = !state.enabled ? colors.border : state.hover ? colors.text : colors.borderStrong;
    box.ring(state);
    return box;
}

ZELBox ZELBox::forSwitch(const ZELState& state, bool on)
{
    ZELBox box = forIndicator(state, on);
    box.radius = ZELMetrics::kSwitchHeight / 2.0;
    return box;
}
