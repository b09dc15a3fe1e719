// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Camera.h"
#include "CameraError.h"

#include <QString>
#include <QStringList>

#include <atomic>
#include <functional>
#include <mutex>

// Stands before another camera: notes what is written to it, can be unplugged, and can refuse to
// write or read a feature. Any thread, but for the two hooks.
class PluggedCamera : public Camera
{
public:
    explicit PluggedCamera(Camera& camera)
        : m_camera(camera)
    {
    }

    // Called before each write or read, on the calling thread. Set them while nothing calls.
    std::function<void(const QString& name)> beforeWrite;
    std::function<void(const QString& name)> beforeRead;

    void unplug() { m_unplugged = true; }
    void refuse(const QString& name)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_refused = name;
    }
    void refuseToRead(const QString& name)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_unreadable = name;
    }
    // As "Width 640"; commands as their name.
    QStringList writes() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_writes;
    }
    void clearWrites()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_writes.clear();
    }

    const std::string& descriptionXml() const override { return m_camera.descriptionXml(); }
    DeviceRecord deviceRecord() const override { return m_camera.deviceRecord(); }
    int read(int type, const std::string& name, void* record) override
    {
        const QString feature = QString::fromStdString(name);
        if (beforeRead)
            beforeRead(feature);
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            if (feature == m_unreadable)
                return CameraError::NotReadable;
        }
        return m_unplugged ? CameraError::NotConnected : m_camera.read(type, name, record);
    }
    int write(int type, const std::string& name, const std::string& text) override
    {
        const QString feature = QString::fromStdString(name);
        if (beforeWrite)
            beforeWrite(feature);
        if (m_unplugged)
            return CameraError::NotConnected;
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            if (feature == m_refused)
                return CameraError::NotWritable;
            m_writes += (feature + QLatin1Char(' ') + QString::fromStdString(text)).trimmed();
        }
        return m_camera.write(type, name, text);
    }
    int accessMode(const std::string& name, int* mode) override
    {
        return m_unplugged ? CameraError::NotConnected : m_camera.accessMode(name, mode);
    }
    int invalidate() override { return m_camera.invalidate(); }
    bool isConnected() const override { return !m_unplugged && m_camera.isConnected(); }
    int reconnect() override { return m_camera.reconnect(); }

private:
    Camera& m_camera; // Not owned.
    std::atomic<bool> m_unplugged{false};
    mutable std::mutex m_mutex; // guards what is below
    QString m_refused;
    QString m_unreadable;
    QStringList m_writes;
};
