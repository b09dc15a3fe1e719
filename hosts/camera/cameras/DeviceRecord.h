// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

// What a camera says about itself before any feature is read.
struct DeviceRecord
{
    // Transport codes of this host. 8 is left out on purpose: the feature window gives it a
    // meaning of its own.
    enum Type : std::uint32_t { Simulated = 0, GigEVision = 1, Usb3Vision = 4, GenTl = 256 };

    std::uint32_t type = Simulated;
    std::string name; // UTF-8; the window's title shows it, up to 127 bytes
};
