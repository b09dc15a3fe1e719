// SPDX-License-Identifier: Apache-2.0
#include "support/HostFaults.h"

#include <algorithm>

void HostFaults::failAfter(int calls, int code)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_callsLeft = calls;
    m_laterCode = code;
}

int HostFaults::laterCode()
{
    if (m_callsLeft > 0) {
        --m_callsLeft;
        return 0;
    }
    return m_laterCode;
}

int HostFaults::value(const QString& name, const QString& call)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const int later = laterCode();
    return later != 0 ? later : m_values.value(call, m_values.value(name));
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
