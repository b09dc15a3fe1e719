// SPDX-License-Identifier: Apache-2.0
// Lines and encoders of the demo camera: a square wave on line 0, and a turning axis at encoder 0.
#include "demo/DemoBehaviours.h"
#include "demo/DemoContext.h"

#include <array>
#include <memory>

namespace DemoBehaviours {

namespace {

constexpr std::int64_t kLines = 4;
constexpr std::int64_t kOutput = 1;         // entry of the line mode
constexpr std::int64_t kUserOutputs = 4;    // first user output among the line sources
constexpr std::int64_t kExposureSource = 1; // exposure active among the line sources
constexpr double kStepsPerSecond = 100.0;

struct EncoderState
{
    double lastTick = 0.0; // seconds
    double part = 0.0;     // of a step
};

bool stateOf(DemoContext& demo, std::int64_t line)
{
    const std::int64_t source = demo.integerAt("LineSourceReg", line);
    bool on = false;
    if (demo.integerAt("LineModeReg", line) != kOutput)
        on = line == 0 && static_cast<std::int64_t>(demo.secondsSincePowerUp()) % 2 == 1;
    else if (source == kExposureSource)
        on = demo.integer("TLParamsLocked") != 0;
    else if (source >= kUserOutputs)
        on = demo.integerAt("UserOutputValueReg", source - kUserOutputs) != 0;
    return on != (demo.integerAt("LineInverterReg", line) != 0);
}

void showLines(DemoContext& demo)
{
    std::int64_t all = 0;
    for (std::int64_t line = 0; line < kLines; ++line)
        all |= (stateOf(demo, line) ? 1 : 0) << line;
    demo.setInteger("LineStatusAll", all);
}

void turn(DemoContext& demo, EncoderState& state)
{
    const double now = demo.secondsSincePowerUp();
    state.part += (now - state.lastTick) * kStepsPerSecond;
    state.lastTick = now;
    const auto steps = static_cast<std::int64_t>(state.part);
    state.part -= static_cast<double>(steps);
    const std::int64_t position = demo.integerAt("EncoderValueReg", 0) + steps;
    demo.setIntegerAt("EncoderValueReg", 0, position & 0x7FFFFFFF);
    const std::int64_t period = demo.integerAt("EncoderCounterMaxReg", 0) + 1;
    demo.setIntegerAt("EncoderCounterReg", 0,
                      (demo.integerAt("EncoderCounterReg", 0) + steps) % period);
}

} // namespace

void inputs(DemoContext& demo)
{
    auto state = std::make_shared<EncoderState>();
    BehaviourTable& table = demo.behaviours();
    table.onPowerUp([state] { *state = EncoderState(); });
    table.onTick([&demo, state] { turn(demo, *state); });
    table.beforeRead("LineStatus", [&demo] { showLines(demo); });
    table.beforeRead("LineStatusAll", [&demo] { showLines(demo); });
    table.afterWrite("UserOutputValue", [&demo] {
        demo.setInteger("UserOutputValueAll", demo.integerAt("UserOutputValueReg", 0) +
                                                  2 * demo.integerAt("UserOutputValueReg", 1));
    });
    table.afterWrite("UserOutputValueAll", [&demo] {
        const std::int64_t all = demo.integer("UserOutputValueAll");
        demo.setIntegerAt("UserOutputValueReg", 0, all & 1);
        demo.setIntegerAt("UserOutputValueReg", 1, (all >> 1) & 1);
    });
    table.afterWrite("EncoderReset", [&demo] {
        const std::int64_t encoder = demo.integer("EncoderSelector");
        demo.setIntegerAt("EncoderValueAtResetReg", encoder,
                          demo.integerAt("EncoderValueReg", encoder));
        demo.setIntegerAt("EncoderValueReg", encoder, 0);
    });
    table.afterWrite("EncoderCounterReset", [&demo] {
        demo.setIntegerAt("EncoderCounterReg", demo.integer("EncoderSelector"), 0);
    });
}

} // namespace DemoBehaviours
