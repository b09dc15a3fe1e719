// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <chrono>
#include <list>
#include <optional>

// Notes which calls of the host are under way and since when, so that the window can say what it
// waits for. One stands on the stack of each call. Any thread; a lock of its own, inside.
class HostCallWatch
{
public:
    // `feature`: what the call is about; empty for a call about the camera as a whole.
    explicit HostCallWatch(const QString& feature);
    ~HostCallWatch();
    HostCallWatch(const HostCallWatch&) = delete;
    HostCallWatch& operator=(const HostCallWatch&) = delete;

    struct Call
    {
        QString feature;
        std::chrono::steady_clock::time_point since;
    };
    // The call that has been under way longest; none when the host is not being called.
    static std::optional<Call> oldest();

private:
    std::list<Call>::iterator m_call;
};
