// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cameras/Camera.h"

#include <QStringList>

#include <condition_variable>
#include <mutex>

// Stands before another camera, notes every call, holds single ones until they are released, and
// adds two enumerations, "AaMany" and "AaManyGuru", of which each entry asks a feature of its own
// whether it is available. Safe from any thread.
class HeldCamera : public Camera
{
public:
    static constexpr int kEntries = 40;

    // `camera` is not owned.
    explicit HeldCamera(Camera& camera);

    const std::string& descriptionXml() const override { return m_xml; }
    DeviceRecord deviceRecord() const override { return m_camera.deviceRecord(); }
    int read(int type, const std::string& name, void* record) override;
    int write(int type, const std::string& name, const std::string& text) override;
    int accessMode(const std::string& name, int* mode) override;
    int invalidate() override { return m_camera.invalidate(); }
    bool isConnected() const override { return m_camera.isConnected(); }
    int reconnect() override { return m_camera.reconnect(); }

    // Calls so far, as "get Width", "set Width=640", "mode Width".
    QStringList calls() const;
    void forget();
    // The next such call waits until release(); "set Width" is one with any value.
    void hold(const QString& call);
    // Calls that wait now.
    int held() const;
    void release();
    void release(const QString& call);

private:
    void pass(const QString& call);

    Camera& m_camera; // Not owned.
    std::string m_xml;
    mutable std::mutex m_mutex; // guards all below
    std::condition_variable m_released;
    QStringList m_toHold;
    QStringList m_holding;
    QStringList m_calls;
};
