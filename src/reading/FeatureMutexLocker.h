// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "reading/ThreadAnnotations.h"

#include <QMutex>

// Holds a tree's feature mutex for the update of one item, so that the tree's two reading threads
// never update items at the same time. The GUI thread never takes it.
class FeatureMutexLocker
{
public:
    explicit FeatureMutexLocker(QMutex* mutex)
        : m_mutex(mutex)
    {
        m_mutex->lock();
        OBFT_HAPPENS_AFTER(m_mutex);
    }
    ~FeatureMutexLocker()
    {
        OBFT_HAPPENS_BEFORE(m_mutex);
        m_mutex->unlock();
    }
    FeatureMutexLocker(const FeatureMutexLocker&) = delete;
    FeatureMutexLocker& operator=(const FeatureMutexLocker&) = delete;

private:
    QMutex* m_mutex; // Not owned.
};
