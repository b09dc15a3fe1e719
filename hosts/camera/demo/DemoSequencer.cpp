// SPDX-License-Identifier: Apache-2.0
// Sequencer sets of the demo camera: each holds an exposure time and a gain.
#include "demo/DemoBehaviours.h"
#include "demo/DemoContext.h"

#include <array>
#include <memory>

namespace DemoBehaviours {

namespace {

struct SequencerSet
{
    std::int64_t exposureTicks = 100000;
    double gain = 0.0;
};

using SequencerSets = std::array<SequencerSet, 4>;

constexpr std::int64_t kExposureFeature = 0; // entries of the feature selector
constexpr std::int64_t kGainFeature = 1;

SequencerSet& selected(DemoContext& demo, SequencerSets& sets)
{
    return sets[static_cast<std::size_t>(demo.integer("SequencerSetSelector")) % sets.size()];
}

} // namespace

void sequencer(DemoContext& demo)
{
    auto sets = std::make_shared<SequencerSets>();
    BehaviourTable& table = demo.behaviours();
    table.onPowerUp([sets] { *sets = SequencerSets(); });
    table.afterWrite("SequencerSetSave", [&demo, sets] {
        selected(demo, *sets) = {demo.integer("ExposureTimeTicks"), demo.numberAt("GainReg", 0)};
    });
    table.afterWrite("SequencerSetLoad", [&demo, sets] {
        const SequencerSet& set = selected(demo, *sets);
        if (demo.integerAt("SequencerFeatureEnableReg", kExposureFeature) != 0)
            demo.setInteger("ExposureTimeTicks", set.exposureTicks);
        if (demo.integerAt("SequencerFeatureEnableReg", kGainFeature) != 0)
            demo.setNumberAt("GainReg", 0, set.gain);
        demo.setInteger("SequencerSetActive", demo.integer("SequencerSetSelector"));
    });
}

} // namespace DemoBehaviours
