// SPDX-License-Identifier: Apache-2.0
#include "styledctl/private/ZELStyle.h"

#include "styledctl/private/ZELBox.h"
#include "styledctl/private/ZELDraw.h"
#include "styledctl/private/ZELMetrics.h"

#include <QAbstractSpinBox>
#include <QStyleFactory>
#include <QStyleOption>

namespace {

using namespace ZELMetrics;

// Height of a control with one line of text.
int lineHeight(const QStyleOption* option)
{
    return qMax(option->fontMetrics.height() + kTextPadding, kControlHeight);
}

} // namespace

ZELStyle::ZELStyle()
    : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
{
}

void ZELStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                             QPainter* painter, const QWidget* widget) const
{
    switch (element) {
    case PE_PanelLineEdit:
    case PE_FrameLineEdit:
        // The edit inside a spin box has no line width: its box draws the well for both.
        if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option)) {
            if (frame->lineWidth > 0)
                ZELDraw::editFrame(*option, painter, widget);
        }
        return;
    case PE_IndicatorBranch:
        ZELDraw::branch(*option, painter);
        return;
    case PE_IndicatorItemViewItemCheck:
        ZELDraw::checkIndicator(*option, painter, option->rect);
        return;
    case PE_FrameFocusRect:
        // Controls draw a ring of their own.
        if (ZELBox::lookOf(widget))
            return;
        break;
    default:
        break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void ZELStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                           const QWidget* widget) const
{
    if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
        switch (element) {
        case CE_PushButton:
            ZELDraw::buttonFrame(*button, painter, widget);
            ZELDraw::buttonLabel(*button, painter, widget);
            return;
        case CE_CheckBox:
            ZELDraw::checkBox(*button, painter, widget,
                              subElementRect(SE_CheckBoxIndicator, option, widget),
                              subElementRect(SE_CheckBoxContents, option, widget));
            return;
        default:
            break;
        }
    }
    if (element == CE_Splitter) {
        ZELDraw::splitter(*option, painter);
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void ZELStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                  QPainter* painter, const QWidget* widget) const
{
    const auto part = [&](SubControl sub) { return subControlRect(control, option, sub, widget); };
    if (const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option)) {
        ZELDraw::comboBox(*combo, painter, widget, part(SC_ComboBoxArrow));
        return;
    }
    if (const auto* spin = qstyleoption_cast<const QStyleOptionSpinBox*>(option)) {
        ZELDraw::spinBox(*spin, painter, widget, part(SC_SpinBoxUp), part(SC_SpinBoxDown));
        return;
    }
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (slider && control == CC_Slider) {
        ZELDraw::slider(*slider, painter, widget, part(SC_SliderGroove), part(SC_SliderHandle));
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect ZELStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                               SubControl subControl, const QWidget* widget) const
{
    const QRect all = option->rect;
    const auto visual = [&](const QRect& rect) { return visualRect(option->direction, all, rect); };
    if (control == CC_SpinBox) {
        const auto* spin = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
        const bool bare = !spin || spin->buttonSymbols == QAbstractSpinBox::NoButtons;
        const int buttons = bare ? 0 : kSpinButtonWidth;
        const int left = all.right() + 1 - buttons;
        const int half = (all.height() - 2) / 2;
        switch (subControl) {
        case SC_SpinBoxUp:
            return visual(QRect(left, all.top() + 1, buttons, half));
        case SC_SpinBoxDown:
            return visual(QRect(left, all.bottom() - half, buttons, half));
        case SC_SpinBoxEditField:
            return visual(all.adjusted(kEditInset - 2, 1, -buttons - 1, -1));
        default:
            return all;
        }
    }
    if (control == CC_ComboBox) {
        switch (subControl) {
        case SC_ComboBoxArrow:
            return visual(QRect(all.right() + 1 - kComboArrowWidth, all.top(), kComboArrowWidth,
                                all.height()));
        case SC_ComboBoxEditField:
            return visual(all.adjusted(kEditInset, 1, kComboArrowGap - kComboArrowWidth, -1));
        default:
            return all;
        }
    }
    if (control == CC_Slider && subControl == SC_SliderGroove) {
        const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
        QRect groove = all;
        if (!slider || slider->orientation == Qt::Horizontal) {
            groove.setTop(all.center().y() - kSliderGroove / 2 + 1);
            groove.setHeight(kSliderGroove);
        } else {
            groove.setLeft(all.center().x() - kSliderGroove / 2 + 1);
            groove.setWidth(kSliderGroove);
        }
        return groove;
    }
    return QProxyStyle::subControlRect(control, option, subControl, widget);
}

