// SPDX-License-Identifier: Apache-2.0
#include "reading/FeatureMutex.h"

#include "device/StopRequest.h"

#include <algorithm>
#include <chrono>

namespace {

// How often a waiting thread looks at its stop request.
constexpr std::chrono::milliseconds kStopCheck(5);

} // namespace

bool FeatureMutex::lock(const StopRequest* stop)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    const auto ticket = m_nextTicket++;
    m_queue.push_back(ticket);
    const auto isMyTurn = [this, ticket] { return m_queue.front() == ticket; };
    if (!stop) {
        m_changed.wait(lock, isMyTurn);
        return true;
    }
    while (!isMyTurn() && !stop->isRequested())
        m_changed.wait_for(lock, kStopCheck);
    if (!stop->isRequested())
        return true;
    m_queue.erase(std::find(m_queue.begin(), m_queue.end(), ticket));
    m_changed.notify_all();
    return false;
}

void FeatureMutex::unlock()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_queue.pop_front();
    }
    m_changed.notify_all();
}

int FeatureMutex::waiting() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_queue.empty() ? 0 : static_cast<int>(m_queue.size()) - 1;
}
