// SPDX-License-Identifier: Apache-2.0
#include "region/RegionPainter.h"

#include "styledctl/ZELCustom.h"

#include <QPainter>

namespace {

constexpr double kHandlePx = 7.0;
constexpr int kLabelFontPx = 11;
constexpr int kLabelMargin = 6;
constexpr double kEditedFill = 0.22;
constexpr double kOtherFill = 0.08;

QColor colour(const char* name)
{
    return ZELCustom::getDataBaseColor(QLatin1String("RegionDrawWidgetColor_") +
                                       QLatin1String(name));
}

} // namespace

RegionPainter::RegionPainter(QPainter& painter)
    : m_painter(painter)
{
    m_painter.setRenderHint(QPainter::Antialiasing);
}

void RegionPainter::drawBackground(const QRect& widget)
{
    m_painter.fillRect(widget, colour("Background"));
}

void RegionPainter::drawSensor(const QRectF& rect)
{
    m_painter.fillRect(rect, colour("Sensor"));
}

void RegionPainter::drawArea(Kind kind, const QRectF& rect, bool edited, const QString& label)
{
    const QColor line = colour(kind == ImageRegion ? "Region" : "AutoFunctionArea");
    QColor fill = line;
    fill.setAlphaF(float(edited ? kEditedFill : kOtherFill));
    m_painter.setBrush(fill);
    m_painter.setPen(QPen(line, edited ? 2.0 : 1.0, edited ? Qt::SolidLine : Qt::DashLine));
    m_painter.drawRect(rect);
    drawLabel(rect, label);
    if (edited)
        drawHandles(rect);
}

// In the colour of the area.
void RegionPainter::drawLabel(const QRectF& rect, const QString& label)
{
    const QFont before = m_painter.font();
    m_painter.setFont(ZELCustom::font(kLabelFontPx));
    const QRectF inside = rect.adjusted(kLabelMargin, kLabelMargin, -kLabelMargin, -kLabelMargin);
    const QRectF needed =
        m_painter.boundingRect(inside, Qt::AlignLeft | Qt::AlignBottom | Qt::TextSingleLine, label);
    if (inside.contains(needed))
        m_painter.drawText(needed, Qt::AlignCenter | Qt::TextSingleLine, label);
    m_painter.setFont(before);
}

void RegionPainter::drawHandles(const QRectF& rect)
{
    m_painter.setBrush(m_painter.pen().color());
    m_painter.setPen(Qt::NoPen);
    const double xs[] = {rect.left(), rect.center().x(), rect.right()};
    const double ys[] = {rect.top(), rect.center().y(), rect.bottom()};
    for (int handle = 0; handle < 9; ++handle) {
        const int column = handle % 3;
        const int row = handle / 3;
        if (column != 1 || row != 1)
            m_painter.drawRect(
                QRectF(xs[column] - kHandlePx / 2, ys[row] - kHandlePx / 2, kHandlePx, kHandlePx));
    }
}

void RegionPainter::drawCaption(const QRect& line, const QString& text)
{
    m_painter.setPen(colour("Font"));
    m_painter.drawText(line, Qt::AlignCenter, text);
}

void RegionPainter::drawFocusFrame(const QRect& widget)
{
    m_painter.setPen(QPen(colour("Region"), 1, Qt::DotLine));
    m_painter.setBrush(Qt::NoBrush);
    m_painter.drawRect(QRectF(widget).adjusted(0.5, 0.5, -0.5, -0.5));
}
