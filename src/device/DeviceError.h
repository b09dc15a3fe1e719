// SPDX-License-Identifier: Apache-2.0
#pragma once

// Error codes of the device layer; everything else that comes out of `err` is the host's own code.
namespace DeviceError {
constexpr int kNoCallback = static_cast<int>(0x80000000U);
constexpr int kNotReadable = static_cast<int>(0x80000106U);
constexpr int kCallbackThrew = -1; // also logged as critical
constexpr int kStopped = -2;       // a worker's call after its stop (StopRequest), any call after
                                   // the release (HostOpening); never logged
} // namespace DeviceError
