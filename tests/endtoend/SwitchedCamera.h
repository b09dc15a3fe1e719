// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cameras/Camera.h"

#include <atomic>

// One of two cameras that share a description: the faulty one while the switch is on. Counts the
// calls. Safe from any thread; owns neither.
class SwitchedCamera : public Camera
{
public:
    SwitchedCamera(Camera& sound, Camera& faulty)
        : m_sound(sound)
        , m_faulty(faulty)
    {
    }
    void setFaulty(bool faulty) { m_isFaulty = faulty; }
    int calls() const { return m_calls; }

    const std::string& descriptionXml() const override { return m_faulty.descriptionXml(); }
    DeviceRecord deviceRecord() const override { return m_sound.deviceRecord(); }
    int read(int type, const std::string& name, void* record) override
    {
        return camera().read(type, name, record);
    }
    int write(int type, const std::string& name, const std::string& text) override
    {
        return camera().write(type, name, text);
    }
    int accessMode(const std::string& name, int* mode) override
    {
        return camera().accessMode(name, mode);
    }
    int invalidate() override { return camera().invalidate(); }
    bool isConnected() const override { return m_sound.isConnected(); }
    int reconnect() override { return m_sound.reconnect(); }

private:
    Camera& camera()
    {
        ++m_calls;
        return m_isFaulty ? m_faulty : m_sound;
    }

    Camera& m_sound;
    Camera& m_faulty;
    std::atomic<bool> m_isFaulty{false};
    std::atomic<int> m_calls{0};
};
