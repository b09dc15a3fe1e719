// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStringList>

#include <atomic>
#include <mutex>

// The calls that a host received, in their order. Safe from any thread.
class CallLog
{
public:
    void add(const QString& call)
    {
        ++m_total;
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_calls.append(call);
    }
    QStringList calls() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_calls;
    }
    int count(const QString& call) const { return int(calls().count(call)); }
    void clear()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_calls.clear();
    }
    // All that ever came; clear() leaves it.
    qint64 total() const { return m_total; }

private:
    mutable std::mutex m_mutex;
    QStringList m_calls;
    std::atomic<qint64> m_total{0};
};
