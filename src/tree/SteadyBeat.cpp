// SPDX-License-Identifier: Apache-2.0
#include "tree/SteadyBeat.h"

#include <algorithm>
#include <utility>

SteadyBeat::SteadyBeat(std::function<void()> action)
    : m_action(std::move(action))
{
}

SteadyBeat::~SteadyBeat()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_bQuit = true;
    }
    m_changed.notify_all();
    if (m_thread.joinable())
        m_thread.join();
}

void SteadyBeat::start(std::chrono::milliseconds period)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_period = std::max(period, std::chrono::milliseconds(1));
        m_next = Clock::now() + m_period;
        m_bRunning = true;
        m_bHeld = false;
        ensureThread();
    }
    m_changed.notify_all();
}

void SteadyBeat::stop()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_bRunning = false;
        m_bOnce = false;
        m_bHeld = false;
    }
    m_changed.notify_all();
}

void SteadyBeat::requestStop()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_bHeld = true;
    m_bOnce = false;
}

void SteadyBeat::waitForAction()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return !m_bInAction; });
}

void SteadyBeat::runOnce()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_bInAction)
            return;
        m_bOnce = true;
        ensureThread();
    }
    m_changed.notify_all();
}

bool SteadyBeat::isRunning() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_bRunning;
}

SteadyBeat::Clock::time_point SteadyBeat::beatAfter(Clock::time_point beat, Clock::duration period,
                                                    Clock::time_point now)
{
    return now < beat ? beat : beat + period * ((now - beat) / period + 1);
}

void SteadyBeat::ensureThread()
{
    if (!m_thread.joinable())
        m_thread = std::thread([this] { run(); });
}

void SteadyBeat::run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_bQuit) {
        const bool beats = m_bRunning && !m_bHeld;
        const bool due = beats && Clock::now() >= m_next;
        if (due || m_bOnce) {
            m_bOnce = false;
            m_bInAction = true;
            lock.unlock();
            m_action();
            lock.lock();
            m_bInAction = false;
            m_changed.notify_all();
            if (m_bRunning)
                m_next = beatAfter(m_next, m_period, Clock::now());
        } else if (beats) {
            m_changed.wait_until(lock, m_next);
        } else {
            m_changed.wait(lock);
        }
    }
}
