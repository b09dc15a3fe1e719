// SPDX-License-Identifier: Apache-2.0
#include "styledctl/private/ZELDraw.h"

#include "styledctl/private/ZELBox.h"
#include "styledctl/private/ZELColors.h"
#include "styledctl/private/ZELGlyph.h"
#include "styledctl/private/ZELMetrics.h"

#include <QStyle>

namespace {

using namespace ZELMetrics;

QColor textColor(const ZELState& state, const QWidget* widget)
{
    const ZELColors& colors = ZELColors::current();
    if (!state.enabled)
        return colors.textDisabled;
    const ZELLook* look = ZELBox::lookOf(widget);
    const QColor own = look ? look->cTextColor() : QColor();
    return own.isValid() ? own : colors.text;
}

void stepButton(const QStyleOptionSpinBox& option, QPainter* painter, const QRect& rect,
                QStyle::SubControl part, bool possible, ZELGlyph::Shape shape)
{
    const ZELColors& colors = ZELColors::current();
    const bool active = option.activeSubControls & part;
    const bool enabled = possible && (option.state & QStyle::State_Enabled);
    const bool pressed = active && (option.state & QStyle::State_Sunken);
    if (enabled && active && (option.state & QStyle::State_MouseOver)) {
        ZELBox box;
        box.fill = pressed ? colors.accentPressed : colors.hover;
        box.radius = kRadius - 1;
        box.paint(painter, rect.adjusted(1, 1, -2, -1));
    }
    // A value at its end keeps the arrow's place, only dimmer.
    ZELGlyph::paint(painter, shape, QRectF(rect.center() - QPoint(5, 5), QSizeF(12, 12)),
                    enabled ? colors.textMuted : colors.border);
}

} // namespace

