// SPDX-License-Identifier: Apache-2.0
#include "support/HostFaults.h"

#include <algorithm>

void HostFaults::fail(const QString& name, int code)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_values.insert(name, code);
}

void HostFaults::failMode(const QString& name, int code)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_modes.insert(name, code);
}

void HostFaults::failAfter(int calls, int code)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_callsLeft = calls;
    m_laterCode = code;
}

void HostFaults::takeTurns(const QString& name, const QVector<int>& modes)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_turns.insert(name, modes);
}

int HostFaults::laterCode()
{
    if (m_callsLeft > 0) {
        --m_callsLeft;
        return 0;
    }
    return m_laterCode;
}

int HostFaults::value(const QString& name)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const int later = laterCode();
    return later != 0 ? later : m_values.value(name);
}

int HostFaults::mode(const QString& name, int* mode)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const int later = laterCode();
    if (const int code = later != 0 ? later : m_modes.value(name))
        return code;
    const auto turns = m_turns.find(name);
    if (turns != m_turns.end() && !turns->isEmpty()) {
        *mode = turns->first();
        std::rotate(turns->begin(), turns->begin() + 1, turns->end());
    }
    return 0;
}
