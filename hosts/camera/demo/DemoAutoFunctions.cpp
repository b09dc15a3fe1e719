// SPDX-License-Identifier: Apache-2.0
// Exposure, gain and white balance of the demo camera when they are automatic: the scene in front
// of it grows brighter and darker, and its light changes colour.
#include "demo/DemoBehaviours.h"
#include "demo/DemoContext.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>

namespace DemoBehaviours {

namespace {

enum Auto : std::int64_t { Off = 0, Once = 1 };

constexpr double kPi = 3.14159265358979323846;
constexpr double kSceneSeconds = 12.0; // period of the scene's brightness
constexpr double kTicksPerMicrosecond = 10.0;
constexpr std::chrono::seconds kOnceTime{1};
constexpr std::array<double, 3> kBalanced{1480.0, 1024.0, 1910.0}; // red, green, blue

// -1 to 1.
double scene(const DemoContext& demo)
{
    return std::sin(2.0 * kPi * demo.secondsSincePowerUp() / kSceneSeconds);
}

void adjustExposure(DemoContext& demo)
{
    const double lower = demo.number("AutoExposureTimeLowerLimit");
    const double upper = demo.number("AutoExposureTimeUpperLimit");
    const double middle = 0.5 * (lower + upper);
    const double time = std::clamp(middle * (1.0 + 0.5 * scene(demo)), lower, upper);
    demo.setInteger("ExposureTimeTicks", std::llround(time * kTicksPerMicrosecond));
}

void adjustGain(DemoContext& demo)
{
    const double lower = demo.number("AutoGainLowerLimit");
    const double upper = demo.number("AutoGainUpperLimit");
    demo.setNumberAt("GainReg", 0, 0.5 * (lower + upper) + 0.5 * (upper - lower) * scene(demo));
}

void adjustWhiteBalance(DemoContext& demo)
{
    const std::array<double, 3> tint{80.0, 0.0, -80.0};
    for (std::size_t i = 0; i < kBalanced.size(); ++i)
        demo.setIntegerAt("BalanceRatioReg", static_cast<std::int64_t>(i),
                          std::llround(kBalanced[i] + tint[i] * scene(demo)));
}

struct Function
{
    const char* feature;
    void (*adjust)(DemoContext&);
};

constexpr std::array<Function, 3> kFunctions{{
    {"ExposureAuto", adjustExposure},
    {"GainAuto", adjustGain},
    {"BalanceWhiteAuto", adjustWhiteBalance},
}};

} // namespace

void autoFunctions(DemoContext& demo)
{
    for (const Function& function : kFunctions) {
        demo.behaviours().onTick([&demo, function] {
            if (demo.integer(function.feature) != Off)
                function.adjust(demo);
        });
        demo.behaviours().afterWrite(function.feature, [&demo, function] {
            if (demo.integer(function.feature) != Once)
                return;
            demo.behaviours().after(kOnceTime, [&demo, function] {
                if (demo.integer(function.feature) != Once)
                    return; // the user has chosen otherwise meanwhile
                function.adjust(demo);
                demo.setInteger(function.feature, Off);
            });
        });
    }
}

} // namespace DemoBehaviours
