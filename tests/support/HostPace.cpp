// SPDX-License-Identifier: Apache-2.0
#include "support/HostPace.h"

#include <QThread>

namespace {

constexpr int kUsInMs = 1000;

}

void HostPace::setJitterMs(int most, unsigned seed)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_jitterMs = most;
    m_random.seed(seed);
}

void HostPace::openGate(const QString& name)
{
    locked([&] { m_closed.remove(name); });
    m_opened.notify_all();
}

void HostPace::openAllGates()
{
    locked([&] { m_closed.clear(); });
    m_opened.notify_all();
}

int HostPace::jitterUs()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_jitterMs > 0 ? std::uniform_int_distribution<int>(0, m_jitterMs * kUsInMs)(m_random)
                          : 0;
}

void HostPace::pass(const QString& name)
{
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        if (m_callsToGate > 0 && --m_callsToGate == 0)
            m_closed.insert(name);
        if (m_closed.contains(name)) {
            ++m_waiting[name];
            m_opened.wait(lock, [&] { return !m_closed.contains(name); });
            --m_waiting[name];
        }
    }
    const int wait = m_latencyMs * kUsInMs + jitterUs();
    if (wait > 0)
        QThread::usleep(static_cast<unsigned long>(wait));
}
