// SPDX-License-Identifier: Apache-2.0
#include "lut/LUTPainter.h"

#include "lut/LUTLine.h"
#include "lut/LUTPlot.h"
#include "styledctl/ZELCustom.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr int kOffset = LUTPlot::kOffsetPx;
constexpr int kSize = LUTPlot::kSizePx;
constexpr int kQuarters = 4;
constexpr int kNumberFontPx = 11;
constexpr int kCaptionFontPx = 12;
constexpr double kLineWidth = 2.0;
// Neighbouring samples that stand farther apart are points of a coarse table, not a line.
constexpr double kLongestSegmentPx = 3.0;
constexpr double kHandlePx = 7.0;
constexpr int kHandleRoomPx = 5;

QColor colour(const char* name)
{
    return ZELCustom::getDataBaseColor(QLatin1String("QLUTDrawWidgetColor_") + QLatin1String(name));
}

QRectF plotRect()
{
    return QRectF(kOffset, kOffset, kSize, kSize);
}

// The numbers at an axis that starts at 0: the first, the middle and the last value.
std::array<int, 3> axisNumbers(int last)
{
    return {0, static_cast<int>((qint64(last) + 1) / 2 - 1), last};
}

} // namespace

LUTPainter::LUTPainter(QPainter& painter, const LUTPlot& plot)
    : m_painter(painter)
    , m_plot(plot)
{
}

void LUTPainter::InitBackground(const QRect& area, const Texts& texts)
{
    m_painter.fillRect(area, colour("Background"));
    drawGrid();
    m_painter.setPen(colour("Label_Font1"));
    m_painter.setFont(ZELCustom::font(kNumberFontPx));
    drawIndexNumbers();
    drawValueNumbers();
    m_painter.setPen(colour("Label_Font2"));
    m_painter.setFont(ZELCustom::font(kCaptionFontPx));
    m_painter.drawText(QRect(kOffset, kOffset + kSize + 18, kSize, 18), Qt::AlignCenter,
                       texts.index);
    m_painter.drawText(QRect(4, 4, kSize, 18), Qt::AlignLeft | Qt::AlignVCenter, texts.value);
}

void LUTPainter::drawGrid()
{
    m_painter.setPen(QPen(colour("Grid"), 1.0));
    for (int i = 0; i <= kQuarters; ++i) {
        const int at = kOffset + i * kSize / kQuarters;
        m_painter.drawLine(at, kOffset, at, kOffset + kSize);
        m_painter.drawLine(kOffset, at, kOffset + kSize, at);
    }
}

void LUTPainter::drawIndexNumbers()
{
    // The plot's right edge is one beyond the last index, which is what the user wants to read.
    for (const int number : axisNumbers(m_plot.pointCount() - 1)) {
        const int x = kOffset + static_cast<int>(std::lround(m_plot.pixelX(number)));
        m_painter.drawText(QRect(x - 30, kOffset + kSize + 3, 60, 14), Qt::AlignCenter,
                           QString::asprintf("%d", number));
    }
}

// Numbers that are too wide for the margin stand upright along the axis.
void LUTPainter::drawValueNumbers()
{
    constexpr int kMarginPx = kOffset - 4;
    const std::array<int, 3> numbers = axisNumbers(m_plot.maxValue());
    const int widest =
        m_painter.fontMetrics().horizontalAdvance(QString::asprintf("%d", numbers.back()));
    for (const int number : numbers) {
        const QString text = QString::asprintf("%d", number);
        const double y = kOffset + m_plot.pixelY(number);
        const int advance = m_painter.fontMetrics().horizontalAdvance(text);
        if (widest <= kMarginPx) {
            // Short ones keep clear of a handle on the axis.
            const int right = qBound(kMarginPx - kHandleRoomPx, advance + 1, kMarginPx);
            m_painter.drawText(QRectF(0, y - 8, right, 16), Qt::AlignRight | Qt::AlignVCenter,
                               text);
            continue;
        }
        // Within the plot's height, so that the highest one does not run into the caption.
        const double half = std::min(kSize / 2.0, advance / 2.0 + 1.0);
        m_painter.save();
        m_painter.translate(kMarginPx - 7, qBound(kOffset + half, y, kOffset + kSize - half));
        m_painter.rotate(-90);
        m_painter.drawText(QRectF(-kSize / 2.0, -8, kSize, 16), Qt::AlignCenter, text);
        m_painter.restore();
    }
}

void LUTPainter::drawDynamicLine(const LUTLine& line)
{
    m_painter.save();
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.setClipRect(plotRect().adjusted(-1, -1, 1, 1));
    m_painter.translate(kOffset, kOffset);
    m_painter.setPen(QPen(colour("Line"), kLineWidth, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    const auto sample = [&](int k) {
        const int index = m_plot.sampleIndex(k);
        return m_plot.pixelOf({index, line.valueAt(index)});
    };
    QPointF from = sample(0);
    for (int k = 1; k < kSize; ++k) {
        const QPointF to = sample(k);
        if (std::abs(to.x() - from.x()) < kLongestSegmentPx) {
            m_painter.drawLine(from, to);
        } else {
            m_painter.drawPoint(from);
            m_painter.drawPoint(to);
        }
        from = to;
    }
    m_painter.restore();
}

void LUTPainter::drawHandles(const LUTLine& line, bool focus)
{
    LUTPoints handles = line.handles();
    int filled = focus || line.isDragging() ? line.selected() : LUTLine::kNone;
    if (handles.isEmpty() && filled != LUTLine::kNone && !line.isDragging()) {
        // A line without handles shows which of its points the keyboard moves.
        handles.append(line.selectedPoint());
        filled = 0;
    }
    m_painter.save();
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.translate(kOffset, kOffset);
    m_painter.setPen(QPen(colour("Label_Font2"), 1.5));
    for (int i = 0; i < handles.size(); ++i) {
        const double size = i == filled ? kHandlePx + 2.0 : kHandlePx;
        QRectF box(0, 0, size, size);
        box.moveCenter(m_plot.pixelOf(handles.at(i)));
        m_painter.setBrush(colour(i == filled ? "Label_Font2" : "Background"));
        m_painter.drawEllipse(box);
    }
    m_painter.restore();
}

void LUTPainter::drawFocusFrame()
{
    m_painter.setBrush(Qt::NoBrush);
    m_painter.setPen(QPen(colour("Line"), 1.0));
    m_painter.drawRect(plotRect().adjusted(-3, -3, 3, 3));
}

void LUTPainter::drawProgress(const QString& text, int done, int total)
{
    // Above the plot: the loading sign covers the lower middle of the window.
    m_painter.setPen(colour("Label_Font1"));
    m_painter.setFont(ZELCustom::font(kNumberFontPx));
    m_painter.drawText(QRect(kOffset, 4, kSize, 16), Qt::AlignRight | Qt::AlignVCenter, text);
    const QRectF bar(kOffset, kOffset - 8, kSize, 3);
    m_painter.fillRect(bar, colour("Grid"));
    m_painter.fillRect(QRectF(bar.topLeft(), QSizeF(bar.width() * done / total, bar.height())),
                       colour("Line"));
}
