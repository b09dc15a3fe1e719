// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>

// The time by which simulated cameras live. Implementations are safe to use from any thread.
class CameraClock
{
public:
    virtual ~CameraClock() = default;

    // Time since an arbitrary start; never goes back.
    virtual std::chrono::nanoseconds now() const = 0;

    // Returns when `duration` has passed.
    virtual void sleep(std::chrono::milliseconds duration) = 0;
};
