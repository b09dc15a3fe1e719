// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomMainWindow.h"

#include "styledctl/ZELCustomPushButton.h"
#include "styledctl/ZELCustomTitleBar.h"
#include "styledctl/ZELCustomWidget.h"
#include "styledctl/private/ZELColors.h"

#include <QKeyEvent>
#include <QPainter>
#include <QSizeGrip>
#include <QVBoxLayout>

namespace {

constexpr int kTitleHeight = 36;
constexpr int kShadowPx = 8;
constexpr int kGripPx = 14;

} // namespace

ZELCustomMainWindow::ZELCustomMainWindow(QWidget* parent)
    : QDialog(parent, Qt::Window | Qt::FramelessWindowHint)
    , m_title(new ZELCustomTitleBar(this))
    , m_content(new ZELCustomWidget(this))
    , m_contentLayout(new QVBoxLayout(m_content))
    , m_grip(new QSizeGrip(this))
{
    // A dialog of a window that stays on top would disappear behind it.
    if (parent && (parent->window()->windowFlags() & Qt::WindowStaysOnTopHint))
        setWindowFlag(Qt::WindowStaysOnTopHint);
    setPalette(ZELColors::current().palette);
    m_title->setFixedHeight(kTitleHeight);
    m_content->cSetBackgroundColor(QStringLiteral("StyledCtlColor_Surface"));
    m_contentLayout->setContentsMargins(0, 0, 0, 0);
    m_contentLayout->setSpacing(0);
    m_grip->setFixedSize(kGripPx, kGripPx);

    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(0);
    layout->addWidget(m_title);
    layout->addWidget(m_content, 1);
    updateMargins();

    connect(m_title, &ZELCustomTitleBar::cSigCloseClicked, this, &QWidget::close);
}

void ZELCustomMainWindow::cSetTitleText(const QString& text)
{
    m_title->cSetText(text);
    setWindowTitle(text);
}

QString ZELCustomMainWindow::cTitleText() const
{
    return m_title->cText();
}

void ZELCustomMainWindow::cSetTitleIcon(const QIcon& icon)
{
    m_title->cSetIcon(icon);
    setWindowIcon(icon);
}

void ZELCustomMainWindow::cSetTitleHeight(int height)
{
    m_title->setFixedHeight(height);
}

void ZELCustomMainWindow::cSetTitleVisible(bool visible)
{
    m_title->setVisible(visible);
    updateMargins();
}

bool ZELCustomMainWindow::cIsTitleVisible() const
{
    return !m_title->isHidden();
}

void ZELCustomMainWindow::cEnableDefaultShadow(bool enable)
{
    m_shadow = enable;
    setAttribute(Qt::WA_TranslucentBackground, enable);
    updateMargins();
}

QRect ZELCustomMainWindow::frameRect() const
{
    const int margin = m_shadow ? kShadowPx : 0;
    return rect().adjusted(margin, margin, -margin, -margin);
}

void ZELCustomMainWindow::updateMargins()
{
    const int margin = (m_shadow ? kShadowPx : 0) + 1;
    layout()->setContentsMargins(margin, margin, margin, margin);
    setAttribute(Qt::WA_OpaquePaintEvent, !m_shadow); // else what is behind it is painted, too
    updateGrip();
    update();
}

void ZELCustomMainWindow::updateGrip()
{
    const bool resizable = minimumSize() != maximumSize() && isWindow();
    m_grip->setVisible(resizable);
    m_grip->move(frameRect().bottomRight() - QPoint(kGripPx, kGripPx));
    m_grip->raise();
}

void ZELCustomMainWindow::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    const ZELColors& colors = ZELColors::current();
    QPainter painter(this);
    const QRect frame = frameRect();
    if (m_shadow) {
        // Rings of growing strength towards the frame.
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        QColor shade = colors.shadow;
        shade.setAlphaF(colors.shadow.alphaF() / (2 * kShadowPx));
        painter.setBrush(shade);
        for (int grow = kShadowPx; grow > 0; --grow) {
            painter.drawRoundedRect(frame.adjusted(-grow, -grow + 1, grow, grow), grow + 2,
                                    grow + 2);
        }
        painter.setRenderHint(QPainter::Antialiasing, false);
    }
    painter.fillRect(frame, colors.surface);
    painter.setPen(colors.windowBorder);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(frame.adjusted(0, 0, -1, -1));
    if (cIsTitleVisible()) {
        painter.setPen(colors.window);
        const int y = m_title->geometry().bottom();
        painter.drawLine(frame.left() + 1, y, frame.right() - 1, y);
    }
}

void ZELCustomMainWindow::keyPressEvent(QKeyEvent* event)
{
    if (m_dialogKeys) {
        switch (event->key()) {
        case Qt::Key_Escape:
            reject();
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            accept();
            return;
        default:
            break;
        }
    }
    // Not QDialog's: it would press a button.
    QWidget::keyPressEvent(event); // NOLINT(bugprone-parent-virtual-call)
}

void ZELCustomMainWindow::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    updateGrip();
}

void ZELCustomMainWindow::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    updateGrip();
    if (!focusWidget())
        focusContent();
}

void ZELCustomMainWindow::focusContent()
{
    // Without this the close button, first in the window, would have the focus at first.
    for (QWidget* w = nextInFocusChain(); w != this; w = w->nextInFocusChain()) {
        if (w != m_title->cCloseButton() && (w->focusPolicy() & Qt::TabFocus) && w->isEnabled() &&
            w->isVisibleTo(this)) {
            w->setFocus(Qt::OtherFocusReason);
            return;
        }
    }
}

void ZELCustomMainWindow::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::ActivationChange)
        update();
}