QRect ZELStyle::subElementRect(SubElement element, const QStyleOption* option,
                               const QWidget* widget) const
{
    const QRect all = option->rect;
    const auto visual = [&](const QRect& rect) { return visualRect(option->direction, all, rect); };
    switch (element) {
    case SE_LineEditContents: {
        const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
        const int inset = frame && frame->lineWidth > 0 ? kEditInset - 2 : 0;
        return visual(all.adjusted(inset, 0, -inset, 0));
    }
    case SE_CheckBoxIndicator: {
        const QSize size(pixelMetric(PM_IndicatorWidth, option, widget),
                         pixelMetric(PM_IndicatorHeight, option, widget));
        return visual(QRect(
            QPoint(all.left() + kFocusRoom, all.top() + (all.height() - size.height()) / 2), size));
    }
    case SE_CheckBoxContents: {
        const int left = kFocusRoom + pixelMetric(PM_IndicatorWidth, option, widget) + kLabelGap;
        return visual(all.adjusted(left, 0, 0, 0));
    }
    case SE_CheckBoxClickRect:
    case SE_PushButtonFocusRect:
    case SE_CheckBoxFocusRect:
        return all;
    default:
        return QProxyStyle::subElementRect(element, option, widget);
    }
}

QSize ZELStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                 const QSize& contents, const QWidget* widget) const
{
    switch (type) {
    case CT_PushButton: {
        const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
        const bool textless = button && button->text.isEmpty();
        const bool tab = ZELBox::shapeOf(widget) == ZELLook::Shape::Tab;
        const int inset = tab ? kTabInset : textless ? kEditInset : kButtonInset;
        const int width = contents.width() + 2 * inset;
        return QSize(width, qMax(lineHeight(option), contents.height() + kEditInset));
    }
    case CT_ComboBox:
        return QSize(contents.width() + 2 * kEditInset + kComboArrowWidth,
                     qMax(lineHeight(option), contents.height() + kEditInset));
    case CT_LineEdit:
        if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option)) {
            if (frame->lineWidth > 0)
                return QSize(contents.width() + 2 * kEditInset, lineHeight(option));
        }
        return contents;
    case CT_SpinBox:
        return QSize(contents.width() + 2 * kEditInset + kSpinButtonWidth, lineHeight(option));
    case CT_CheckBox: {
        const int indicator = pixelMetric(PM_IndicatorWidth, option, widget);
        const bool label = contents.width() > 0;
        return QSize(indicator + 2 * kFocusRoom + (label ? kLabelGap + contents.width() : 0),
                     qMax(kControlHeight, contents.height())); // room for a finger
    }
    default:
        return QProxyStyle::sizeFromContents(type, option, contents, widget);
    }
}

int ZELStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                          const QWidget* widget) const
{
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight: {
        const ZELLook::Shape shape = ZELBox::shapeOf(widget);
        if (shape == ZELLook::Shape::Switch)
            return metric == PM_IndicatorWidth ? kSwitchWidth : kSwitchHeight;
        return shape == ZELLook::Shape::Compact ? kCompactIndicator : kIndicator;
    }
    case PM_CheckBoxLabelSpacing:
        return kLabelGap;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
    case PM_ButtonDefaultIndicator:
        return 0;
    case PM_SliderThickness:
    case PM_SliderControlThickness:
    case PM_SliderLength:
        return kSliderHandle;
    case PM_SmallIconSize:
    case PM_ButtonIconSize:
        return 16;
    case PM_TreeViewIndentation:
        return 20;
    case PM_SplitterWidth:
        return kSplitterWidth;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int ZELStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                        QStyleHintReturn* returnData) const
{
    switch (hint) {
    case SH_Slider_AbsoluteSetButtons:
        return Qt::LeftButton;
    case SH_ComboBox_Popup:
    case SH_EtchDisabledText:
    case SH_DitherDisabledText:
        return 0;
    case SH_ComboBox_PopupFrameStyle:
        return QFrame::NoFrame | QFrame::Plain;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}
