// SPDX-License-Identifier: Apache-2.0
#include "styledctl/private/ZELBox.h"
#include "styledctl/private/ZELColors.h"
#include "styledctl/private/ZELDraw.h"
#include "styledctl/private/ZELMetrics.h"

#include <QStyle>

namespace {

using namespace ZELMetrics;

QColor labelColor(const ZELState& state, const ZELLook* look)
{
    const ZELColors& colors = ZELColors::current();
    if (!state.enabled)
        return colors.textDisabled;
    QColor own = look ? look->cTextColor() : QColor();
    if (own.isValid())
        return own;
    switch (look ? look->cShape() : ZELLook::Shape::Framed) {
    case ZELLook::Shape::Primary:
        return colors.onAccent;
    case ZELLook::Shape::Danger:
        return colors.error;
    case ZELLook::Shape::Tab:
        return state.on || state.hover ? colors.text : colors.textMuted;
    default:
        return colors.text;
    }
}

} // namespace

namespace ZELDraw {

void buttonLabel(const QStyleOptionButton& option, QPainter* painter, const QWidget* widget)
{
    const ZELState state(option);
    using IconPlace = ZELLook::IconPlace;
    const ZELLook* look = ZELBox::lookOf(widget);
    const IconPlace place = look ? look->cIconPlace() : IconPlace::BesideText;
    const bool tab = look && look->cShape() == ZELLook::Shape::Tab;
    const int inset = tab ? kTabInset : kEditInset;
    const QRect inside = option.rect.adjusted(inset, 0, -inset, 0);
    const bool hasIcon = !option.icon.isNull();
    const bool hasText = !option.text.isEmpty();
    const int gap = hasIcon && hasText ? kIconGap : 0;
    const int iconWidth = hasIcon ? option.iconSize.width() : 0;
    const int textRoom = qMax(0, inside.width() - iconWidth - gap);
    const QFontMetrics& metrics = option.fontMetrics;
    // The tool tip or the column's width has the rest; a cut label is better than a smaller font.
    const QString text =
        metrics.elidedText(option.text, Qt::ElideRight, textRoom, Qt::TextShowMnemonic);
    const int textWidth = metrics.size(Qt::TextShowMnemonic, text).width();

    const int blockLeft = inside.left() + (inside.width() - iconWidth - gap - textWidth) / 2;
    QRect textRect(hasIcon ? blockLeft + iconWidth + gap : blockLeft, inside.top(), textWidth,
                   inside.height());
    if (hasIcon) {
        int left = blockLeft;
        if (place != IconPlace::BesideText) {
            const bool atLeft = place == IconPlace::LeftEdge;
            left = atLeft ? inside.left() : inside.right() + 1 - iconWidth;
            const int roomLeft = atLeft ? inside.left() + iconWidth + gap : inside.left();
            textRect.moveLeft(roomLeft + (textRoom - textWidth) / 2);
        }
        const QRect iconRect(left, inside.center().y() - option.iconSize.height() / 2 + 1,
                             iconWidth, option.iconSize.height());
        // Dimmed here: an icon's own disabled form comes from the application's style.
        painter->setOpacity(state.enabled ? 1 : kDisabledIconOpacity);
        const QIcon::Mode mode = state.hover ? QIcon::Active : QIcon::Normal;
        option.icon.paint(painter, QStyle::visualRect(option.direction, option.rect, iconRect),
                          Qt::AlignCenter, mode, state.on ? QIcon::On : QIcon::Off);
        painter->setOpacity(1);
    }
    painter->setPen(labelColor(state, look));
    painter->drawText(QStyle::visualRect(option.direction, option.rect, textRect),
                      Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextSingleLine, text);
}

} // namespace ZELDraw
