// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "reading/ThreadAnnotations.h"

#include <QMutex>

#include <atomic>

// Holds a tree's feature mutex while a worker of a page moves one of the camera's selectors: no
// reading pass then takes what another entry has for that of the selected one. Gives up waiting
// when the worker is told to stop. A local of the worker.
class StoppableFeatureLock
{
public:
    // Without a mutex there is nothing to lock.
    StoppableFeatureLock(QMutex* mutex, const std::atomic<bool>& stop)
        : m_mutex(mutex)
    {
        while (m_mutex && !stop && !m_bLocked)
            m_bLocked = m_mutex->tryLock(kLockTryMs);
        if (m_bLocked)
            OBFT_HAPPENS_AFTER(m_mutex);
    }
    ~StoppableFeatureLock()
    {
        if (!m_bLocked)
            return;
        OBFT_HAPPENS_BEFORE(m_mutex);
        m_mutex->unlock();
    }
    StoppableFeatureLock(const StoppableFeatureLock&) = delete;
    StoppableFeatureLock& operator=(const StoppableFeatureLock&) = delete;

    bool isLocked() const { return m_bLocked; }

private:
    static constexpr int kLockTryMs = 20;

    QMutex* const m_mutex; // Not owned.
    bool m_bLocked = false;
};
