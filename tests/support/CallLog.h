// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/Guarded.h"

#include <QStringList>

#include <atomic>

// The calls that a host received, in their order. Safe from any thread.
class CallLog : Guarded
{
public:
    void add(const QString& call)
    {
        ++m_total;
        locked([&] { m_calls.append(call); });
    }
    QStringList calls() const { return copied(m_calls); }
    int count(const QString& call) const { return int(calls().count(call)); }
    void clear()
    {
        locked([this] { m_calls.clear(); });
    }
    // All that ever came; clear() leaves it.
    qint64 total() const { return m_total; }

private:
    QStringList m_calls;
    std::atomic<qint64> m_total{0};
};
