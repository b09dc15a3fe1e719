// SPDX-License-Identifier: Apache-2.0
// The window: opening, searching, scrolling, memory, and the longest gap of the GUI event loop
// during the first full read from a slow host.
#include "main/ORXFeatureGroup.h"
#include "model/ORXPropertyTreeItem.h"
#include "support/DescriptionBuilder.h"
#include "support/OpenedWindow.h"
#include "tree/ORXFeatureTreeView.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QScrollBar>
#include <QStandardPaths>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <malloc.h>
#include <vector>

namespace {

using DescriptionBuilder::Size;

double elapsedMs(const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

// Of this thread alone, so that a busy machine counts less.
double processorMs(const std::function<void()>& work)
{
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
    };
    const double start = now();
    work();
    return now() - start;
}

// What this process has allocated. What is resident would leave out all that finds room in what
// earlier windows gave back.
double allocatedKb()
{
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / 1024;
}

void printGap(int features, int latencyMs)
{
    const QByteArray xml = DescriptionBuilder::generate(Size::ofFeatures(features));
    FakeHost host;
    host.serve(xml);
    host.setLatencyMs(latencyMs);
    double longest = 0;
    QElapsedTimer last;
    QTimer beat;
    QObject::connect(&beat, &QTimer::timeout, [&] {
        longest = std::max(longest, static_cast<double>(last.nsecsElapsed()) / 1e6);
        last.start();
    });
    OpenedWindow window(host, xml);
    last.start();
    beat.start(1);
    QElapsedTimer whole;
    whole.start();
    window.waitForFirstRead();
    QTest::qWait(200);
    std::printf("%6d features, host calls of %d ms: first full read %.1f s, longest gap of the "
                "event loop %.1f ms\n",
                features, latencyMs, static_cast<double>(whole.elapsed()) / 1000, longest);
}

struct Keystrokes
{
    double medianMs;
    double slowestMs;
};

// Types a text into the search box and deletes it again, several times over; a key's time ends when
// everything that it changed is laid out and painted.
Keystrokes typeAndClear(const ORXFeatureGroup* group)
{
    auto* box = group->findChild<QLineEdit*>(QStringLiteral("FeatureSearch"));
    const QString text = QStringLiteral("feature 4");
    std::vector<double> times;
    for (int round = 0; round < 5; ++round) {
        for (int length = 1; length <= text.size(); ++length) {
            times.push_back(processorMs([&] {
                box->setText(text.left(length));
                QApplication::processEvents();
            }));
        }
        for (int length = int(text.size()) - 1; length >= 0; --length) {
            times.push_back(processorMs([&] {
                box->setText(text.left(length));
                QApplication::processEvents();
            }));
        }
    }
    std::sort(times.begin(), times.end());
    return {times.at(times.size() / 2), times.back()};
}

// Scrolls through the shown group in pages; returns the slowest page.
double slowestPage(ORXFeatureTreeView* view)
{
    QScrollBar* bar = view->verticalScrollBar();
    double slowest = 0;
    for (int value = 0; value < bar->maximum(); value += std::max(1, bar->maximum() / 60)) {
        slowest = std::max(slowest, elapsedMs([&] {
                               bar->setValue(value);
                               view->viewport()->repaint();
                           }));
    }
    return slowest;
}

void printLarge(int features)
{
    Size size = Size::ofFeatures(features);
    size.categories = 5;
    const QByteArray xml = DescriptionBuilder::generate(size);
    FakeHost host;
    host.serve(xml);
    const double before = allocatedKb();
    QElapsedTimer timer;
    timer.start();
    OpenedWindow window(host, xml);
    QApplication::processEvents();
    const double open = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    window.waitForFirstRead();
    QTest::qWait(300);
    host.clearCalls();
    const double after = allocatedKb();
    const Keystrokes typing = typeAndClear(window.widget()->featureGroup(1));
    const double scroll = slowestPage(window.tree()->treeView());
    std::printf("%6d features: open %.0f ms, a key in the search box until all is painted: median "
                "%.1f ms, slowest %.1f ms, slowest scrolled page %.1f ms, %.1f kB per feature\n",
                features, open, typing.medianMs, typing.slowestMs, scroll,
                (after - before) / features);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", qEnvironmentVariableIsSet("QT_QPA_PLATFORM")
                                   ? qgetenv("QT_QPA_PLATFORM")
                                   : QByteArray("offscreen"));
    QStandardPaths::setTestModeEnabled(true);
    QApplication application(argc, argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    for (const int features : {700, 5000, 16000})
        printLarge(features);
    printGap(700, 5);
    for (const int features : {700, 5000, 16000})
        printGap(features, 0);
    return 0;
}
