// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QSet>
#include <QString>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <random>

// How long the calls of a host in memory take: always the same, up to so long at random, or until a
// gate opens. Safe from any thread.
class HostPace
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
    void closeGate(const QString& name);
    void openGate(const QString& name);
    void openAllGates();
    // Calls of the name that wait at its gate now.
    int waitingAt(const QString& name) const;

    // For the host: a call of the name has come. Returns when it may go on.
    void pass(const QString& name);

private:
    int jitterUs();

    std::atomic<int> m_latencyMs{0};
    mutable std::mutex m_mutex; // guards all below; never held while a call sleeps
    std::condition_variable m_opened;
    int m_jitterMs = 0;
    std::mt19937 m_random;
    QSet<QString> m_closed;
    QHash<QString, int> m_waiting;
};
