// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomDockTitleBar.h"

#include "styledctl/private/ZELColors.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace {

constexpr int kHeight = 31;
constexpr int kInset = 12;

} // namespace

ZELCustomDockTitleBar::ZELCustomDockTitleBar(QWidget* parent)
    : ZELCustomWidget(parent)
{
    setFixedHeight(kHeight);
    QFont strong = font();
    strong.setWeight(QFont::DemiBold);
    setFont(strong);
}

void ZELCustomDockTitleBar::cSetTitleText(const QString& text)
{
    m_text = text;
    setAccessibleName(text);
    update();
}

QSize ZELCustomDockTitleBar::sizeHint() const
{
    return QSize(fontMetrics().horizontalAdvance(m_text) + 2 * kInset, kHeight);
}

QRect ZELCustomDockTitleBar::textRect() const
{
    return rect().adjusted(kInset, 0, -kInset, 0);
}

void ZELCustomDockTitleBar::paintEvent(QPaintEvent* event)
{
    ZELCustomWidget::paintEvent(event);
    const ZELColors& colors = ZELColors::current();
    QPainter painter(this);
    painter.setPen(colors.separator);
    painter.drawLine(rect().bottomLeft(), rect().bottomRight());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(textRect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(m_text, Qt::ElideRight, textRect().width()));
}

bool ZELCustomDockTitleBar::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const bool cut = fontMetrics().horizontalAdvance(m_text) > textRect().width();
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), cut ? m_text : QString(),
                           this);
        return true;
    }
    return ZELCustomWidget::event(event);
}
