// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cameras/GObjectPointer.h"

typedef struct _ArvDevice ArvDevice;
class RegisterMemory;

// A device of the node-map library whose registers are a RegisterMemory: the node map built on it
// computes as with a real camera, and nothing leaves the process.
namespace SimulatedDevice {

// `memory` is not owned and must outlive the device. Reads and writes always succeed.
GObjectPointer<ArvDevice> create(RegisterMemory* memory);

} // namespace SimulatedDevice