namespace ZELDraw {

void editFrame(const QStyleOption& option, QPainter* painter, const QWidget* widget)
{
    ZELBox::forEdit(ZELState(option), ZELBox::lookOf(widget),
                    ZELBox::shapeOf(widget) == ZELLook::Shape::Flat)
        .paint(painter, option.rect);
}

void comboBox(const QStyleOptionComboBox& option, QPainter* painter, const QWidget* widget,
              const QRect& arrow)
{
    const ZELColors& colors = ZELColors::current();
    const ZELState state(option);
    const ZELLook* look = ZELBox::lookOf(widget);
    const bool flat = look && look->cShape() == ZELLook::Shape::Flat;
    ZELBox::forButton(state, look, flat).paint(painter, option.rect);
    if (state.enabled) {
        ZELGlyph::paint(painter, ZELGlyph::ArrowDown,
                        QRectF(arrow.center() - QPoint(6, 6), QSizeF(kArrow, kArrow)),
                        state.hover || state.focus ? colors.text : colors.textMuted);
    }
}

void spinBox(const QStyleOptionSpinBox& option, QPainter* painter, const QWidget* widget,
             const QRect& up, const QRect& down)
{
    ZELState state(option);
    state.pressed = false;
    ZELBox::forEdit(state, ZELBox::lookOf(widget), false).paint(painter, option.rect);
    if (!state.enabled || option.buttonSymbols == QAbstractSpinBox::NoButtons)
        return;
    stepButton(option, painter, up, QStyle::SC_SpinBoxUp,
               option.stepEnabled & QAbstractSpinBox::StepUpEnabled, ZELGlyph::ArrowUp);
    stepButton(option, painter, down, QStyle::SC_SpinBoxDown,
               option.stepEnabled & QAbstractSpinBox::StepDownEnabled, ZELGlyph::ArrowDown);
}

void slider(const QStyleOptionSlider& option, QPainter* painter, const QWidget*,
            const QRect& groove, const QRect& handle)
{
    const ZELColors& colors = ZELColors::current();
    const ZELState state(option);
    const bool horizontal = option.orientation == Qt::Horizontal;
    const QPoint centre = handle.center();
    QRect done = groove;
    if (horizontal)
        option.upsideDown ? done.setLeft(centre.x()) : done.setRight(centre.x());
    else
        option.upsideDown ? done.setTop(centre.y()) : done.setBottom(centre.y());

    ZELBox box;
    box.radius = kSliderGroove / 2.0;
    box.fill = state.enabled ? colors.border : colors.separator;
    box.paint(painter, groove);
    box.fill = state.enabled ? colors.accent : colors.border;
    box.paint(painter, done);

    ZELBox knob;
    knob.radius = kSliderHandle / 2.0;
    knob.fill = state.enabled ? colors.text : colors.border;
    knob.border = colors.window;
    knob.borderWidth = 2;
    if (state.enabled && (option.activeSubControls & QStyle::SC_SliderHandle) && state.pressed)
        knob.fill = colors.accentHover;
    if (state.focus) {
        knob.border = colors.accent;
        knob.borderWidth = 2.5;
    }
    knob.paint(painter, handle);
}

void buttonFrame(const QStyleOptionButton& option, QPainter* painter, const QWidget* widget)
{
    ZELBox::forPushButton(ZELState(option), ZELBox::lookOf(widget)).paint(painter, option.rect);
}

void checkIndicator(const QStyleOption& option, QPainter* painter, const QRect& indicator)
{
    const ZELColors& colors = ZELColors::current();
    const ZELState state(option);
    const bool partial = option.state & QStyle::State_NoChange;
    const bool filled = partial || (option.state & QStyle::State_On);
    ZELBox::forIndicator(state, filled).paint(painter, indicator);
    if (filled)
        ZELGlyph::paint(painter, partial ? ZELGlyph::Dash : ZELGlyph::Check,
                        QRectF(indicator).adjusted(1, 1, -1, -1),
                        state.enabled ? colors.onAccent : colors.window, 2.2);
}

void checkBox(const QStyleOptionButton& option, QPainter* painter, const QWidget* widget,
              const QRect& indicator, const QRect& label)
{
    const ZELColors& colors = ZELColors::current();
    const ZELState state(option);
    const ZELLook* look = ZELBox::lookOf(widget);
    const bool checked = option.state & QStyle::State_On;

    if (look && look->cShape() == ZELLook::Shape::Switch) {
        ZELBox::forSwitch(state, checked).paint(painter, indicator);
        const int side = indicator.height() - 8;
        const QRect knob(checked ? indicator.right() - side - 3 : indicator.left() + 4,
                         indicator.top() + 4, side, side);
        ZELBox dot;
        dot.radius = side / 2.0;
        dot.fill = checked ? (state.enabled ? colors.onAccent : colors.surface)
                           : (state.enabled ? colors.text : colors.borderStrong);
        dot.paint(painter, knob);
    } else {
        checkIndicator(option, painter, indicator);
    }
    if (!option.text.isEmpty()) {
        painter->setPen(textColor(state, widget));
        painter->drawText(label, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic,
                          option.text);
    }
}

void branch(const QStyleOption& option, QPainter* painter)
{
    if (!(option.state & QStyle::State_Children))
        return;
    const ZELColors& colors = ZELColors::current();
    const bool open = option.state & QStyle::State_Open;
    ZELGlyph::paint(painter, open ? ZELGlyph::ArrowDown : ZELGlyph::ArrowRight,
                    QRectF(QRectF(option.rect).center() - QPointF(7, 7), QSizeF(14, 14)),
                    option.state & QStyle::State_MouseOver ? colors.text : colors.textMuted, 1.7);
}

void splitter(const QStyleOption& option, QPainter* painter)
{
    const ZELColors& colors = ZELColors::current();
    const bool held = option.state & (QStyle::State_MouseOver | QStyle::State_Sunken);
    painter->fillRect(option.rect, held ? colors.accent : colors.separator);
}

} // namespace ZELDraw
