// SPDX-License-Identifier: Apache-2.0
// The beat of the automatic software trigger, as it arrives at the host: mean and worst deviation
// from the ideal beat, while the window reads features, and with a trigger command that is slower
// than the beat.
#include "support/DescriptionBuilder.h"
#include "support/OpenedWindow.h"

#include <QApplication>
#include <QStandardPaths>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

std::mutex s_mutex;
std::vector<Clock::time_point> s_beats; // guarded by s_mutex
std::chrono::milliseconds s_commandTime{0};

int setFeature(int type, char* name, char* value, void* user)
{
    if (std::strcmp(name, "TriggerSoftware") != 0)
        return FakeHost::setFeature(type, name, value, user);
    {
        const std::lock_guard<std::mutex> lock(s_mutex);
        s_beats.push_back(Clock::now());
    }
    std::this_thread::sleep_for(s_commandTime);
    return 0;
}

std::vector<Clock::time_point> run(ORXFeatureTree* tree, int periodMs, int lastsMs, bool reading)
{
    {
        const std::lock_guard<std::mutex> lock(s_mutex);
        s_beats.clear();
    }
    const Clock::time_point end = Clock::now() + std::chrono::milliseconds(lastsMs);
    tree->SetAutoSoftwareTrig(true, static_cast<unsigned int>(periodMs));
    while (Clock::now() < end) {
        if (reading)
            OB_FT_UpdateFeatures();
        QApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    tree->SetAutoSoftwareTrig(false, 0);
    const std::lock_guard<std::mutex> lock(s_mutex);
    return s_beats;
}

// Against the grid of the period that lies in the middle of the beats: a drift would grow into the
// worst deviation.
void print(const char* what, int periodMs, const std::vector<Clock::time_point>& beats)
{
    std::vector<double> off; // of each beat from the grid through the first one
    long skipped = 0;
    for (const Clock::time_point& beat : beats) {
        const double at = Milliseconds(beat - beats.front()).count();
        const long number = std::lround(at / periodMs);
        skipped = number - static_cast<long>(off.size());
        off.push_back(at - static_cast<double>(number) * periodMs);
    }
    std::vector<double> sorted = off;
    std::sort(sorted.begin(), sorted.end());
    const double middle = sorted.empty() ? 0.0 : sorted[sorted.size() / 2];
    double sum = 0;
    double worst = 0;
    for (const double each : off) {
        sum += std::fabs(each - middle);
        worst = std::max(worst, std::fabs(each - middle));
    }
    std::printf("%-28s %8d %8zu %8ld %12.3f %12.3f\n", what, periodMs, beats.size(), skipped,
                off.empty() ? 0.0 : sum / static_cast<double>(off.size()), worst);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QStandardPaths::setTestModeEnabled(true);
    QApplication application(argc, argv);
    const QByteArray xml = DescriptionBuilder::generate(DescriptionBuilder::Size{});
    FakeHost host;
    host.serve(xml);
    OpenedWindow window(host, xml);
    if (!window.waitForFirstRead())
        return 1;
    OB_FT_SetCallBackFunc(FakeHost::getFeature, setFeature, FakeHost::getMode, FakeHost::invalidate,
                          FakeHost::action, &host);
    std::printf("%-28s %8s %8s %8s %12s %12s\n", "", "ms", "beats", "dropped", "mean off ms",
                "worst off ms");
    for (const int periodMs : {1, 2, 5, 10, 100, 1000}) {
        const int lastsMs = std::max(2000, 5 * periodMs);
        print("idle window", periodMs, run(window.tree(), periodMs, lastsMs, false));
        print("window reading all the time", periodMs, run(window.tree(), periodMs, lastsMs, true));
    }
    s_commandTime = std::chrono::milliseconds(25);
    print("command of 25 ms", 10, run(window.tree(), 10, 2000, false));
    return 0;
}
