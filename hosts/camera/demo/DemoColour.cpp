// SPDX-License-Identifier: Apache-2.0
// Look-up tables of the demo camera.
#include "demo/DemoBehaviours.h"
#include "demo/DemoContext.h"

namespace DemoBehaviours {

namespace {

constexpr std::int64_t kTables = 4;
constexpr std::int64_t kTableSize = 1024;
constexpr std::int64_t kStep = 4; // 1024 brightnesses in, 4096 out

} // namespace

void colour(DemoContext& demo)
{
    for (std::int64_t entry = 0; entry < kTables * kTableSize; ++entry)
        demo.setIntegerAt("LUTValueReg", entry, (entry % kTableSize) * kStep);
}

} // namespace DemoBehaviours
