// SPDX-License-Identifier: Apache-2.0
#include "device/LoadingLane.h"

#include <mutex>

LoadingLane::End LoadingLane::exchange(End next)
{
    static std::mutex s_mutex;
    static End s_last;
    const std::lock_guard<std::mutex> lock(s_mutex);
    return std::exchange(s_last, std::move(next));
}
