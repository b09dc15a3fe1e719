// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomPushButton.h"

#include "styledctl/private/ZELBox.h"
#include "styledctl/private/ZELIcon.h"
#include "styledctl/private/ZELMetrics.h"
#include "styledctl/private/ZELPictures.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleHints>
#include <QStyleOptionButton>

namespace {

constexpr qint64 kGuardMs = 500;
constexpr int kImageMargin = 5;

qint64 monotonicMs()
{
    static const QElapsedTimer timer = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    return timer.elapsed();
}

bool isEnter(const QKeyEvent* event)
{
    return event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
}

} // namespace

ZELCustomPushButton::ZELCustomPushButton(QWidget* parent, StyleSelector style)
    : ZELCustomPushButton(QString(), parent, style)
{
}

ZELCustomPushButton::ZELCustomPushButton(const QString& text, QWidget* parent, StyleSelector style)
    : QPushButton(text, parent)
    , ZELCustomLook(this, style)
{
    setAutoDefault(false);
    setFocusPolicy(Qt::StrongFocus);
    setCheckable(style == Style_Tab);
    cSetClickClock({});
    m_holdTimer.setSingleShot(true);
    connect(&m_holdTimer, &QTimer::timeout, this, &ZELCustomPushButton::onHeld);
    // First of all connections, so that the time stands before anybody handles the click.
    connect(this, &QPushButton::clicked, this, &ZELCustomPushButton::onClicked);
}

void ZELCustomPushButton::cSetIcon(const QString& path)
{
    setIcon(ZELPictures::icon(path));
}

void ZELCustomPushButton::cSetIcon(const QIcon& icon)
{
    setIcon(icon);
}

void ZELCustomPushButton::cSetIconAlign(int align)
{
    m_iconAlign = align;
    update();
}

ZELLook::Shape ZELCustomPushButton::cShape() const
{
    switch (cStyle()) {
    case Style_Primary:
        return Shape::Primary;
    case Style_Flat:
        return Shape::Flat;
    case Style_Tab:
        return Shape::Tab;
    case Style_Danger:
        return Shape::Danger;
    default:
        return Shape::Framed;
    }
}

ZELLook::IconPlace ZELCustomPushButton::cIconPlace() const
{
    return m_iconAlign == Align_Left    ? IconPlace::LeftEdge
           : m_iconAlign == Align_Right ? IconPlace::RightEdge
                                        : IconPlace::BesideText;
}

void ZELCustomPushButton::cSetImages(const QString& normal, const QString& hover,
                                     const QString& pressed, const QString& disabled)
{
    m_images = {normal, hover, pressed, disabled};
    updateGeometry();
    update();
}

void ZELCustomPushButton::cSetControlClickEvent(bool guarded)
{
    m_guarded = guarded;
}

void ZELCustomPushButton::cSetClickClock(std::function<qint64()> clock)
{
    m_clock = clock ? std::move(clock) : std::function<qint64()>(monotonicMs);
}

bool ZELCustomPushButton::isBlocked() const
{
    return m_guarded && m_clickedOnce && m_clock() - m_lastClickMs < kGuardMs;
}

void ZELCustomPushButton::onClicked()
{
    m_clickedOnce = true;
    m_lastClickMs = m_clock();
}

void ZELCustomPushButton::click()
{
    if (!isBlocked())
        QPushButton::click();
}

bool ZELCustomPushButton::event(QEvent* event)
{
    if (event->type() == QEvent::Shortcut && isBlocked())
        return true;
    return QPushButton::event(event);
}

void ZELCustomPushButton::mousePressEvent(QMouseEvent* event)
{
    if (isBlocked())
        return;
    QPushButton::mousePressEvent(event);
    if (event->source() != Qt::MouseEventNotSynthesized && !toolTip().isEmpty())
        m_holdTimer.start(QGuiApplication::styleHints()->mousePressAndHoldInterval());
}

void ZELCustomPushButton::mouseReleaseEvent(QMouseEvent* event)
{
    m_holdTimer.stop();
    QPushButton::mouseReleaseEvent(event);
}

void ZELCustomPushButton::onHeld()
{
    if (!isDown())
        return;
    // A button that is not down is not clicked when the finger leaves it.
    setDown(false);
    QHelpEvent help(QEvent::ToolTip, rect().center(), mapToGlobal(rect().center()));
    QCoreApplication::sendEvent(this, &help);
}

void ZELCustomPushButton::keyPressEvent(QKeyEvent* event)
{
    const bool presses =
        isEnter(event) || event->key() == Qt::Key_Space || event->key() == Qt::Key_Select;
    if (presses && isBlocked())
        return;
    if (isEnter(event)) {
        if (!event->isAutoRepeat())
            click();
        return;
    }
    QPushButton::keyPressEvent(event);
}

QIcon ZELCustomPushButton::image(Image which) const
{
    return ZELPictures::icon(m_images.at(which));
}

// The size of the pictures as they are drawn; the one for fine screens comes behind it.
QSize ZELCustomPushButton::imageSize() const
{
    const QList<QSize> sizes = image(Image_Normal).availableSizes();
    return sizes.isEmpty() ? iconSize() : sizes.constFirst();
}

QSize ZELCustomPushButton::sizeHint() const
{
    if (image(Image_Normal).isNull())
        return QPushButton::sizeHint();
    return imageSize() + QSize(2 * kImageMargin, 2 * kImageMargin);
}

void ZELCustomPushButton::paintEvent(QPaintEvent* event)
{
    if (image(Image_Normal).isNull()) {
        QPushButton::paintEvent(event);
        return;
    }
    QStyleOptionButton option;
    initStyleOption(&option);
    const ZELState state(option);
    const QIcon wanted = image(!state.enabled  ? Image_Disabled
                               : state.pressed ? Image_Pressed
                               : state.hover   ? Image_Hover
                                               : Image_Normal);
    const bool own = !wanted.isNull();
    QPainter painter(this);
    ZELBox::forButton(state, this, true).paint(&painter, rect());
    const QRect room = rect().adjusted(kImageMargin, kImageMargin, -kImageMargin, -kImageMargin);
    if (!state.enabled && !own)
        painter.setOpacity(ZELMetrics::kDisabledIconOpacity);
    QRect place(QPoint(), imageSize().boundedTo(room.size()));
    place.moveCenter(room.center());
    painter.drawPixmap(place.topLeft(),
                       ZELIcon::pixmap(own ? wanted : image(Image_Normal), place.size(), this));
}
