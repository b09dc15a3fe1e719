// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

class DemoContext;

// Frames of the demo camera and everything that numbers them.
namespace DemoFrames {

// True when frames come only by trigger.
bool waitForTrigger(DemoContext& demo);

// Counts `frames` more frames: frame numbers, time stamps, chunk values, event values, counters.
void add(DemoContext& demo, std::int64_t frames);

// Counter event sources that the demo camera counts, as the description numbers them.
enum CounterSource : std::int64_t { FrameTrigger = 1, FrameStart = 2, ExposureEnd = 3, Line0 = 4 };

// Triggers the frame start so many times, if it waits for that entry of the trigger source.
void trigger(DemoContext& demo, std::int64_t source, std::int64_t times);

// Adds to every counter with that source.
void count(DemoContext& demo, CounterSource source, std::int64_t events);

} // namespace DemoFrames
