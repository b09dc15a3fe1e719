// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cameras/SimulatedCamera.h"
#include "demo/BehaviourTable.h"
#include "demo/DemoContext.h"

#include <atomic>
#include <memory>

// The simulated camera that the host opens when nothing else is asked for: our own description and
// behaviour behind it. Its time comes from the clock that it is given, so that tests decide when
// something happens; without one it lives in real time.
//
// "DeviceReset" takes the camera away for kRestartTime; then reconnect() succeeds and the camera
// has forgotten everything but its user sets.
class DemoCamera : public SimulatedCamera
{
public:
    // `clock` is not owned and must outlive the camera; null for real time.
    explicit DemoCamera(CameraClock* clock = nullptr);
    ~DemoCamera() override;

    // The demo description, as it is compiled into the program.
    static QByteArray description();

    DeviceRecord deviceRecord() const override;
    bool isConnected() const override { return !m_restarting; }
    int reconnect() override;

    // Names that the behaviours use and the description lacks; empty unless one of them is wrong.
    std::string missingNames() const;

    static constexpr std::chrono::seconds kRestartTime{3};

protected:
    int enter() override;
    void aboutToRead(const std::string& name) override;
    int aboutToWrite(const std::string& name, const std::string& text) override;
    void written(const std::string& name, const std::string& text) override;

private:
    void restart();

    std::unique_ptr<CameraClock> m_ownClock;
    CameraClock& m_clock; // Not owned, or m_ownClock.
    BehaviourTable m_behaviours;
    std::unique_ptr<DemoContext> m_context;
    RegisterMemory m_stateAtPowerUp;
    std::chrono::nanoseconds m_backAt{0}; // end of the restart
    std::atomic<bool> m_restarting{false};
};
