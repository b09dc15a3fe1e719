// SPDX-License-Identifier: Apache-2.0
#include "demo/DemoCamera.h"

#include "cameras/CameraError.h"
#include "cameras/SystemClock.h"
#include "demo/DemoBehaviours.h"

#include <QFile>

// Resources of a static library must be named once; the macro does not work inside a namespace.
static void useResources()
{
    Q_INIT_RESOURCE(cameras);
}

QByteArray DemoCamera::description()
{
    useResources();
    QFile file(QStringLiteral(":/camera/demo-camera.xml"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

DemoCamera::DemoCamera(CameraClock* clock)
    : SimulatedCamera(description())
    , m_ownClock(clock ? nullptr : new SystemClock)
    , m_clock(clock ? *clock : *m_ownClock)
{
    if (!m_map)
        return;
    m_stateAtPowerUp = m_memory.copyOf(DemoContext::kFirstState, DemoContext::kLastState);
    m_context = std::make_unique<DemoContext>(*m_map, m_memory, m_clock, m_behaviours);
    DemoBehaviours::install(*m_context);
    m_behaviours.powerUp(m_clock.now());
}

DemoCamera::~DemoCamera() = default;

DeviceRecord DemoCamera::deviceRecord() const
{
    DeviceRecord record;
    record.type = DeviceRecord::GigEVision;
    record.name = nodes().modelName();
    return record;
}

int DemoCamera::reconnect()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_restarting)
        return CameraError::Ok;
    if (m_clock.now() < m_backAt)
        return CameraError::NotConnected;
    restart();
    return CameraError::Ok;
}

std::string DemoCamera::missingNames() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_context ? m_context->missingNames() : "(no node map)";
}

int DemoCamera::enter()
{
    if (const int error = SimulatedCamera::enter())
        return error;
    m_behaviours.run(m_clock.now());
    return CameraError::Ok;
}

void DemoCamera::aboutToRead(const std::string& name)
{
    m_behaviours.runBeforeRead(name);
}

int DemoCamera::aboutToWrite(const std::string& name, const std::string& /*text*/)
{
    return m_behaviours.runBeforeWrite(name);
}

void DemoCamera::written(const std::string& name, const std::string& /*text*/)
{
    if (name == "DeviceReset") {
        m_restarting = true;
        m_backAt = m_clock.now() + kRestartTime;
        return;
    }
    m_behaviours.runAfterWrite(name);
}

void DemoCamera::restart()
{
    m_memory.replace(DemoContext::kFirstState, DemoContext::kLastState, m_stateAtPowerUp);
    m_behaviours.powerUp(m_clock.now());
    m_restarting = false;
}
