// SPDX-License-Identifier: Apache-2.0
// Reading: host calls of a full pass, the library's own share of it, the update of one item.
#include "reading/FeatureMutex.h"
#include "reading/IFeatureReadingOwner.h"
#include "reading/QGetFeaturesThread.h"
#include "support/DescriptionBuilder.h"
#include "support/FakeHost.h"
#include "support/LoadedDescription.h"

#include <benchmark/benchmark.h>

#include <QElapsedTimer>
#include <QGuiApplication>

#include <cstdio>

namespace {

using DescriptionBuilder::Size;
using Flags = QGetFeaturesThread::UpdateFlags;

class Owner : public IFeatureReadingOwner
{
public:
    FeatureMutex* GetFeatureMutex() override { return &mutex; }
    void EmitPollingFeatureChanged(const QString&) override {}
    FeatureMutex mutex;
};

// A loaded description with a host behind it and a thread to read it.
struct Reading
{
    explicit Reading(const Size& size)
        : xml(DescriptionBuilder::generate(size))
        , description(xml)
    {
        host.serve(xml);
        host.install();
        host.clearCalls();
        thread.SetInitThreadInfo(1, false, description.index.nodes(),
                                 description.builder.AllTreeItemsMap(),
                                 description.index.lockableFeatures(), description.index.polling());
    }
    void pass()
    {
        for (ORXPropertyTreeItem* item : description.builder.AllTreeItemsMap())
            thread.UpdateFeature(item, Flags(UpdateFlagSets::kFirstRead));
    }
    QByteArray xml;
    LoadedDescription description;
    FakeHost host;
    Owner owner;
    QGetFeaturesThread thread{&owner, nullptr};
};

void BM_ItemUpdate(benchmark::State& state)
{
    Reading reading(Size{});
    reading.pass();
    ORXPropertyTreeItem* item = reading.description.item("Feature00300");
    for (auto _ : state)
        benchmark::DoNotOptimize(
            reading.thread.UpdateFeature(item, Flags(UpdateFlagSets::kFirstRead)));
}
BENCHMARK(BM_ItemUpdate)->Unit(benchmark::kMicrosecond);

void printCalls()
{
    const Size size;
    Reading reading(size);
    reading.pass();
    int modes = 0;
    int values = 0;
    int mostForOne = 0;
    for (const QString& name : DescriptionBuilder::featureNames(size)) {
        const int mode = reading.host.count(QStringLiteral("mode ") + name);
        const int value = reading.host.count(QStringLiteral("get ") + name);
        modes += mode;
        values += value;
        mostForOne = std::max({mostForOne, mode, value});
    }
    const int locks = reading.host.count(QStringLiteral("get TLParamsLocked"));
    std::printf("\nfull pass over %d features: %d access modes, %d values (%d of a kind for one "
                "feature at the most), %d lock reads for %d lockable\n",
                size.features, modes, values, mostForOne, locks, size.lockable);
}

void printShare()
{
    std::printf("first pass, host calls without latency:\n         features    ms   us/feature\n");
    for (int features = 500; features <= 16000; features *= 2) {
        Reading reading(Size::ofFeatures(features));
        QElapsedTimer timer;
        timer.start();
        reading.pass();
        const double ms = static_cast<double>(timer.nsecsElapsed()) / 1e6;
        std::printf("        %9d %7.1f %8.2f\n", features, ms, ms * 1000 / features);
    }
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    const bool filtered = argc > 1; // only the chosen timings
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    if (filtered)
        return 0;
    printCalls();
    printShare();
    return 0;
}
