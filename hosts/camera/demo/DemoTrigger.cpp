// SPDX-License-Identifier: Apache-2.0
// Software trigger and counters of the demo camera.
#include "demo/DemoBehaviours.h"
#include "demo/DemoContext.h"
#include "demo/DemoFrames.h"

namespace DemoBehaviours {

namespace {

constexpr std::int64_t kFrameStartTrigger = 1; // entry of the trigger selector
constexpr std::int64_t kOn = 1;
constexpr std::int64_t kSoftware = 0; // entry of the trigger source

void triggerBySoftware(DemoContext& demo)
{
    const std::int64_t trigger = demo.integer("TriggerSelector");
    if (trigger == kFrameStartTrigger) {
        DemoFrames::trigger(demo, kSoftware, 1);
        return;
    }
    if (demo.integerAt("TriggerModeReg", trigger) != kOn ||
        demo.integerAt("TriggerSourceReg", trigger) != kSoftware)
        return;
    demo.setInteger("TriggerCount", demo.integer("TriggerCount") + 1);
}

} // namespace

void trigger(DemoContext& demo)
{
    demo.behaviours().afterWrite("TriggerSoftware", [&demo] { triggerBySoftware(demo); });
    demo.behaviours().afterWrite("CounterReset", [&demo] {
        const std::int64_t counter = demo.integer("CounterSelector");
        demo.setIntegerAt("CounterValueAtResetReg", counter,
                          demo.integerAt("CounterValueReg", counter));
        demo.setIntegerAt("CounterValueReg", counter, 0);
    });
}

} // namespace DemoBehaviours
