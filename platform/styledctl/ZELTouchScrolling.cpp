// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELTouchScrolling.h"

#include "basetools/QtDifferences.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QScroller>
#include <QStyleHints>
#include <QTouchEvent>

namespace {

constexpr double kMetresPerInch = 0.0254;

void sendMouse(QEvent::Type type, QWidget* widget, const QPoint& at, Qt::MouseButtons buttons)
{
    const QPointF local = widget->mapFromGlobal(at);
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, local, widget->window()->mapFromGlobal(at), at, button, buttons,
                      Qt::NoModifier, Qt::MouseEventSynthesizedByApplication);
    QApplication::sendEvent(widget, &event);
}

} // namespace

ZELTouchScrolling::ZELTouchScrolling(QAbstractScrollArea* area)
    : QObject(area)
    , m_pArea(area)
    , m_pViewport(area->viewport())
    , m_policy(area->focusPolicy())
{
    area->setFocusPolicy(Qt::FocusPolicy(m_policy & Qt::TabFocus));
    m_pViewport->setAttribute(Qt::WA_AcceptTouchEvents);
    m_pViewport->installEventFilter(this);
    m_clock.start();
    m_holdTimer.setSingleShot(true);
    connect(&m_holdTimer, &QTimer::timeout, this, &ZELTouchScrolling::askForMenu);

    QScrollerProperties properties;
    for (const auto policy : {QScrollerProperties::VerticalOvershootPolicy,
                              QScrollerProperties::HorizontalOvershootPolicy})
        properties.setScrollMetric(policy, QScrollerProperties::OvershootAlwaysOff);
    const double dragPx = QGuiApplication::styleHints()->startDragDistance();
    properties.setScrollMetric(QScrollerProperties::DragStartDistance,
                               dragPx / m_pViewport->physicalDpiY() * kMetresPerInch);
    scroller()->setScrollerProperties(properties);
}

QScroller* ZELTouchScrolling::scroller() const
{
    return QScroller::scroller(m_pViewport);
}

bool ZELTouchScrolling::isFinger(const QEvent& event) const
{
    switch (event.type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel: {
        const auto* device = static_cast<const QTouchEvent&>(event).device();
        using Type = decltype(device->type());
        return device && device->type() == Type::TouchScreen;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease: {
        const Qt::MouseEventSource source = static_cast<const QMouseEvent&>(event).source();
        return source == Qt::MouseEventSynthesizedByQt ||
               source == Qt::MouseEventSynthesizedBySystem;
    }
    default:
        return false;
    }
}

bool ZELTouchScrolling::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_pViewport && event->type() == QEvent::Hide)
        giveUp();
    const bool wheel = event->type() == QEvent::Wheel;
    if (watched == m_pViewport && (wheel || event->type() == QEvent::MouseButtonPress) &&
        event->spontaneous() && !isFinger(*event))
        focusArea(wheel ? Qt::WheelFocus : Qt::ClickFocus);
    if (watched != m_pViewport || !isFinger(*event))
        return QObject::eventFilter(watched, event);
    event->accept();
    const auto* mouse = dynamic_cast<QMouseEvent*>(event);
    const auto* touch = dynamic_cast<QTouchEvent*>(event);
    if (event->type() == QEvent::TouchCancel || (touch && QtDifferences::fingers(*touch) != 1)) {
        giveUp();
        return true;
    }
    const QPoint at =
        mouse ? QtDifferences::mouseOnScreen(*mouse) : QtDifferences::fingerOnScreen(*touch);
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        put(at);
        break;
    case QEvent::TouchEnd:
    case QEvent::MouseButtonRelease:
        lift(at);
        break;
    default:
        move(at);
        break;
    }
    return true;
}

void ZELTouchScrolling::put(const QPoint& at)
{
    m_bDown = true;
    // A finger on rows that still run stops them, and does nothing else.
    m_bStays = scroller()->state() != QScroller::Scrolling;
    m_start = at;
    scroller()->handleInput(QScroller::InputPress, m_pViewport->mapFromGlobal(at),
                            m_clock.elapsed());
    if (m_bStays)
        m_holdTimer.start(QGuiApplication::styleHints()->mousePressAndHoldInterval());
}

void ZELTouchScrolling::move(const QPoint& at)
{
    if (!m_bDown)
        return;
    if ((at - m_start).manhattanLength() > QGuiApplication::styleHints()->startDragDistance()) {
        m_bStays = false;
        m_holdTimer.stop();
    }
    scroller()->handleInput(QScroller::InputMove, m_pViewport->mapFromGlobal(at),
                            m_clock.elapsed());
}

void ZELTouchScrolling::lift(const QPoint& at)
{
    if (!m_bDown)
        return;
    move(at);
    m_bDown = false;
    m_holdTimer.stop();
    scroller()->handleInput(QScroller::InputRelease, m_pViewport->mapFromGlobal(at),
                            m_clock.elapsed());
    if (m_bStays)
        click();
}

void ZELTouchScrolling::giveUp()
{
    m_bDown = m_bStays = false;
    m_holdTimer.stop();
    scroller()->stop();
}

void ZELTouchScrolling::focusArea(Qt::FocusPolicy wanted)
{
    if ((m_policy & wanted) == wanted && m_pArea->isEnabled() && !m_pArea->hasFocus())
        m_pArea->setFocus(Qt::MouseFocusReason);
}

// Only presses of the window system give the focus by themselves.
void ZELTouchScrolling::focusByClick(QWidget* widget)
{
    while (widget != m_pViewport &&
           !(widget->isEnabled() && (widget->focusPolicy() & Qt::ClickFocus)))
        widget = widget->parentWidget();
    if (widget == m_pViewport)
        focusArea(Qt::ClickFocus);
    else
        widget->setFocus(Qt::MouseFocusReason);
}

QWidget* ZELTouchScrolling::target() const
{
    QWidget* child = m_pViewport->childAt(m_pViewport->mapFromGlobal(m_start));
    return child ? child : m_pViewport;
}

void ZELTouchScrolling::click()
{
    const QPoint at = m_start;
    // What is clicked may go, and the area with it.
    const QPointer<QWidget> clicked(target());
    const QPointer<QWidget> viewport(m_pViewport);
    focusByClick(clicked);
    const struct
    {
        QEvent::Type type;
        Qt::MouseButtons buttons;
    } events[] = {{QEvent::MouseMove, Qt::NoButton},
                  {QEvent::MouseButtonPress, Qt::LeftButton},
                  {QEvent::MouseButtonRelease, Qt::NoButton}};
    for (const auto& event : events) {
        if (clicked)
            sendMouse(event.type, clicked, at, event.buttons);
    }
    if (!clicked || clicked == viewport || !clicked->isVisible() ||
        QApplication::activePopupWidget())
        return;
    QHelpEvent help(QEvent::ToolTip, clicked->mapFromGlobal(at), at);
    QApplication::sendEvent(clicked, &help);
}

void ZELTouchScrolling::askForMenu()
{
    const QPoint at = m_start;
    QWidget* held = target();
    giveUp();
    QContextMenuEvent event(QContextMenuEvent::Other, held->mapFromGlobal(at), at);
    QApplication::sendEvent(held, &event);
}
