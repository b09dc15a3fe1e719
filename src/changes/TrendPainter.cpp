// SPDX-License-Identifier: Apache-2.0
#include "changes/TrendPainter.h"

#include "changes/TrendPicture.h"
#include "styledctl/ZELCustom.h"

#include <QPainter>

#include <algorithm>
#include <limits>

namespace {

constexpr int kMargin = 8;
constexpr int kGap = 6;
constexpr int kTextPx = 12;
constexpr int kNumberPx = 11;
constexpr double kLineWidth = 1.5;
constexpr double kDotRadius = 3;

QColor colour(const char* name)
{
    return ZELCustom::getDataBaseColor(QLatin1String("TrendPanelColor_") + QLatin1String(name));
}

class Plot
{
public:
    Plot(QPainter* painter, const QRect& area, const TrendPicture& picture)
        : m_painter(*painter)
        , m_picture(picture)
        , m_metrics(ZELCustom::font(kNumberPx))
    {
        int left = 0;
        for (const TrendPicture::Tick& tick : picture.values)
            left = std::max(left, m_metrics.horizontalAdvance(tick.text));
        const int head = QFontMetrics(ZELCustom::font(kTextPx)).height() + kGap;
        m_plot = area.adjusted(left + kGap, head + m_metrics.height() / 2, -kMargin,
                               -m_metrics.height() - kGap / 2);
    }

    void paint()
    {
        m_painter.setFont(ZELCustom::font(kNumberPx));
        paintValues();
        paintTimes();
        paintCurve();
    }

private:
    double x(qint64 ms) const
    {
        const TrendNumber span = m_picture.times.first().value;
        return m_plot.right() - double((m_picture.nowMs - ms) / span) * (m_plot.width() - 1);
    }
    double y(TrendNumber value) const
    {
        const TrendNumber low = m_picture.values.first().value;
        const TrendNumber high = m_picture.values.last().value;
        return m_plot.bottom() - double((value - low) / (high - low)) * (m_plot.height() - 1);
    }

    void paintValues()
    {
        double lastText = std::numeric_limits<double>::max();
        for (const TrendPicture::Tick& tick : m_picture.values) {
            const double at = y(tick.value);
            m_painter.setPen(colour("Grid"));
            m_painter.drawLine(QPointF(m_plot.left(), at), QPointF(m_plot.right(), at));
            if (lastText - at < m_metrics.height())
                continue;
            lastText = at;
            m_painter.setPen(colour("Label"));
            m_painter.drawText(
                QRectF(0, at - m_metrics.height() / 2.0, m_plot.left() - kGap, m_metrics.height()),
                Qt::AlignRight | Qt::AlignVCenter, tick.text);
        }
    }

    // Every one, every second one ... as many as have room.
    int stride() const
    {
        const int steps = int(m_picture.times.size()) - 1;
        int widest = 0;
        for (const TrendPicture::Tick& tick : m_picture.times)
            widest = std::max(widest, m_metrics.horizontalAdvance(tick.text) + 2 * kGap);
        for (int stride = 1; stride < steps; ++stride) {
            if (steps % stride == 0 && m_plot.width() * stride / steps >= widest)
                return stride;
        }
        return std::max(1, steps);
    }

    void paintTimes()
    {
        const int every = stride();
        for (int i = 0; i < m_picture.times.size(); ++i) {
            const TrendPicture::Tick& tick = m_picture.times.at(i);
            const double at = x(m_picture.nowMs - qint64(tick.value));
            m_painter.setPen(colour("Grid"));
            m_painter.drawLine(QPointF(at, m_plot.top()), QPointF(at, m_plot.bottom()));
            if (i % every != 0)
                continue;
            const double width = m_metrics.horizontalAdvance(tick.text) + 1;
            // The last one ends with the plot.
            const double left = std::min(at - width / 2, m_plot.right() + kMargin - width);
            m_painter.setPen(colour("Label"));
            m_painter.drawText(
                QRectF(left, m_plot.bottom() + kGap / 2.0, width, m_metrics.height()),
                Qt::AlignCenter, tick.text);
        }
    }

    void paintCurve()
    {
        m_painter.setRenderHint(QPainter::Antialiasing);
        m_painter.setPen(QPen(colour("Line"), kLineWidth));
        const TrendCurve::Step* before = nullptr;
        for (const TrendCurve::Step& step : m_picture.curve.steps) {
            TrendNumber low = step.low;
            TrendNumber high = step.high;
            if (before && before->toMs == step.fromMs) {
                low = std::min(low, before->value);
                high = std::max(high, before->value);
            }
            const double from = x(step.fromMs);
            if (low < high)
                m_painter.drawLine(QPointF(from, y(low)), QPointF(from, y(high)));
            m_painter.drawLine(QPointF(from, y(step.value)), QPointF(x(step.toMs), y(step.value)));
            before = &step;
        }
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(colour("Line"));
        m_painter.drawEllipse(QPointF(x(before->toMs), y(before->value)), kDotRadius, kDotRadius);
    }

    QPainter& m_painter;
    const TrendPicture& m_picture;
    QFontMetrics m_metrics;
    QRect m_plot;
};

void paintHead(QPainter* painter, const QRect& area, const TrendPicture& picture)
{
    const QFontMetrics metrics(ZELCustom::font(kTextPx));
    painter->setFont(ZELCustom::font(kTextPx));
    painter->setPen(colour("Text"));
    const QRect head(area.left(), area.top(), area.width() - kMargin, metrics.height());
    painter->drawText(head, Qt::AlignRight | Qt::AlignVCenter, picture.summary);
    const int left = head.width() - metrics.horizontalAdvance(picture.summary) - 2 * kGap;
    painter->setPen(colour("Label"));
    painter->drawText(head, Qt::AlignLeft | Qt::AlignVCenter,
                      metrics.elidedText(picture.name, Qt::ElideRight, left));
}

} // namespace

void TrendPainter::paint(QPainter* painter, const QRect& area, const TrendPicture& picture)
{
    painter->save();
    const QRect inner = area.adjusted(kMargin, kGap, 0, -kGap / 2);
    if (picture.curve.isEmpty()) {
        painter->setFont(ZELCustom::font(kTextPx));
        painter->setPen(colour("Label"));
        painter->drawText(inner.adjusted(0, 0, -kMargin, 0), Qt::AlignCenter | Qt::TextWordWrap,
                          picture.empty);
    } else {
        paintHead(painter, inner, picture);
        Plot(painter, inner, picture).paint();
    }
    painter->restore();
}
