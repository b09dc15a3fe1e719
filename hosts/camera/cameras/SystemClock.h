// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cameras/CameraClock.h"

// Real time, as the host program uses it.
class SystemClock : public CameraClock
{
public:
    std::chrono::nanoseconds now() const override;
    void sleep(std::chrono::milliseconds duration) override;
};
