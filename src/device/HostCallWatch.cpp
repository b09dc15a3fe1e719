// SPDX-License-Identifier: Apache-2.0
#include "device/HostCallWatch.h"

#include <mutex>

namespace {

// Calls under way, the oldest first: a handful, one for each thread that calls the host.
struct Calls
{
    std::mutex mutex;
    std::list<HostCallWatch::Call> list; // guarded by mutex
};

// Never destroyed: a worker may come back from the host while the process ends.
Calls& calls()
{
    static auto* const all = new Calls;
    return *all;
}

} // namespace

HostCallWatch::HostCallWatch(const QString& feature)
{
    Calls& all = calls();
    const std::lock_guard<std::mutex> lock(all.mutex);
    m_call = all.list.insert(all.list.end(), {feature, std::chrono::steady_clock::now()});
}

HostCallWatch::~HostCallWatch()
{
    Calls& all = calls();
    const std::lock_guard<std::mutex> lock(all.mutex);
    all.list.erase(m_call);
}

std::optional<HostCallWatch::Call> HostCallWatch::oldest()
{
    Calls& all = calls();
    const std::lock_guard<std::mutex> lock(all.mutex);
    if (all.list.empty())
        return std::nullopt;
    return all.list.front();
}
