// SPDX-License-Identifier: Apache-2.0
#include "faults/FaultyCamera.h"

#include "cameras/CameraError.h"
#include "cameras/SystemClock.h"
#include "faults/FaultyRecords.h"

#include <OBFeatureTree/OBFeatureTree.h>

#include <algorithm>
#include <utility>

FaultyCamera::FaultyCamera(Camera& camera, FaultPlan plan, CameraClock* clock)
    : m_camera(camera)
    , m_plan(std::move(plan))
    , m_ownClock(clock ? nullptr : new SystemClock)
    , m_clock(clock ? *clock : *m_ownClock)
    , m_xml(FaultyRecords::spoilDescription(m_plan, camera.descriptionXml()))
    , m_states(m_plan.rules.size())
    , m_random(m_plan.seed)
{
}

FaultyCamera::~FaultyCamera() = default;

FaultyCamera::Rules FaultyCamera::begin(FaultPlan::Operation operation, const std::string& name,
                                        int* error)
{
    Rules active;
    std::chrono::milliseconds pause(0);
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        for (std::size_t i = 0; i < m_plan.rules.size(); ++i) {
            const FaultPlan::Rule& rule = m_plan.rules[i];
            RuleState& state = m_states[i];
            if ((rule.operations & operation) == 0 || !rule.matches(name) ||
                rule.kind == FaultPlan::Lock)
                continue;
            ++state.matched;
            if (state.matched <= rule.after || state.effects >= rule.times)
                continue;
            ++state.effects;
            active.push_back(&rule);
            if (rule.kind == FaultPlan::Jitter)
                pause += std::chrono::milliseconds(
                    std::uniform_int_distribution<int>(0, rule.milliseconds)(m_random));
            else
                pause += std::chrono::milliseconds(rule.milliseconds);
        }
    }
    if (pause.count() > 0)
        m_clock.sleep(pause);
    *error = CameraError::Ok;
    for (const FaultPlan::Rule* rule : active) {
        if (rule->kind == FaultPlan::Disconnect)
            m_disconnected = true;
        else if (rule->kind == FaultPlan::Error)
            *error = rule->code;
        else if (rule->kind == FaultPlan::Vanish)
            *error = CameraError::NodeNotFound;
    }
    if (m_disconnected)
        *error = CameraError::NotConnected;
    return active;
}

bool FaultyCamera::isLocked(const std::string& name) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (std::size_t i = 0; i < m_plan.rules.size(); ++i) {
        if (m_states[i].locked && m_plan.rules[i].matches(name))
            return true;
    }
    return false;
}

void FaultyCamera::noteWritten(const std::string& name)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (std::size_t i = 0; i < m_plan.rules.size(); ++i) {
        if (m_plan.rules[i].kind != FaultPlan::Lock || m_plan.rules[i].word != name)
            continue;
        m_states[i].locked = true;
        ++m_states[i].effects;
    }
}

int FaultyCamera::read(int type, const std::string& name, void* record)
{
    int error = CameraError::Ok;
    const Rules active = begin(FaultPlan::OnRead, name, &error);
    if (error != CameraError::Ok)
        return error;
    error = m_camera.read(type, name, record);
    if (error != CameraError::Ok)
        return error;
    for (const FaultPlan::Rule* rule : active)
        FaultyRecords::spoil(*rule, type, record);
    return CameraError::Ok;
}

int FaultyCamera::write(int type, const std::string& name, const std::string& text)
{
    int error = CameraError::Ok;
    begin(FaultPlan::OnWrite, name, &error);
    if (error != CameraError::Ok)
        return error;
    if (isLocked(name))
        return CameraError::NotWritable;
    error = m_camera.write(type, name, text);
    if (error == CameraError::Ok)
        noteWritten(name);
    return error;
}

int FaultyCamera::accessMode(const std::string& name, int* mode)
{
    int error = CameraError::Ok;
    const Rules active = begin(FaultPlan::OnMode, name, &error);
    *mode = OB_FT_ACCESS_NOT_IMPLEMENTED;
    if (error != CameraError::Ok)
        return error;
    error = m_camera.accessMode(name, mode);
    if (error != CameraError::Ok)
        return error;
    if (*mode == OB_FT_ACCESS_READ_WRITE && isLocked(name))
        *mode = OB_FT_ACCESS_READ_ONLY;
    for (const FaultPlan::Rule* rule : active) {
        if (rule->kind == FaultPlan::Mode)
            *mode = rule->code;
    }
    return CameraError::Ok;
}

int FaultyCamera::invalidate()
{
    return m_disconnected ? static_cast<int>(CameraError::NotConnected) : m_camera.invalidate();
}

bool FaultyCamera::isConnected() const
{
    return !m_disconnected && m_camera.isConnected();
}

int FaultyCamera::reconnect()
{
    m_disconnected = false;
    return m_camera.reconnect();
}

long FaultyCamera::effects(std::size_t rule) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_states.at(rule).effects;
}
