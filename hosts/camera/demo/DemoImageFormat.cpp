// SPDX-License-Identifier: Apache-2.0
// Image sizes of the demo camera: a region that no longer fits after binning or decimation shrinks,
// and the line pitch follows the width and the pixel format.
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

// Rows lie in memory without gaps unless the user has chosen a pitch.
void followPitch(DemoContext& demo)
{
    constexpr std::int64_t kBitsPerByte = 8;
    if (demo.integer("LinePitchEnable") == 0)
        demo.setInteger("LinePitchReg",
                        demo.integerAt("WidthReg", 0) * demo.integer("PixelBits") / kBitsPerByte);
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
    for (const char* feature :
         {"Width", "PixelFormat", "BinningHorizontal", "DecimationHorizontal", "LinePitchEnable"})
        demo.behaviours().afterWrite(feature, [&demo] { followPitch(demo); });
}

} // namespace DemoBehaviours
