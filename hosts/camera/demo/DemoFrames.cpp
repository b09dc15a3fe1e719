// SPDX-License-Identifier: Apache-2.0
#include "demo/DemoFrames.h"

#include "demo/DemoContext.h"

namespace DemoFrames {

namespace {

constexpr std::int64_t kCounters = 2;
constexpr std::int64_t kFrameStartTrigger = 1; // entry of the trigger selector
constexpr std::int64_t kCounterMaximum = 0xFFFFFFFF;

} // namespace

bool waitForTrigger(DemoContext& demo)
{
    return demo.integerAt("TriggerModeReg", kFrameStartTrigger) != 0;
}

void add(DemoContext& demo, std::int64_t frames)
{
    if (frames <= 0)
        return;
    const std::int64_t number = demo.integer("ChunkFrameID") + frames;
    demo.setInteger("ChunkFrameID", number);
    demo.setInteger("ChunkTimestamp", demo.timestamp());
    demo.setNumberAt("ChunkExposureTimeReg", 0, demo.number("ExposureTime"));
    demo.setNumberAt("ChunkGainReg", 0, demo.numberAt("GainReg", 0));
    demo.setInteger("EventExposureEndFrameID", number);
    demo.setInteger("EventExposureEndTimestamp", demo.timestamp());
    count(demo, FrameStart, frames);
    count(demo, ExposureEnd, frames);
}

void trigger(DemoContext& demo, std::int64_t source, std::int64_t times)
{
    if (times <= 0 || !waitForTrigger(demo) ||
        demo.integerAt("TriggerSourceReg", kFrameStartTrigger) != source)
        return;
    demo.setInteger("TriggerCount", demo.integer("TriggerCount") + times);
    count(demo, FrameTrigger, times);
    if (demo.integer("TLParamsLocked") != 0)
        add(demo, times * demo.integerAt("TriggerMultiplierReg", kFrameStartTrigger));
}

void count(DemoContext& demo, CounterSource source, std::int64_t events)
{
    for (std::int64_t counter = 0; counter < kCounters; ++counter) {
        if (demo.integerAt("CounterEventSourceReg", counter) != source)
            continue;
        const std::int64_t value = demo.integerAt("CounterValueReg", counter) + events;
        demo.setIntegerAt("CounterValueReg", counter, value % (kCounterMaximum + 1));
    }
}

} // namespace DemoFrames
