// SPDX-License-Identifier: Apache-2.0
// Look-up tables and colour matrix of the demo camera.
#include "demo/DemoBehaviours.h"
#include "demo/DemoContext.h"

namespace DemoBehaviours {

namespace {

constexpr std::int64_t kTables = 4;
constexpr std::int64_t kTableSize = 1024;
constexpr std::int64_t kStep = 4; // 1024 brightnesses in, 4096 out

// The two features exclude each other.
void exclude(DemoContext& demo, const char* written, const char* other)
{
    demo.behaviours().afterWrite(written, [&demo, written, other] {
        if (demo.integer(written) != 0)
            demo.setInteger(other, 0);
    });
}

} // namespace

void colour(DemoContext& demo)
{
    for (std::int64_t entry = 0; entry < kTables * kTableSize; ++entry)
        demo.setIntegerAt("LUTValueReg", entry, (entry % kTableSize) * kStep);
    exclude(demo, "ColorTransformationEnable", "CCMEnable");
    exclude(demo, "CCMEnable", "ColorTransformationEnable");
}

} // namespace DemoBehaviours
