// SPDX-License-Identifier: Apache-2.0
// Encoders and frequency converter of the demo camera. An axis with two tracks, on lines 0 and 1,
// turns forward for eight seconds and back for two, again and again; what an encoder makes of it
// depends on its sources.
#include "demo/DemoBehaviours.h"
#include "demo/DemoContext.h"
#include "demo/DemoFrames.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

namespace DemoBehaviours {

namespace {

constexpr std::size_t kEncoders = 2;
constexpr double kStepsPerSecond = 100.0;
constexpr double kForwardSeconds = 8.0;
constexpr double kCycleSeconds = 10.0;
constexpr std::int64_t kIgnoreDirection = 1; // entry of the counter mode
constexpr std::int64_t kEncoderTrigger = 6;  // "Encoder0" among the trigger sources
constexpr std::int64_t kEncoderInput = 3;    // "Encoder0" among the converter's inputs

// Entries of the output mode.
enum OutputMode : std::int64_t { PositionUp = 1, PositionDown, DirectionUp, DirectionDown, Motion };

struct Steps
{
    std::int64_t up = 0;
    std::int64_t down = 0;
};

struct State
{
    Steps axis;                                  // since power-up
    std::array<std::int64_t, kEncoders> debt{};  // steps back that are not made up for
    std::array<std::int64_t, kEncoders> parts{}; // steps towards the next output
    std::int64_t converted = 0;                  // of the converter's product
};

// All steps of the axis up to a moment.
Steps axisAt(double seconds)
{
    const double cycles = std::floor(seconds / kCycleSeconds);
    const double within = seconds - cycles * kCycleSeconds;
    const double up = cycles * kForwardSeconds + std::min(within, kForwardSeconds);
    const double down =
        cycles * (kCycleSeconds - kForwardSeconds) + std::max(0.0, within - kForwardSeconds);
    return {static_cast<std::int64_t>(up * kStepsPerSecond),
            static_cast<std::int64_t>(down * kStepsPerSecond)};
}

// Exchanged tracks turn the other way round; any other lines carry nothing.
Steps seenBy(DemoContext& demo, std::int64_t encoder, Steps steps)
{
    const std::int64_t a = demo.integerAt("EncoderSourceAReg", encoder);
    const std::int64_t b = demo.integerAt("EncoderSourceBReg", encoder);
    if (a == 0 && b == 1)
        return steps;
    return a == 1 && b == 0 ? Steps{steps.down, steps.up} : Steps{};
}

void move(DemoContext& demo, std::int64_t encoder, Steps steps)
{
    const std::int64_t value = demo.integerAt("EncoderValueReg", encoder) + steps.up - steps.down;
    demo.setIntegerAt("EncoderValueReg", encoder, value & 0x7FFFFFFF);
    const bool bothWays = demo.integerAt("EncoderCounterModeReg", encoder) == kIgnoreDirection;
    const std::int64_t period = demo.integerAt("EncoderCounterMaxReg", encoder) + 1;
    const std::int64_t counter = demo.integerAt("EncoderCounterReg", encoder) + steps.up +
                                 (bothWays ? steps.down : -steps.down);
    demo.setIntegerAt("EncoderCounterReg", encoder, (counter % period + period) % period);
}

// Output pulses: steps in the direction that counts, each `EncoderDivider` of them.
std::int64_t pulses(DemoContext& demo, std::size_t encoder, Steps steps, State& state)
{
    const auto index = static_cast<std::int64_t>(encoder);
    std::int64_t& debt = state.debt[encoder];
    const std::int64_t madeUp = std::min(debt, steps.up);
    debt =
        std::min(debt - madeUp + steps.down, demo.integerAt("EncoderMaxReverseCounterReg", index));
    std::int64_t counted = 0;
    switch (demo.integerAt("EncoderOutputModeReg", index)) {
    case PositionUp:
        counted = steps.up - madeUp;
        break;
    case DirectionUp:
        counted = steps.up;
        break;
    case PositionDown:
    case DirectionDown:
        counted = steps.down;
        break;
    case Motion:
        counted = steps.up + steps.down;
        break;
    default:
        break;
    }
    const std::int64_t divider =
        std::max<std::int64_t>(1, demo.integerAt("EncoderDividerReg", index));
    const std::int64_t all = state.parts[encoder] + counted;
    state.parts[encoder] = all % divider;
    return all / divider;
}

// What the frequency converter makes of the pulses, when it is fed by them.
std::int64_t convert(DemoContext& demo, std::int64_t pulses, State& state)
{
    if (demo.integer("InputSource") != kEncoderInput)
        return pulses;
    const std::int64_t divisor =
        std::max<std::int64_t>(1, demo.integer("PreDivider") * demo.integer("PostDivider"));
    state.converted += pulses * demo.integer("Multiplier");
    const std::int64_t result = state.converted / divisor;
    state.converted %= divisor;
    return result;
}

void turn(DemoContext& demo, State& state)
{
    const Steps now = axisAt(demo.secondsSincePowerUp());
    const Steps steps{now.up - state.axis.up, now.down - state.axis.down};
    state.axis = now;
    for (std::size_t encoder = 0; encoder < kEncoders; ++encoder) {
        const Steps seen = seenBy(demo, static_cast<std::int64_t>(encoder), steps);
        move(demo, static_cast<std::int64_t>(encoder), seen);
        const std::int64_t out = pulses(demo, encoder, seen, state);
        if (encoder == 0)
            DemoFrames::trigger(demo, kEncoderTrigger, convert(demo, out, state));
    }
}

} // namespace

void encoders(DemoContext& demo)
{
    auto state = std::make_shared<State>();
    BehaviourTable& table = demo.behaviours();
    table.onPowerUp([state] { *state = State(); });
    table.onTick([&demo, state] { turn(demo, *state); });
    table.afterWrite("EncoderReset", [&demo] {
        const std::int64_t encoder = demo.integer("EncoderSelector");
        demo.setIntegerAt("EncoderValueAtResetReg", encoder,
                          demo.integerAt("EncoderValueReg", encoder));
        demo.setIntegerAt("EncoderValueReg", encoder, 0);
    });
    table.afterWrite("EncoderCounterReset", [&demo] {
        demo.setIntegerAt("EncoderCounterReg", demo.integer("EncoderSelector"), 0);
    });
    table.afterWrite("EncoderReverseCounterReset", [&demo, state] {
        state->debt.at(static_cast<std::size_t>(demo.integer("EncoderSelector"))) = 0;
    });
}

} // namespace DemoBehaviours
