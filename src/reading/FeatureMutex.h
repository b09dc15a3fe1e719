// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>

class StopRequest;

// The lock of a tree under which one worker at a time updates one item, or moves one of the
// camera's selectors. Fair: first come, first served, so that the reading threads alternate item by
// item and nobody starves while another takes the lock again at once. The GUI thread never takes
// it. Every operation may be called on any thread; taken through FeatureLock.
class FeatureMutex
{
public:
    FeatureMutex() = default;
    FeatureMutex(const FeatureMutex&) = delete;
    FeatureMutex& operator=(const FeatureMutex&) = delete;

    // Waits for its turn; gives up, with false, once `stop` is requested. Null never gives up.
    bool lock(const StopRequest* stop = nullptr);
    void unlock();
    // How many wait while it is held.
    int waiting() const;

private:
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<unsigned long long> m_queue; // guarded by m_mutex; the first one holds the lock
    unsigned long long m_nextTicket = 0;    // guarded by m_mutex
};

// Holds a feature mutex. A local of a worker. Without a mutex there is nothing to lock, and the
// lock counts as held.
class FeatureLock
{
public:
    // Waits for its turn; gives up once `stop` is requested. Neither is owned.
    explicit FeatureLock(FeatureMutex* mutex, const StopRequest* stop = nullptr)
        : m_mutex(mutex)
        , m_stop(stop)
        , m_bHolds(!mutex || mutex->lock(stop))
    {
    }
    ~FeatureLock()
    {
        if (m_mutex && m_bHolds)
            m_mutex->unlock();
    }
    FeatureLock(const FeatureLock&) = delete;
    FeatureLock& operator=(const FeatureLock&) = delete;

    // False when the wait was given up.
    bool holds() const { return m_bHolds; }
    // Whether somebody else waits for it.
    bool isWaitedFor() const { return m_mutex && m_bHolds && m_mutex->waiting() > 0; }
    // Lets those who wait go first, if anybody does. What the lock guards has to be in order.
    void giveWay()
    {
        if (!isWaitedFor())
            return;
        m_mutex->unlock();
        m_bHolds = m_mutex->lock(m_stop);
    }

private:
    FeatureMutex* const m_mutex;     // Not owned; may be null.
    const StopRequest* const m_stop; // Not owned; may be null.
    bool m_bHolds;
};
