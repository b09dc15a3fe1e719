// SPDX-License-Identifier: Apache-2.0
// The window on a camera that speaks GigE Vision, the fake one of Aravis on the loopback interface:
// from OB_FT_Start until the rows in sight have their values on the screen, until the whole tree is
// read, and for how long the event loop stood still meanwhile. The camera's description may be
// given as a file; its own is short.
#include "cameras/Camera.h"
#include "host/FakeGigECamera.h"
#include "main/ORXMainFeatureWidget.h"
#include "model/CTreeItemValue.h"
#include "program/HostCallbacks.h"
#include "support/Literals.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXFeatureTreeView.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QStandardPaths>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

constexpr int kOpenings = 9;
constexpr double kPatienceMs = 30000;

struct Opening
{
    double paintedMs = 0; // the window, with names and without values
    double inSightMs = 0; // the rows in sight with their values
    double wholeMs = 0;
    double longestGapMs = 0; // after the window was painted
    long calls = 0;
    int items = 0;
};

// Time from its making, and the longest that one round of the event loop took.
class Clock
{
public:
    Clock() { m_timer.start(); }
    double ms() const { return static_cast<double>(m_timer.nsecsElapsed()) / 1e6; }
    double longestRoundMs() const { return m_longest; }
    // When the condition held after a round; the patience when it never did.
    double until(const std::function<bool()>& holds)
    {
        while (!holds() && ms() < kPatienceMs) {
            const double before = ms();
            QCoreApplication::processEvents(QEventLoop::AllEvents);
            m_longest = std::max(m_longest, ms() - before);
        }
        return ms();
    }

private:
    QElapsedTimer m_timer;
    double m_longest = 0;
};

// What could not be read keeps none.
bool haveValues(const ORXFeatureTree& tree, const QStringList& names)
{
    return !names.isEmpty() && std::all_of(names.begin(), names.end(), [&](const QString& name) {
        const ORXPropertyTreeItem* item = tree.propertyItemByName(name);
        return !item || !item->visible() ||
               item->value()->lastRead() != CTreeItemValue::LastRead::None;
    });
}

Opening open(Camera& camera)
{
    Opening opening;
    HostCallbacks host(camera);
    OB_FT_Init(camera.descriptionXml().c_str(), nullptr, nullptr);
    OB_FT_SetCallBackFunc(HostCallbacks::getFeature, HostCallbacks::setFeature,
                          HostCallbacks::getMode, HostCallbacks::invalidate, HostCallbacks::action,
                          &host);
    OB_FT_SetWidgetSize(900, 700);
    ORXFeatureTree* tree = ORXMainFeatureWidget::instance(nullptr)->featureTree(1, false);
    QStringList inSight;
    QObject::connect(tree->treeView(), &ORXFeatureTreeView::SigRowsInSight, tree,
                     [&](const QStringList& names) { inSight = names; });
    Clock clock;
    OB_FT_Start(nullptr, 0);
    QCoreApplication::processEvents();
    opening.paintedMs = clock.ms();
    clock.until([&] { return haveValues(*tree, inSight) || tree->HadUpdatedOnce(); });
    QCoreApplication::processEvents(); // they are painted
    opening.inSightMs = clock.ms();
    opening.wholeMs = clock.until([&] { return tree->HadUpdatedOnce(); });
    opening.longestGapMs = clock.longestRoundMs();
    opening.calls = host.calls().count(CallCounter::Mode) + host.calls().count(CallCounter::Read);
    opening.items = int(tree->AllTreeItemsMap().size());
    OB_FT_Release();
    return opening;
}

double middle(const std::vector<Opening>& openings, double Opening::*of)
{
    std::vector<double> values;
    for (const Opening& each : openings)
        values.push_back(each.*of);
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QStandardPaths::setTestModeEnabled(true);
    QApplication application(argc, argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QString reason = FakeGigECamera::reasonToSkip();
    if (!reason.isEmpty()) {
        std::printf("not measured: %s\n", qPrintable(reason));
        return 0;
    }
    FakeGigECamera fake(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString());
    const std::unique_ptr<Camera> camera = fake.open();
    if (!camera) {
        std::fprintf(stderr, "no camera on the loopback interface\n");
        return 1;
    }
    std::vector<Opening> openings;
    for (int i = 0; i < kOpenings; ++i)
        openings.push_back(open(*camera));
    std::printf(
        "%d features and groups, %ld calls; after OB_FT_Start the window is painted within %.1f "
        "ms, the rows in sight "
        "have their values within %.1f ms, all are read within %.1f ms; longest round of the "
        "event loop %.1f ms (middle of %d openings)\n",
        openings.back().items, openings.back().calls, middle(openings, &Opening::paintedMs),
        middle(openings, &Opening::inSightMs), middle(openings, &Opening::wholeMs),
        middle(openings, &Opening::longestGapMs), kOpenings);
    return 0;
}
