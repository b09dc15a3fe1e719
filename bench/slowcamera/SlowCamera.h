// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cameras/Camera.h"

#include <QElapsedTimer>

#include <atomic>
#include <chrono>
#include <mutex>
#include <set>
#include <thread>

// Stands before another camera and lets each of its calls take as long as it is told. Safe from any
// thread; the GUI thread is the one that makes the object.
class SlowCamera : public Camera
{
public:
    // `camera` is not owned.
    explicit SlowCamera(Camera& camera)
        : m_camera(camera)
        , m_guiThread(std::this_thread::get_id())
    {
        m_clock.start();
    }

    const std::string& descriptionXml() const override { return m_camera.descriptionXml(); }
    DeviceRecord deviceRecord() const override { return m_camera.deviceRecord(); }
    int read(int type, const std::string& name, void* record) override
    {
        return slowly(true, [&] { return m_camera.read(type, name, record); });
    }
    int write(int type, const std::string& name, const std::string& text) override
    {
        return slowly(false, [&] { return m_camera.write(type, name, text); });
    }
    int accessMode(const std::string& name, int* mode) override
    {
        return slowly(true, [&] { return m_camera.accessMode(name, mode); });
    }
    int invalidate() override { return m_camera.invalidate(); }
    bool isConnected() const override { return m_camera.isConnected(); }
    int reconnect() override { return m_camera.reconnect(); }

    void setLatencyMs(int milliseconds) { m_latencyMs = milliseconds; }
    // Reads and access-mode calls that the GUI thread made.
    int guiReads() const { return m_guiReads; }

    double nowMs() const { return static_cast<double>(m_clock.nsecsElapsed()) / 1e6; }
    // From now on calls that begin are counted; those that are under way are watched.
    void mark();
    int underWayAtMark() const { return m_underWayAtMark; }
    int begunSinceMark() const { return m_begunSinceMark; }
    // When the last call that was under way at the mark ended; the mark itself without one.
    double markedCallsEndedMs() const;

private:
    template <typename Call>
    int slowly(bool isRead, const Call& call)
    {
        const int ticket = begin(isRead);
        if (const int wait = m_latencyMs)
            std::this_thread::sleep_for(std::chrono::milliseconds(wait));
        const int result = call();
        end(ticket);
        return result;
    }
    int begin(bool isRead);
    void end(int ticket);

    Camera& m_camera; // Not owned.
    const std::thread::id m_guiThread;
    QElapsedTimer m_clock;
    std::atomic<int> m_latencyMs{0};
    std::atomic<int> m_guiReads{0};
    std::atomic<int> m_begunSinceMark{0};
    std::atomic<int> m_underWayAtMark{0};
    mutable std::mutex m_mutex; // guards all below
    int m_nextTicket = 0;
    std::set<int> m_underWay;
    std::set<int> m_marked;
    double m_markedEndMs = 0;
};
