// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cameras/Camera.h"
#include "cameras/CameraClock.h"
#include "faults/FaultPlan.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <random>
#include <vector>

// Stands before another camera and does wrong what its plan says; everything else passes through.
class FaultyCamera : public Camera
{
public:
    // `camera` and `clock` are not owned and must outlive this object; no clock means real time.
    FaultyCamera(Camera& camera, FaultPlan plan, CameraClock* clock = nullptr);
    ~FaultyCamera() override;

    const std::string& descriptionXml() const override { return m_xml; }
    DeviceRecord deviceRecord() const override { return m_camera.deviceRecord(); }
    int read(int type, const std::string& name, void* record) override;
    int write(int type, const std::string& name, const std::string& text) override;
    int accessMode(const std::string& name, int* mode) override;
    int invalidate() override;
    bool isConnected() const override;
    int reconnect() override;

    // Times that a rule of the plan has taken effect, by its position in the plan.
    long effects(std::size_t rule) const;

private:
    using Rules = std::vector<const FaultPlan::Rule*>;

    // The rules that take effect on this call, after having taken the time they cost and with
    // `error` set to the answer that one of them gives, if any.
    Rules begin(FaultPlan::Operation operation, const std::string& name, int* error);
    bool isLocked(const std::string& name) const;
    void noteWritten(const std::string& name);

    struct RuleState
    {
        long matched = 0;
        long effects = 0;
        bool locked = false; // of a lock rule: the feature that locks was written
    };

    Camera& m_camera; // Not owned.
    const FaultPlan m_plan;
    std::unique_ptr<CameraClock> m_ownClock;
    CameraClock& m_clock; // Not owned, or m_ownClock.
    std::string m_xml;
    std::atomic<bool> m_disconnected{false};
    mutable std::mutex m_mutex; // guards the two below; never held while the camera is called
    std::vector<RuleState> m_states;
    std::mt19937 m_random;
};
