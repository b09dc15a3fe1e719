// SPDX-License-Identifier: Apache-2.0
#include "Measures.h"
#include "PlainDescription.h"
#include "support/OpenedWindow.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>

using namespace PlainDescription;

namespace {

constexpr int kLatencyMs = 5;
constexpr int kRuns = 10;
constexpr int kCollectingMs = 100; // a write waits so long for others before its re-read
constexpr qint64 kRaise = 100000;  // what the camera adds to all that the write invalidates

bool allShow(const OpenedWindow& window, qint64 raise)
{
    for (int i = 0; i < kInvalidated; ++i) {
        if (!shows(window.item(featureName(i).toLatin1()), startValue(i) + raise))
            return false;
    }
    return true;
}

// The write changes everything that it invalidates.
void raiseOnWrite(FakeHost& host)
{
    host.afterSet = [&host](const QString&) {
        for (int i = 0; i < kInvalidated; ++i)
            host.set(featureName(i), FakeHost::integerFeature(startValue(i) + kRaise));
    };
}

void edit(const OpenedWindow& window)
{
    window.tree()->setFeatureValue("Integer"_s, featureName(0), startValue(0) + kRaise);
}

// Calls of a re-read with nothing else going on.
int ownCalls()
{
    FakeHost host;
    serve(host);
    const OpenedWindow window(host, text());
    if (!window.waitForFirstRead())
        return 0;
    raiseOnWrite(host);
    host.clearCalls();
    edit(window);
    (void)QTest::qWaitFor([&] { return allShow(window, kRaise); }, kWindowPatienceMs);
    QTest::qWait(kCollectingMs);
    return int(host.calls().size() - host.writes().size());
}

struct Reread
{
    double ms = 0; // from the end of the collecting until everything is shown anew
    int calls = 0; // that the host got meanwhile, of the first read as well
};

Reread reread(int run)
{
    FakeHost host;
    serve(host);
    host.setLatencyMs(kLatencyMs);
    const OpenedWindow window(host, text());
    // The first read is beyond what the write invalidates, in each run a little further.
    const QString reached = "get "_s + featureName(kInvalidated + 10 + run * 30);
    const bool ready = QTest::qWaitFor(
        [&] { return host.count(reached) > 0 && allShow(window, 0); }, kWindowPatienceMs);
    if (!ready)
        return {};
    raiseOnWrite(host);
    QElapsedTimer timer;
    edit(window);
    timer.start();
    const auto asked = [&host] {
        int count = 0;
        for (int i = 0; i < kInvalidated; ++i)
            count += host.count("mode "_s + featureName(i));
        return count;
    };
    const int askedBefore = asked();
    int before = 0;
    (void)QTest::qWaitFor(
        [&] {
            if (asked() == askedBefore)
                before = host.calls().size();
            return allShow(window, kRaise);
        },
        kWindowPatienceMs);
    return {static_cast<double>(timer.nsecsElapsed()) / 1e6 - kCollectingMs,
            host.calls().size() - before};
}

} // namespace

void Measures::editDuringFirstRead()
{
    const int calls = ownCalls();
    std::printf("edit during a first read of %d features at %d ms a call: re-read of %d features, "
                "which takes %d calls by itself, complete within\n   ",
                kFeatures, kLatencyMs, kInvalidated, calls);
    double worst = 0;
    for (int run = 0; run < kRuns; ++run) {
        const Reread each = reread(run);
        const double ratio = each.ms / (calls * kLatencyMs);
        worst = std::max(worst, ratio);
        std::printf(" %.2f (%.2f of calls)", ratio, static_cast<double>(each.calls) / calls);
        std::fflush(stdout);
    }
    std::printf("\n    times those calls (worst %.2f, wanted 2.2)\n", worst);
}
