// SPDX-License-Identifier: Apache-2.0
// Acquisition of the demo camera: locks, frames, and what counts or reports them.
#include "demo/DemoBehaviours.h"
#include "demo/DemoContext.h"
#include "demo/DemoFrames.h"

#include <memory>

namespace DemoBehaviours {

namespace {

enum AcquisitionMode : std::int64_t { SingleFrame = 0, MultiFrame = 1 };
enum StatusSignal : std::int64_t {
    AcquisitionTriggerWait,
    AcquisitionActive,
    FrameTriggerWait,
    FrameActive,
    ExposureActive
};

struct AcquisitionState
{
    bool running = false;
    double lastTick = 0.0;  // seconds
    double part = 0.0;      // of the frame in progress
    std::int64_t left = -1; // frames until the camera stops by itself; negative: no end
};

void showStatus(DemoContext& demo, const AcquisitionState& state)
{
    const bool waiting = state.running && DemoFrames::waitForTrigger(demo);
    const auto show = [&demo](StatusSignal signal, bool on) {
        demo.setIntegerAt("AcquisitionStatusReg", signal, on ? 1 : 0);
    };
    show(AcquisitionTriggerWait, false);
    show(AcquisitionActive, state.running);
    show(FrameTriggerWait, waiting);
    show(FrameActive, state.running && !waiting);
    show(ExposureActive, state.running && !waiting);
}

void stop(DemoContext& demo, AcquisitionState& state)
{
    state.running = false;
    demo.setInteger("TLParamsLocked", 0);
    showStatus(demo, state);
}

void start(DemoContext& demo, AcquisitionState& state)
{
    const std::int64_t mode = demo.integer("AcquisitionMode");
    state = AcquisitionState();
    state.running = true;
    state.lastTick = demo.secondsSincePowerUp();
    if (mode == SingleFrame)
        state.left = 1;
    else if (mode == MultiFrame)
        state.left = demo.integer("AcquisitionFrameCount");
    demo.setInteger("TLParamsLocked", 1);
    showStatus(demo, state);
}

// Frames that the free-running sensor delivers as time passes.
void deliver(DemoContext& demo, AcquisitionState& state)
{
    const double now = demo.secondsSincePowerUp();
    const double passed = now - state.lastTick;
    state.lastTick = now;
    if (!state.running)
        return;
    showStatus(demo, state);
    if (DemoFrames::waitForTrigger(demo))
        return;
    state.part += passed * demo.number("ResultingFrameRate");
    auto frames = static_cast<std::int64_t>(state.part);
    state.part -= static_cast<double>(frames);
    if (state.left >= 0 && frames >= state.left) {
        frames = state.left;
        stop(demo, state);
    } else if (state.left >= 0) {
        state.left -= frames;
    }
    DemoFrames::add(demo, frames);
}

} // namespace

void acquisition(DemoContext& demo)
{
    auto state = std::make_shared<AcquisitionState>();
    BehaviourTable& table = demo.behaviours();
    table.onPowerUp([state] { *state = AcquisitionState(); });
    table.onTick([&demo, state] { deliver(demo, *state); });
    table.afterWrite("AcquisitionStart", [&demo, state] { start(demo, *state); });
    table.afterWrite("AcquisitionStop", [&demo, state] { stop(demo, *state); });
    table.afterWrite("AcquisitionAbort", [&demo, state] { stop(demo, *state); });
}

} // namespace DemoBehaviours
