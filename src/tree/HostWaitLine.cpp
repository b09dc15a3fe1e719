// SPDX-License-Identifier: Apache-2.0
#include "tree/HostWaitLine.h"

#include "device/HostCallWatch.h"
#include "styledctl/ZELCustom.h"

#include <QEvent>

namespace {

constexpr int kRefreshMs = 250;
constexpr int kFontPx = 13;
constexpr int kMargin = 6;
constexpr int kLeft = 14; // where the description begins
constexpr std::chrono::seconds kWorthSaying(1);

} // namespace

HostWaitLine::HostWaitLine(const std::function<QString(const QString&)>& nameOf, QWidget* parent)
    : QLabel(parent)
    , m_nameOf(nameOf)
{
    setObjectName(QStringLiteral("HostWaitLine"));
    setTextFormat(Qt::PlainText);
    setFont(ZELCustom::font(kFontPx));
    setContentsMargins(kLeft, kMargin, kMargin, kMargin);
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText,
                    ZELCustom::getDataBaseColor(QStringLiteral("StyledCtlColor_Warning")));
    setPalette(colors);
    hide();
    parent->installEventFilter(this);
    m_timer.setInterval(kRefreshMs);
    connect(&m_timer, &QTimer::timeout, this, &HostWaitLine::refresh);
}

bool HostWaitLine::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parent() && event->type() == QEvent::Show) {
        m_timer.start();
    } else if (watched == parent() && event->type() == QEvent::Hide) {
        m_timer.stop();
        hide();
    }
    return QLabel::eventFilter(watched, event);
}

void HostWaitLine::refresh()
{
    const std::optional<HostCallWatch::Call> call = HostCallWatch::oldest();
    const auto lasts = call ? std::chrono::steady_clock::now() - call->since
                            : std::chrono::steady_clock::duration::zero();
    if (lasts < kWorthSaying) {
        hide();
        return;
    }
    const QString seconds =
        QString::number(std::chrono::duration_cast<std::chrono::seconds>(lasts).count());
    const QString name = m_nameOf(call->feature);
    setText(name.isEmpty() ? tr("Waiting for the camera (%1 s)").arg(seconds)
                           : tr("Waiting for the camera: %1 (%2 s)").arg(name, seconds));
    show();
}
