// SPDX-License-Identifier: Apache-2.0
// Colour matrix of the demo camera: that of the user and the standard transformation exclude each
// other.
#include "demo/DemoBehaviours.h"
#include "demo/DemoContext.h"

namespace DemoBehaviours {

namespace {

void exclude(DemoContext& demo, const char* written, const char* other)
{
    demo.behaviours().afterWrite(written, [&demo, written, other] {
        if (demo.integer(written) != 0)
            demo.setInteger(other, 0);
    });
}

} // namespace

void colourMatrix(DemoContext& demo)
{
    exclude(demo, "ColorTransformationEnable", "CCMEnable");
    exclude(demo, "CCMEnable", "ColorTransformationEnable");
}

} // namespace DemoBehaviours
