// SPDX-License-Identifier: Apache-2.0
#include "main/ReadingProgressLine.h"

#include "styledctl/ZELCustom.h"

#include <QEvent>
#include <QPainter>

namespace {

constexpr int kHeight = 4;
constexpr int kGap = 2; // to the line under the tab, which is of another kind
constexpr int kRefreshMs = 100;

} // namespace

ReadingProgressLine::ReadingProgressLine(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("ReadingProgressLine"));
    setFixedHeight(kHeight);
    m_timer.setInterval(kRefreshMs);
    connect(&m_timer, &QTimer::timeout, this, &ReadingProgressLine::refresh);
}

double ReadingProgressLine::fraction() const
{
    return m_progress.total > 0 ? static_cast<double>(m_progress.done) / m_progress.total : -1.0;
}

void ReadingProgressLine::refresh()
{
    const Progress now = m_source ? m_source() : Progress();
    if (now.done == m_progress.done && now.total == m_progress.total)
        return;
    m_progress = now;
    showTexts();
    update();
}

void ReadingProgressLine::showTexts()
{
    const QString text =
        m_progress.total > 0
            ? tr("Reading features: %1 of %2").arg(m_progress.done).arg(m_progress.total)
            : QString();
    setToolTip(text);
    setAccessibleName(text);
}

void ReadingProgressLine::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    refresh();
    m_timer.start();
}

void ReadingProgressLine::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    m_timer.stop();
}

void ReadingProgressLine::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        showTexts();
}

void ReadingProgressLine::paintEvent(QPaintEvent*)
{
    if (fraction() < 0)
        return;
    QPainter painter(this);
    const QRect track = rect().adjusted(0, kGap, 0, 0);
    QColor color = ZELCustom::getDataBaseColor(QStringLiteral("CommonColor_Font_Little_Black"));
    painter.fillRect(QRect(track.topLeft(), QSize(qRound(fraction() * width()), track.height())),
                     color);
    color.setAlphaF(0.25);
    painter.fillRect(track, color);
}
