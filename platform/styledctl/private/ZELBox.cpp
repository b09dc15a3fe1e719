// SPDX-License-Identifier: Apache-2.0
#include "styledctl/private/ZELBox.h"

#include "styledctl/private/ZELColors.h"
#include "styledctl/private/ZELMetrics.h"

#include <QPainter>
#include <QPixmapCache>
#include <QStyleOption>
#include <QtMath>

#include <cmath>

namespace {

constexpr qreal kRingWidth = 2;
constexpr int kUnderlineHeight = 2;

void paintRounded(QPainter* painter, const ZELBox& box, const QRectF& rect)
{
    const qreal width = box.border.isValid() ? box.borderWidth : 0;
    const qreal half = width / 2;
    const qreal corner = qMax<qreal>(0, box.radius - half);
    painter->setBrush(box.fill);
    painter->setPen(width > 0 ? QPen(box.border, width) : QPen(Qt::NoPen));
    painter->drawRoundedRect(rect.adjusted(half, half, -half, -half), corner, corner);
}

bool isWhole(qreal number)
{
    return number == std::floor(number);
}

// A window shows dozens of boxes of a few kinds, and rounded outlines are what costs most to draw:
// the four corners of each kind are drawn once, the rest is filled.
class BoxParts
{
public:
    BoxParts(const ZELBox& box, qreal pixelRatio)
        : m_box(box)
        , m_width(box.border.isValid() ? qRound(box.borderWidth) : 0)
        , m_corner(qMax(m_width, qCeil(box.radius)))
        , m_pixelRatio(pixelRatio)
    {
    }

    // Whether the parts meet on whole pixels.
    static bool fit(const ZELBox& box, const QPainter* painter, const QRect& rect)
    {
        const qreal least = 2 * qMax(box.radius, box.borderWidth) + 1;
        const QTransform& place = painter->deviceTransform();
        const qreal pixelRatio = painter->device()->devicePixelRatioF();
        return isWhole(pixelRatio) && place.type() <= QTransform::TxScale &&
               qFuzzyCompare(place.m11(), pixelRatio) && qFuzzyCompare(place.m22(), pixelRatio) &&
               isWhole(place.dx()) && isWhole(place.dy()) &&
               (!box.border.isValid() || box.border.alpha() == 255) &&
               (!box.border.isValid() || isWhole(box.borderWidth)) &&
               box.fill.style() <= Qt::SolidPattern && rect.width() > least &&
               rect.height() > least;
    }

    void paint(QPainter* painter, const QRect& rect) const
    {
        const QRect inside = rect.adjusted(m_corner, m_corner, -m_corner, -m_corner);
        const QRect wide(rect.left(), inside.top(), rect.width(), inside.height());
        const QRect high(inside.left(), rect.top(), inside.width(), rect.height());
        if (m_box.fill.style() != Qt::NoBrush) {
            painter->fillRect(wide.adjusted(m_width, 0, -m_width, 0), m_box.fill);
            painter->fillRect(high.adjusted(0, m_width, 0, -inside.height() - m_corner),
                              m_box.fill);
            painter->fillRect(high.adjusted(0, inside.height() + m_corner, 0, -m_width),
                              m_box.fill);
        }
        if (m_width > 0) {
            painter->fillRect(QRect(wide.topLeft(), QSize(m_width, wide.height())), m_box.border);
            painter->fillRect(wide.adjusted(wide.width() - m_width, 0, 0, 0), m_box.border);
            painter->fillRect(QRect(high.topLeft(), QSize(high.width(), m_width)), m_box.border);
            painter->fillRect(high.adjusted(0, high.height() - m_width, 0, 0), m_box.border);
        }
        if (m_corner > 0)
            paintCorners(painter, rect);
    }

private:
    void paintCorners(QPainter* painter, const QRect& rect) const
    {
        const QPixmap all = corners();
        const int pixels = qRound(m_corner * m_pixelRatio);
        for (const bool right : {false, true}) {
            for (const bool bottom : {false, true}) {
                const QPoint place(right ? rect.right() + 1 - m_corner : rect.left(),
                                   bottom ? rect.bottom() + 1 - m_corner : rect.top());
                painter->drawPixmap(place, all,
                                    QRect(right ? pixels : 0, bottom ? pixels : 0, pixels, pixels));
            }
        }
    }
    // The four corners with nothing between them.
    QPixmap corners() const
    {
        const QString key = QStringLiteral("ZELBox %1 %2 %3 %4 %5")
                                .arg(m_box.fill.style() ? m_box.fill.color().rgba() : 0)
                                .arg(m_width > 0 ? m_box.border.rgba() : 0)
                                .arg(m_width)
                                .arg(m_box.radius)
                                .arg(m_pixelRatio);
        QPixmap pixmap;
        if (QPixmapCache::find(key, &pixmap))
            return pixmap;
        const int side = 2 * m_corner;
        pixmap = QPixmap(QSize(side, side) * m_pixelRatio);
        pixmap.setDevicePixelRatio(m_pixelRatio);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        paintRounded(&painter, m_box, QRectF(0, 0, side, side));
        painter.end();
        QPixmapCache::insert(key, pixmap);
        return pixmap;
    }

