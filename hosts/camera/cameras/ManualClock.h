// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cameras/CameraClock.h"

#include <atomic>

// Time that stands still until a test moves it. sleep() moves it and returns at once.
class ManualClock : public CameraClock
{
public:
    std::chrono::nanoseconds now() const override { return std::chrono::nanoseconds(m_now.load()); }
    void sleep(std::chrono::milliseconds duration) override { advance(duration); }

    void advance(std::chrono::nanoseconds duration) { m_now += duration.count(); }

private:
    std::atomic<std::chrono::nanoseconds::rep> m_now{0};
};
