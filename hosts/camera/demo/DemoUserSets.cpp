// SPDX-License-Identifier: Apache-2.0
// User sets of the demo camera: all settings lie in one part of its memory, and a set is a copy of
// it. The sets survive a restart.
#include "cameras/CameraError.h"
#include "demo/DemoBehaviours.h"
#include "demo/DemoContext.h"

#include <array>
#include <chrono>
#include <memory>

namespace DemoBehaviours {

namespace {

constexpr std::chrono::milliseconds kLoadTime{1500};

struct UserSets
{
    std::array<RegisterMemory, 4> sets; // the first one holds the factory settings
    bool loading = false;
};

RegisterMemory& setOf(UserSets& state, std::int64_t number)
{
    return state.sets[static_cast<std::size_t>(number) % state.sets.size()];
}

void restore(DemoContext& demo, UserSets& state, std::int64_t number)
{
    demo.memory().replace(DemoContext::kFirstSetting, DemoContext::kLastSetting,
                          setOf(state, number));
    demo.setInteger("UserSetCurrent", number);
}

// The settings are in force at once; the status tells for a while that the camera is still busy.
void load(DemoContext& demo, const std::shared_ptr<UserSets>& state)
{
    restore(demo, *state, demo.integer("UserSetSelector"));
    state->loading = true;
    demo.setText("UserSetLoadStatus", "Loading");
    demo.behaviours().after(kLoadTime, [&demo, state] {
        state->loading = false;
        demo.setText("UserSetLoadStatus", "Finished");
    });
}

} // namespace

void userSets(DemoContext& demo)
{
    auto state = std::make_shared<UserSets>();
    const RegisterMemory factory =
        demo.memory().copyOf(DemoContext::kFirstSetting, DemoContext::kLastSetting);
    state->sets.fill(factory);

    BehaviourTable& table = demo.behaviours();
    table.onPowerUp([&demo, state] {
        state->loading = false;
        restore(demo, *state, demo.integer("UserSetDefault"));
    });
    const auto refuseWhileLoading = [state]() -> int {
        return state->loading ? CameraError::Busy : CameraError::Ok;
    };
    table.beforeWrite("UserSetLoad", refuseWhileLoading);
    table.beforeWrite("UserSetSave", refuseWhileLoading);
    table.afterWrite("UserSetLoad", [&demo, state] { load(demo, state); });
    table.afterWrite("UserSetSave", [&demo, state] {
        const std::int64_t number = demo.integer("UserSetSelector");
        setOf(*state, number) =
            demo.memory().copyOf(DemoContext::kFirstSetting, DemoContext::kLastSetting);
        demo.setInteger("UserSetCurrent", number);
    });
}

} // namespace DemoBehaviours