    const ZELBox& m_box;
    const int m_width;
    const int m_corner;
    const qreal m_pixelRatio;
};

} // namespace

ZELState::ZELState(const QStyleOption& option)
    : enabled(option.state & QStyle::State_Enabled)
    , hover(enabled && (option.state & QStyle::State_MouseOver))
    , pressed(enabled && (option.state & QStyle::State_Sunken))
    , focus(enabled && (option.state & QStyle::State_HasFocus))
    , on(option.state & QStyle::State_On)
{
}

const ZELLook* ZELBox::lookOf(const QWidget* widget)
{
    return dynamic_cast<const ZELLook*>(widget);
}

ZELLook::Shape ZELBox::shapeOf(const QWidget* widget)
{
    const ZELLook* look = lookOf(widget);
    return look ? look->cShape() : ZELLook::Shape::Framed;
}

void ZELBox::paint(QPainter* painter, const QRect& rect) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (BoxParts::fit(*this, painter, rect))
        BoxParts(*this, painter->device()->devicePixelRatioF()).paint(painter, rect);
    else
        paintRounded(painter, *this, rect);
    if (innerLine.isValid()) {
        const qreal width = border.isValid() ? borderWidth : 0;
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

bool ZELBox::coversAll() const
{
    return fill.isOpaque() && radius <= 0 && (!border.isValid() || borderWidth <= 0) &&
           !innerLine.isValid() && !underline.isValid();
}

void ZELBox::apply(const ZELState& state, const ZELLook* look)
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

ZELBox ZELBox::forEdit(const ZELState& state, const ZELLook* look, bool flat)
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

ZELBox ZELBox::forButton(const ZELState& state, const ZELLook* look, bool flat)
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

ZELBox ZELBox::forPushButton(const ZELState& state, const ZELLook* look)
{
    const ZELColors& colors = ZELColors::current();
    using Shape = ZELLook::Shape;
    const Shape shape = look ? look->cShape() : Shape::Framed;
    const bool flat = shape == Shape::Flat || shape == Shape::Tab;
    ZELBox box = forButton(state, look, flat);
    if (shape == Shape::Primary && state.enabled) {
        box.fill = state.pressed ? colors.accentPressed
                   : state.hover ? colors.accentHover
                                 : colors.accent;
        box.border = state.focus ? colors.text : QColor();
        box.innerLine = state.focus ? colors.onAccent : QColor();
    } else if (shape == Shape::Danger && state.enabled && !state.focus) {
        box.border = colors.error;
    } else if (shape == Shape::Tab) {
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
