// SPDX-License-Identifier: Apache-2.0
#include "support/CallLog.h"

void CallLog::add(const QString& call)
{
    ++m_total;
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_calls.append(call);
}

QStringList CallLog::calls() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_calls;
}

int CallLog::count(const QString& call) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_calls.count(call);
}

void CallLog::clear()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_calls.clear();
}
