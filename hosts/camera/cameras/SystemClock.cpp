// SPDX-License-Identifier: Apache-2.0
#include "cameras/SystemClock.h"

#include <thread>

std::chrono::nanoseconds SystemClock::now() const
{
    return std::chrono::steady_clock::now().time_since_epoch();
}

void SystemClock::sleep(std::chrono::milliseconds duration)
{
    std::this_thread::sleep_for(duration);
}
