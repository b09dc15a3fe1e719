// SPDX-License-Identifier: Apache-2.0
// Time stamps, temperatures and timers of the demo camera.
#include "demo/DemoBehaviours.h"
#include "demo/DemoContext.h"

#include <array>
#include <cmath>
#include <memory>

namespace DemoBehaviours {

namespace {

struct TimeState
{
    std::int64_t timestampZero = 0;
    double warmth = 0.0; // degrees above the temperature at rest
    double lastTick = 0.0;
    std::array<double, 2> timerStart{-1.0, -1.0}; // seconds; negative: not started
};

constexpr double kPi = 3.14159265358979323846;
constexpr double kWarmthAtWork = 8.0;   // degrees
constexpr double kWarmUpSeconds = 60.0; // to 63 percent
constexpr double kRippleSeconds = 20.0; // period of the small movement
constexpr double kRippleDegrees = 0.4;
constexpr std::array<double, 3> kAtRest{38.0, 44.0, 32.0}; // sensor, mainboard, housing
constexpr double kMicroseconds = 1e6;

enum TimerStatus : std::int64_t { TimerIdle = 0, TimerActive = 2, TimerCompleted = 3 };

void moveTemperatures(DemoContext& demo, TimeState& state)
{
    const double now = demo.secondsSincePowerUp();
    const double aim = demo.integer("TLParamsLocked") != 0 ? kWarmthAtWork : 0.0;
    state.warmth +=
        (aim - state.warmth) * (1.0 - std::exp((state.lastTick - now) / kWarmUpSeconds));
    state.lastTick = now;
    const double ripple = kRippleDegrees * std::sin(2.0 * kPi * now / kRippleSeconds);
    for (std::size_t i = 0; i < kAtRest.size(); ++i)
        demo.setNumberAt("DeviceTemperatureReg", static_cast<std::int64_t>(i),
                         kAtRest[i] + state.warmth + ripple);
}

void moveTimers(DemoContext& demo, const TimeState& state)
{
    for (std::size_t i = 0; i < state.timerStart.size(); ++i) {
        const auto index = static_cast<std::int64_t>(i);
        if (state.timerStart[i] < 0.0)
            continue;
        const double duration = demo.numberAt("TimerDurationReg", index);
        const double passed = (demo.secondsSincePowerUp() - state.timerStart[i]) * kMicroseconds -
                              demo.numberAt("TimerDelayReg", index);
        demo.setNumberAt("TimerValueReg", index, std::fmin(std::fmax(passed, 0.0), duration));
        demo.setIntegerAt("TimerStatusReg", index,
                          passed < duration ? TimerActive : TimerCompleted);
    }
}

} // namespace

void time(DemoContext& demo)
{
    auto state = std::make_shared<TimeState>();
    BehaviourTable& table = demo.behaviours();

    table.onPowerUp([&demo, state] {
        *state = TimeState();
        demo.noteTimeOfPowerUp();
        moveTemperatures(demo, *state);
    });
    table.onTick([&demo, state] {
        moveTemperatures(demo, *state);
        moveTimers(demo, *state);
    });

    const auto passed = [&demo, state] { return demo.timestamp() - state->timestampZero; };
    const auto reset = [&demo, state] { state->timestampZero = demo.timestamp(); };
    table.beforeRead("Timestamp", [&demo, passed] { demo.setInteger("Timestamp", passed()); });
    table.beforeRead("DeviceUpTime", [&demo] {
        demo.setInteger("DeviceUpTime", static_cast<std::int64_t>(demo.secondsSincePowerUp()));
    });
    table.afterWrite("TimestampReset", reset);
    table.afterWrite("GevTimestampControlReset", reset);
    table.afterWrite("TimestampLatch",
                     [&demo, passed] { demo.setInteger("TimestampLatchValue", passed()); });
    table.afterWrite("GevTimestampControlLatch",
                     [&demo, passed] { demo.setInteger("GevTimestampValue", passed()); });

    table.afterWrite("TimerReset", [&demo, state] {
        const auto timer = static_cast<std::size_t>(demo.integer("TimerSelector"));
        state->timerStart[timer] = demo.secondsSincePowerUp();
        moveTimers(demo, *state);
    });
}

} // namespace DemoBehaviours
