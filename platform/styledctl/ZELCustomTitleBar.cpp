// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomTitleBar.h"

#include "basetools/QtDifferences.h"
#include "styledctl/ZELCustom.h"
#include "styledctl/ZELCustomPushButton.h"
#include "styledctl/private/ZELColors.h"
#include "styledctl/private/ZELGlyph.h"
#include "styledctl/private/ZELIcon.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QWindow>

namespace {

constexpr int kTitleFontPx = 14;
constexpr int kIconPx = 18;
constexpr int kCloseButtonPx = 32;

} // namespace

ZELCustomTitleBar::ZELCustomTitleBar(QWidget* parent)
    : ZELCustomWidget(parent)
    , m_iconLabel(new QLabel(this))
    , m_textLabel(new QLabel(this))
    , m_close(new ZELCustomPushButton(this, ZELCustomPushButton::Style_Flat))
{
    cSetBackgroundColor(QStringLiteral("StyledCtlColor_TitleBar"));
    m_iconLabel->hide();
    m_textLabel->setFont(ZELCustom::font(kTitleFontPx, QFont::DemiBold));
    m_textLabel->setTextFormat(Qt::PlainText);
    // The text gives way, never the window.
    m_textLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    const ZELColors& colors = ZELColors::current();
    m_close->cSetIcon(ZELGlyph::icon(ZELGlyph::Close, colors.textMuted, colors.text));
    m_close->setFixedSize(kCloseButtonPx, kCloseButtonPx);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(12, 0, 4, 0);
    layout->setSpacing(8);
    layout->addWidget(m_iconLabel);
    layout->addWidget(m_textLabel, 1);
    layout->addWidget(m_close);

    connect(m_close, &ZELCustomPushButton::clicked, this, &ZELCustomTitleBar::cSigCloseClicked);
    translate();
}

void ZELCustomTitleBar::translate()
{
    m_close->setToolTip(tr("Close"));
    m_close->setAccessibleName(tr("Close"));
}

void ZELCustomTitleBar::cSetText(const QString& text)
{
    m_text = text;
    elideText();
}

void ZELCustomTitleBar::cSetIcon(const QIcon& icon)
{
    m_iconLabel->setPixmap(ZELIcon::pixmap(icon, QSize(kIconPx, kIconPx), this));
    m_iconLabel->setVisible(!icon.isNull());
}

void ZELCustomTitleBar::elideText()
{
    const QString shown =
        m_textLabel->fontMetrics().elidedText(m_text, Qt::ElideRight, m_textLabel->width());
    m_textLabel->setText(shown);
    m_textLabel->setToolTip(shown == m_text ? QString() : m_text);
}

void ZELCustomTitleBar::resizeEvent(QResizeEvent* event)
{
    ZELCustomWidget::resizeEvent(event);
    layout()->activate();
    elideText();
}

void ZELCustomTitleBar::changeEvent(QEvent* event)
{
    ZELCustomWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        translate();
}

void ZELCustomTitleBar::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    // The window system's own move where there is one; it also works where programs may not place
    // their windows.
    if (window()->windowHandle() && window()->windowHandle()->startSystemMove())
        return;
    m_dragging = true;
    m_dragOffset = QtDifferences::mouseOnScreen(*event) - window()->pos();
}

void ZELCustomTitleBar::mouseMoveEvent(QMouseEvent* event)
{
    if (m_dragging)
        window()->move(QtDifferences::mouseOnScreen(*event) - m_dragOffset);
}

void ZELCustomTitleBar::mouseReleaseEvent(QMouseEvent* event)
{
    Q_UNUSED(event)
    m_dragging = false;
}
