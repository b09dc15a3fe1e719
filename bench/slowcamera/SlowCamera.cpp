// SPDX-License-Identifier: Apache-2.0
#include "SlowCamera.h"

void SlowCamera::mark()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_marked = m_underWay;
    m_underWayAtMark = static_cast<int>(m_marked.size());
    m_begunSinceMark = 0;
    m_markedEndMs = nowMs();
}

double SlowCamera::markedCallsEndedMs() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_markedEndMs;
}

int SlowCamera::begin(bool isRead)
{
    if (isRead && std::this_thread::get_id() == m_guiThread)
        ++m_guiReads;
    const std::lock_guard<std::mutex> lock(m_mutex);
    ++m_begunSinceMark;
    m_underWay.insert(++m_nextTicket);
    return m_nextTicket;
}

void SlowCamera::end(int ticket)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_underWay.erase(ticket);
    if (m_marked.erase(ticket) > 0)
        m_markedEndMs = nowMs();
}
