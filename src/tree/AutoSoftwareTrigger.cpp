// SPDX-License-Identifier: Apache-2.0
#include "tree/AutoSoftwareTrigger.h"

#include "device/OBDeviceControl.h"

namespace {

constexpr unsigned int kLongestMs = 1000000000;
const QLatin1String kTriggerSoftware("TriggerSoftware");

} // namespace

AutoSoftwareTrigger::AutoSoftwareTrigger(QObject* parent)
    : QObject(parent)
    , m_beat([] { OBDeviceControl::SetCommandNodeValue(kTriggerSoftware); })
{
}

void AutoSoftwareTrigger::start(unsigned int intervalMs)
{
    m_beat.start(std::chrono::milliseconds(qBound(1U, intervalMs, kLongestMs)));
    emit SigChanged(true);
}

void AutoSoftwareTrigger::stop()
{
    const bool running = m_beat.isRunning();
    m_beat.stop();
    if (running)
        emit SigChanged(false);
}

void AutoSoftwareTrigger::stopAndWait()
{
    const bool running = m_beat.isRunning();
    m_beat.stop();
    m_beat.waitForAction();
    if (running)
        emit SigChanged(false);
}

void AutoSoftwareTrigger::featureWent(const QString& name)
{
    if (name != kTriggerSoftware || !m_beat.isRunning())
        return;
    qInfo("Automatic software trigger: switched off, %s is not available any more",
          kTriggerSoftware.data());
    stop();
}
