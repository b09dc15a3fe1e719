// SPDX-License-Identifier: Apache-2.0
#include "styledctl/private/ZELGlyph.h"

#include "basetools/QtDifferences.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>

namespace {

// Stroke points on a 16 x 16 grid; a shape may have a second stroke or a circle.
struct Stroke
{
    int count;
    QPointF points[3];
};

struct Drawing
{
    Stroke first;
    Stroke second;
    QRectF circle;
};

const Drawing& drawing(ZELGlyph::Shape shape)
{
    static const Drawing drawings[] = {
        {{3, {{4, 10}, {8, 6}, {12, 10}}}, {0, {}}, {}},                // ArrowUp
        {{3, {{4, 6}, {8, 10}, {12, 6}}}, {0, {}}, {}},                 // ArrowDown
        {{3, {{10, 4}, {6, 8}, {10, 12}}}, {0, {}}, {}},                // ArrowLeft
        {{3, {{6, 4}, {10, 8}, {6, 12}}}, {0, {}}, {}},                 // ArrowRight
        {{3, {{3.5, 8.5}, {6.7, 11.5}, {12.5, 4.8}}}, {0, {}}, {}},     // Check
        {{2, {{4, 8}, {12, 8}}}, {0, {}}, {}},                          // Dash
        {{2, {{4, 4}, {12, 12}}}, {2, {{12, 4}, {4, 12}}}, {}},         // Close
        {{2, {{10.4, 10.4}, {13.8, 13.8}}}, {0, {}}, {2, 2, 9.6, 9.6}}, // Search
    };
    return drawings[shape];
}

void addStroke(QPainterPath& path, const Stroke& stroke)
{
    for (int i = 0; i < stroke.count; ++i) {
        if (i == 0)
            path.moveTo(stroke.points[i]);
        else
            path.lineTo(stroke.points[i]);
    }
}

class GlyphEngine : public QIconEngine
{
public:
    GlyphEngine(ZELGlyph::Shape shape, const QColor& color, const QColor& hover)
        : m_shape(shape)
        , m_color(color)
        , m_hover(hover)
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        QColor color = mode == QIcon::Active || mode == QIcon::Selected ? m_hover : m_color;
        if (mode == QIcon::Disabled)
            color.setAlphaF(color.alphaF() / 2);
        ZELGlyph::paint(painter, m_shape, rect, color);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal ratio = QtDifferences::iconsAskForPixels() ? 1.0 : qGuiApp->devicePixelRatio();
        QPixmap result(size * ratio);
        result.setDevicePixelRatio(ratio);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return result;
    }

    QIconEngine* clone() const override { return new GlyphEngine(*this); }

private:
    ZELGlyph::Shape m_shape;
    QColor m_color;
    QColor m_hover;
};

} // namespace

namespace ZELGlyph {

void paint(QPainter* painter, Shape shape, const QRectF& rect, const QColor& color,
           qreal strokeWidth)
{
    const qreal side = qMin(rect.width(), rect.height());
    if (side <= 0)
        return;
    const Drawing& lines = drawing(shape);
    QPainterPath path;
    addStroke(path, lines.first);
    addStroke(path, lines.second);
    if (!lines.circle.isNull())
        path.addEllipse(lines.circle);

    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(rect.center() - QPointF(side / 2, side / 2));
    painter->scale(side / 16, side / 16);
    painter->setPen(QPen(color, strokeWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->setBrush(Qt::NoBrush);
    painter->drawPath(path);
    painter->restore();
}

QIcon icon(Shape shape, const QColor& color, const QColor& hover)
{
    return QIcon(new GlyphEngine(shape, color, hover));
}

} // namespace ZELGlyph
