// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStringList>

#include <atomic>
#include <mutex>

// The calls that a host received, in their order. Safe from any thread.
class CallLog
{
public:
    void add(const QString& call);
    QStringList calls() const;
    int count(const QString& call) const;
    void clear();
    // All that ever came; clear() leaves it.
    qint64 total() const { return m_total; }

private:
    mutable std::mutex m_mutex;
    QStringList m_calls;
    std::atomic<qint64> m_total{0};
};
