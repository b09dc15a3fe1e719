// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomLabel.h"

#include "styledctl/private/ZELBox.h"

#include <QPainter>

namespace {

constexpr int kTitleFontPx = 15;

} // namespace

ZELCustomLabel::ZELCustomLabel(QWidget* parent, StyleSelector style)
    : ZELCustomLabel(QString(), parent, style)
{
}

ZELCustomLabel::ZELCustomLabel(const QString& text, QWidget* parent, StyleSelector style)
    : QLabel(text, parent)
    , ZELCustomLook(this, style)
{
    setAttribute(Qt::WA_Hover, false);
    if (style == Style_Title) {
        QFont title = font();
        title.setPixelSize(kTitleFontPx);
        title.setWeight(QFont::DemiBold);
        setFont(title);
    } else if (style == Style_Muted) {
        cSetTextColor(QStringLiteral("StyledCtlColor_TextMuted"));
    }
}

void ZELCustomLabel::paintEvent(QPaintEvent* event)
{
    const QBrush background = cBackground();
    if (background.style() != Qt::NoBrush || cBorderColor().isValid()) {
        ZELBox box;
        box.fill = background;
        box.border = cBorderColor();
        box.borderWidth = cBorderWidth() < 0 ? 1 : cBorderWidth();
        box.radius = qMax(0, cBorderRadius());
        QPainter painter(this);
        box.paint(&painter, rect());
    }
    QLabel::paintEvent(event);
}
