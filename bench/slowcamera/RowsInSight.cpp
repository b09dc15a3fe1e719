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
constexpr int kTallEnough = 3000; // pixels for all rows of a group

bool allShow(const OpenedWindow& window, int group)
{
    for (int i = firstOf(group); i < firstOf(group) + kInGroup; ++i) {
        if (!shows(window.item(featureName(i).toLatin1()), startValue(i)))
            return false;
    }
    return true;
}

// Calls of a group's own features so far.
int callsOf(const FakeHost& host, int group)
{
    int calls = 0;
    for (int i = firstOf(group); i < firstOf(group) + kInGroup; ++i)
        calls += host.count("mode "_s + featureName(i)) + host.count("get "_s + featureName(i));
    return calls;
}

double waitMs(const OpenedWindow& window, int group)
{
    QElapsedTimer timer;
    timer.start();
    (void)QTest::qWaitFor([&] { return allShow(window, group); }, kWindowPatienceMs);
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

QString shownGroup(const OpenedWindow& window)
{
    const ORXPropertyTreeItem* item =
        CFeatureGroupModel::itemFromIndex(window.groups()->currentIndex());
    return item ? item->value()->nodeName() : QString();
}

void printWholeRead(const FakeHost& host)
{
    int modes = 0;
    int values = 0;
    int most = 0;
    for (int i = 0; i < kFeatures; ++i) {
        const int mode = host.count("mode "_s + featureName(i));
        const int value = host.count("get "_s + featureName(i));
        modes += mode;
        values += value;
        most = std::max({most, mode, value});
    }
    const QStringList calls = host.calls();
    const int others = int(calls.size()) - modes - values;
    std::printf("    the whole read: %d access modes and %d values for %d features (%d of a kind "
                "for one at the most), %d calls for groups and others\n",
                modes, values, kFeatures, most, others);
}

// Times their own calls until the rows of a group have their values, asked for when so many calls
// of the read were made. The group is not chosen, but stood on by the window, at the start.
double measure(FakeHost& host, int group, int calls)
{
    const OpenedWindow window(host, text());
    OB_FT_SetWidgetSize(900, kTallEnough);
    if (calls > 0) {
        (void)QTest::qWaitFor([&] { return host.callCount() >= calls; }, kWindowPatienceMs);
        std::printf("(%d of its calls made before) ", callsOf(host, group));
        window.showGroup(groupName(group).toLatin1());
    } else {
        std::printf("(it stands on \"%s\") ", qPrintable(shownGroup(window)));
    }
    const double ms = waitMs(window, group);
    window.waitForFirstRead();
    return ms / (kLatencyMs * callsOf(host, group));
}

} // namespace

void Measures::rowsInSight()
{
    std::printf("%d features in %d groups at %d ms a call: times their own calls until all rows "
                "have their values (wanted: 1.5)\n",
                kFeatures, kGroups, kLatencyMs);
    struct Case
    {
        const char* name;
        int group;
        int calls;
    };
    static const Case kCases[] = {{"the group that the window opens on", 0, 0},
                                  {"a group chosen in the middle", 1, kFeatures}};
    for (const Case& each : kCases) {
        FakeHost host;
        serve(host);
        host.setLatencyMs(kLatencyMs);
        std::printf("    %s ", each.name);
        std::printf("%.2f\n", measure(host, each.group, each.calls));
        printWholeRead(host);
    }
}
