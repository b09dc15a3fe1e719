// SPDX-License-Identifier: Apache-2.0
// Lines of the demo camera: a square wave comes in on line 0, the others put out what their sources
// and strobes say.
#include "demo/DemoBehaviours.h"
#include "demo/DemoContext.h"
#include "demo/DemoFrames.h"

#include <array>
#include <cmath>
#include <memory>

namespace DemoBehaviours {

namespace {

constexpr std::int64_t kLines = 4;
constexpr std::int64_t kOutput = 1;         // entry of the line mode
constexpr std::int64_t kUserOutputs = 4;    // first user output among the line sources
constexpr std::int64_t kExposureSource = 1; // exposure active among the line sources
constexpr std::int64_t kLineTrigger = 1;    // "Line0" among the trigger sources

struct LinesState
{
    std::array<int, kLines> strobes{}; // running on the line
    std::int64_t edges = 0;            // rising edges on line 0 since power-up
};

bool isOutput(DemoContext& demo, std::int64_t line)
{
    return demo.integerAt("LineModeReg", line) == kOutput;
}

// Low for a second, high for a second.
bool wave(DemoContext& demo)
{
    return static_cast<std::int64_t>(demo.secondsSincePowerUp()) % 2 == 1;
}

bool stateOf(DemoContext& demo, std::int64_t line, const LinesState& state)
{
    const std::int64_t source = demo.integerAt("LineSourceReg", line);
    bool on = false;
    if (!isOutput(demo, line))
        on = line == 0 && wave(demo);
    else if (state.strobes.at(static_cast<std::size_t>(line)) > 0)
        on = true;
    else if (source == kExposureSource)
        on = demo.integer("TLParamsLocked") != 0;
    else if (source >= kUserOutputs)
        on = demo.integerAt("UserOutputValueReg", source - kUserOutputs) != 0;
    return on != (demo.integerAt("LineInverterReg", line) != 0);
}

void showLines(DemoContext& demo, const LinesState& state)
{
    std::int64_t all = 0;
    for (std::int64_t line = 0; line < kLines; ++line)
        all |= (stateOf(demo, line, state) ? 1 : 0) << line;
    demo.setInteger("LineStatusAll", all);
}

void countEdges(DemoContext& demo, LinesState& state)
{
    const auto edges = static_cast<std::int64_t>((demo.secondsSincePowerUp() + 1.0) / 2.0);
    const std::int64_t fresh = edges - state.edges;
    state.edges = edges;
    if (fresh <= 0 || isOutput(demo, 0))
        return;
    DemoFrames::count(demo, DemoFrames::Line0, fresh);
    DemoFrames::trigger(demo, kLineTrigger, fresh);
}

// The strobe of the selected line, after its delay, for its duration.
void strobe(DemoContext& demo, const std::shared_ptr<LinesState>& state)
{
    using std::chrono::microseconds;
    const std::int64_t line = demo.integer("LineSelector");
    if (!isOutput(demo, line) || demo.integerAt("StrobeEnableReg", line) == 0)
        return;
    const microseconds delay(demo.integerAt("StrobeLineDelayReg", line));
    const std::int64_t set = demo.integerAt("StrobeLineDurationReg", line);
    const microseconds duration(set > 0 ? set : std::llround(demo.number("ExposureTime")));
    int& running = state->strobes.at(static_cast<std::size_t>(line));
    const auto change = [state, &running](int by) {
        return [state, &running, by] { running += by; };
    };
    demo.behaviours().after(delay, change(1));
    demo.behaviours().after(delay + duration, change(-1));
}

} // namespace

void inputs(DemoContext& demo)
{
    auto state = std::make_shared<LinesState>();
    BehaviourTable& table = demo.behaviours();
    table.onPowerUp([state] { *state = LinesState(); });
    table.onTick([&demo, state] { countEdges(demo, *state); });
    table.beforeRead("LineStatus", [&demo, state] { showLines(demo, *state); });
    table.beforeRead("LineStatusAll", [&demo, state] { showLines(demo, *state); });
    table.afterWrite("LineTriggerSoftware", [&demo, state] { strobe(demo, state); });
    table.afterWrite("UserOutputValue", [&demo] {
        demo.setInteger("UserOutputValueAll", demo.integerAt("UserOutputValueReg", 0) +
                                                  2 * demo.integerAt("UserOutputValueReg", 1));
    });
    table.afterWrite("UserOutputValueAll", [&demo] {
        const std::int64_t all = demo.integer("UserOutputValueAll");
        demo.setIntegerAt("UserOutputValueReg", 0, all & 1);
        demo.setIntegerAt("UserOutputValueReg", 1, (all >> 1) & 1);
    });
}

} // namespace DemoBehaviours
