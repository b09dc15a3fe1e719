// SPDX-License-Identifier: Apache-2.0
// Loading a description: parse, index and tree, against the bare DOM parse of the same text, and
// the list of features that a write invalidates, against comparing every feature with every list.
#include "support/DescriptionBuilder.h"
#include "support/LoadedDescription.h"

#include <benchmark/benchmark.h>

#include <QDomDocument>
#include <QElapsedTimer>
#include <QGuiApplication>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace {

using DescriptionBuilder::Size;

struct Loaded
{
    explicit Loaded(const QByteArray& xml)
    {
        document.setContent(xml);
        index.GenerateDomElementMap(document.documentElement());
        builder.createItems(&root, index.nodes(), nullptr);
        index.setItemNames(builder.AllTreeItemsMap().keys());
        index.ResetFeaturesInvalidatorMap();
        index.GenerateFeaturePValueList();
        index.GenerateFeaturePairList();
        index.GenerateFeaturesTLParamsLocked();
        index.GeneratePSelectedList();
        index.GenerateFeatureNoCacheList();
        index.pollingMap(); // waits for all that the loading lane builds
    }
    XmlDocument document; // the library keeps it, too
    ORXPropertyTreeItem root{nullptr, ORXPropertyTreeItem::FeatureTreePage};
    FeatureDescriptionIndex index;
    FeatureTreeBuilder builder;
};

QByteArray description(int features)
{
    return DescriptionBuilder::generate(Size::ofFeatures(features));
}

void BM_DomParse(benchmark::State& state)
{
    const QByteArray xml = description(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        QDomDocument document;
        document.setContent(xml);
        benchmark::DoNotOptimize(document);
    }
}

void BM_Load(benchmark::State& state)
{
    const QByteArray xml = description(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        Loaded loaded(xml);
        benchmark::DoNotOptimize(&loaded);
    }
}

void BM_InvalidatorList(benchmark::State& state)
{
    const int features = static_cast<int>(state.range(0));
    const Loaded loaded(description(features));
    const QStringList names = DescriptionBuilder::featureNames(Size::ofFeatures(features));
    int next = 0;
    for (auto _ : state) {
        const QList<QString> list =
            loaded.index.GetFeatureInvalidatorList(names.at(next++ % names.size()));
        benchmark::DoNotOptimize(list.size());
    }
}

BENCHMARK(BM_DomParse)->Arg(700)->Arg(7000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Load)->Arg(700)->Arg(7000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_InvalidatorList)->Arg(700)->Unit(benchmark::kMicrosecond);

double elapsedMs(const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double middleOf(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

// Middle one of several runs in this process, on a heap that the ones before have used.
double middleMs(int runs, const std::function<void()>& work)
{
    std::vector<double> times;
    for (int i = 0; i < runs; ++i)
        times.push_back(elapsedMs(work));
    return middleOf(times);
}

// Milliseconds of work that a new process begins with, as a host's does.
double firstMs(const std::function<void()>& work)
{
    int ends[2];
    if (pipe(ends) != 0)
        return 0;
    const pid_t child = fork();
    if (child == 0) {
        const double ms = elapsedMs(work);
        const bool told = write(ends[1], &ms, sizeof(ms)) == sizeof(ms);
        _exit(told ? 0 : 1);
    }
    double ms = 0;
    if (child < 0 || read(ends[0], &ms, sizeof(ms)) != sizeof(ms))
        ms = 0;
    close(ends[0]);
    close(ends[1]);
    waitpid(child, nullptr, 0);
    return ms;
}

void parseBare(const QByteArray& xml)
{
    QDomDocument document;
    document.setContent(xml);
}

double parseMs(const QByteArray& xml)
{
    return middleMs(9, [&] { parseBare(xml); });
}

double loadMs(const QByteArray& xml)
{
    return middleMs(9, [&] { const Loaded loaded(xml); });
}

void printFirstLoading()
{
    const QByteArray one = description(700);
    const QByteArray ten = description(7000);
    std::vector<double> parses;
    std::vector<double> loads;
    std::vector<double> loadsOfTen;
    for (int i = 0; i < 9; ++i) {
        // Nothing is destroyed: a host's window goes much later.
        parses.push_back(firstMs([&] { (new QDomDocument)->setContent(one); }));
        loads.push_back(firstMs([&] { benchmark::DoNotOptimize(new Loaded(one)); }));
        loadsOfTen.push_back(firstMs([&] { benchmark::DoNotOptimize(new Loaded(ten)); }));
    }
    const double parse = middleOf(parses);
    const double load = middleOf(loads);
    std::printf(
        "\nfirst in a process, 700 features: load / bare DOM parse %.2f (%.1f ms / %.1f ms), "
        "ten times the description %.2f times as long\n",
        load / parse, load, parse, middleOf(loadsOfTen) / load);
}

void printGrowth()
{
    std::printf("\nagain and again in one process:\n");
    std::printf("growth:  features   load ms   us/feature   load/parse\n");
    for (int features = 500; features <= 16000; features *= 2) {
        const QByteArray xml = description(features);
        const double ms = loadMs(xml);
        std::printf("        %9d %9.1f %12.2f %12.2f\n", features, ms, ms * 1000 / features,
                    ms / parseMs(xml));
    }
}

void printInvalidation()
{
    const Size size;
    const Loaded loaded(description(size.features));
    const QStringList names = DescriptionBuilder::featureNames(size);
    double slowest = 0;
    int longest = 0;
    for (const QString& name : names) {
        slowest = std::max(slowest, middleMs(3, [&] {
                               longest = std::max(
                                   longest, loaded.index.GetFeatureInvalidatorList(name).size());
                           }));
    }
    std::printf("invalidation list, slowest feature:   %.4f ms (%d names at the most)\n", slowest,
                longest);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    const bool filtered = argc > 1; // only the chosen timings
    benchmark::Initialize(&argc, argv);
    // First of all: a child begins with the heap of this process.
    if (!filtered)
        printFirstLoading();
    benchmark::RunSpecifiedBenchmarks();
    if (filtered)
        return 0;
    printGrowth();
    printInvalidation();
    return 0;
}
