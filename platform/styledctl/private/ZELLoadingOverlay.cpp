// SPDX-License-Identifier: Apache-2.0
#include "styledctl/private/ZELLoadingOverlay.h"

#include "styledctl/ZELCustom.h"
#include "styledctl/private/ZELColors.h"

#include <QEvent>
#include <QPainter>
#include <QTimerEvent>

namespace {

constexpr int kHeight = 36;
constexpr int kInset = 14;
constexpr int kSpinner = 18;
constexpr int kGap = 10;
constexpr int kBottomDistance = 28;
constexpr int kRowDistance = 44;
constexpr int kFontPx = 13;
constexpr int kTickMs = 40;
constexpr int kDegreesPerTick = 14;
constexpr int kArcDegrees = 260;

} // namespace

ZELLoadingOverlay::ZELLoadingOverlay(QWidget* host, int row)
    : QWidget(host)
    , m_row(row)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setFont(ZELCustom::font(kFontPx, QFont::Medium));
    host->installEventFilter(this);
    hide();
}

void ZELLoadingOverlay::setText(const QString& text)
{
    m_text = text;
    setAccessibleName(text);
    place();
    update();
}

void ZELLoadingOverlay::place()
{
    const QSize host = parentWidget()->size();
    const int text = m_text.isEmpty() ? 0 : kGap + fontMetrics().horizontalAdvance(m_text);
    const int width = qMin(2 * kInset + kSpinner + text, qMax(kHeight, host.width() - 16));
    const int bottom = host.height() - kBottomDistance - m_row * kRowDistance;
    setGeometry((host.width() - width) / 2, qMax(0, bottom - kHeight), width, kHeight);
    raise();
}

QRect ZELLoadingOverlay::spinnerRect() const
{
    return QRect(kInset, (height() - kSpinner) / 2, kSpinner, kSpinner);
}

bool ZELLoadingOverlay::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parent() && event->type() == QEvent::Resize && !isHidden())
        place();
    return QWidget::eventFilter(watched, event);
}

void ZELLoadingOverlay::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    const ZELColors& colors = ZELColors::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colors.borderStrong, 1));
    painter.setBrush(colors.overlay);
    const QRectF pill = QRectF(rect()).adjusted(.5, .5, -.5, -.5);
    painter.drawRoundedRect(pill, pill.height() / 2, pill.height() / 2);

    const QRectF ring = QRectF(spinnerRect()).adjusted(1.5, 1.5, -1.5, -1.5);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colors.border, 2.5));
    painter.drawEllipse(ring);
    painter.setPen(QPen(colors.accent, 2.5, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(ring, -m_angle * 16, (360 - kArcDegrees) * 16);

    const int left = kInset + kSpinner + kGap;
    const QRect room(left, 0, width() - left - kInset, height());
    painter.setPen(colors.text);
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(m_text, Qt::ElideRight, room.width() + 1));
}

void ZELLoadingOverlay::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_timer.timerId()) {
        QWidget::timerEvent(event);
        return;
    }
    m_angle = (m_angle + kDegreesPerTick) % 360;
    update(spinnerRect());
}

void ZELLoadingOverlay::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_timer.start(kTickMs, this);
}

void ZELLoadingOverlay::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    m_timer.stop();
}
