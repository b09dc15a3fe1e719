// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/Guarded.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <atomic>
#include <condition_variable>
#include <random>

// How long the calls of a host in memory take: always the same, up to so long at random, or until a
// gate opens. Safe from any thread.
class HostPace : Guarded
{
public:
    HostPace() = default;
    ~HostPace() { openAllGates(); }
    HostPace(const HostPace&) = delete;
    HostPace& operator=(const HostPace&) = delete;

    void setLatencyMs(int milliseconds) { m_latencyMs = milliseconds; }
    // Besides the latency, from none to this much.
    void setJitterMs(int most, unsigned seed);
    // Calls of the name wait from now on until the gate opens.
    void closeGate(const QString& name)
    {
        locked([&] { m_closed.insert(name); });
    }
    // The call that is so many further, whatever its name, closes the gate of its name.
    void closeGateAtCall(int call)
    {
        locked([&] { m_callsToGate = call; });
    }
    void openGate(const QString& name);
    void openAllGates();
    // Calls of the name that wait at its gate now.
    int waitingAt(const QString& name) const
    {
        return locked([&] { return m_waiting.value(name); });
    }

    // For the host: a call of the name has come. Returns when it may go on.
    void pass(const QString& name);

private:
    int jitterUs();

    std::atomic<int> m_latencyMs{0};
    // The mutex guards all below, and is never held while a call sleeps.
    std::condition_variable m_opened;
    int m_jitterMs = 0;
    std::mt19937 m_random;
    int m_callsToGate = 0;
    QSet<QString> m_closed;
    QHash<QString, int> m_waiting;
};
