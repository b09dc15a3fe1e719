// SPDX-License-Identifier: Apache-2.0
// Image sizes of the demo camera: a region that no longer fits after binning or decimation shrinks.
#include "demo/DemoBehaviours.h"
#include "demo/DemoContext.h"

#include <algorithm>

namespace DemoBehaviours {

namespace {

constexpr std::int64_t kRegions = 2;

void fit(DemoContext& demo, const char* size, const char* offset, std::int64_t room)
{
    for (std::int64_t region = 0; region < kRegions; ++region) {
        const std::int64_t fitting = std::min(demo.integerAt(size, region), room);
        demo.setIntegerAt(size, region, fitting);
        demo.setIntegerAt(offset, region, std::min(demo.integerAt(offset, region), room - fitting));
    }
}

} // namespace

void imageFormat(DemoContext& demo)
{
    for (const char* feature : {"BinningHorizontal", "DecimationHorizontal"}) {
        demo.behaviours().afterWrite(
            feature, [&demo] { fit(demo, "WidthReg", "OffsetXReg", demo.integer("WidthMax")); });
    }
    for (const char* feature : {"BinningVertical", "DecimationVertical"}) {
        demo.behaviours().afterWrite(
            feature, [&demo] { fit(demo, "HeightReg", "OffsetYReg", demo.integer("HeightMax")); });
    }
}

} // namespace DemoBehaviours
