// SPDX-License-Identifier: Apache-2.0
#include "demo/DemoBehaviours.h"

namespace DemoBehaviours {

void install(DemoContext& demo)
{
    constexpr void (*kAll[])(DemoContext&) = {
        time,   acquisition, trigger,   autoFunctions, imageFormat, colour,       colourMatrix,
        inputs, encoders,    sequencer, userSets,      files,       slowCommands,
    };
    for (auto* behaviour : kAll)
        behaviour(demo);
}

} // namespace DemoBehaviours
