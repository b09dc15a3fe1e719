// SPDX-License-Identifier: Apache-2.0
#include "Measures.h"
#include "SlowCamera.h"
#include "demo/DemoCamera.h"
#include "device/OBDeviceControl.h"
#include "main/CFeatureGroupModel.h"
#include "main/CFeatureGroupTreeView.h"
#include "main/ORXFeatureGroup.h"
#include "pages/PageWindow.h"
#include "support/Literals.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>

#include <sys/resource.h>

namespace {

constexpr int kLatencyMs = 200;
constexpr int kStepMs = 60; // between two actions of the user
constexpr int kActions = 40;

// What this thread has used so far.
struct Usage
{
    Usage()
    {
        timespec time = {};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        workedNs = time.tv_sec * 1000000000LL + time.tv_nsec;
        rusage usage = {};
        getrusage(RUSAGE_THREAD, &usage);
        waits = usage.ru_nvcsw;
    }

    qint64 workedNs = 0; // processor time
    long waits = 0;      // for a lock, or for an event
};

// The longest time between two beats of a timer of 1 ms, and what the thread did in it. It waits
// once for its next event; what it neither worked nor waited, the machine did other things.
class Beat
{
public:
    Beat()
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this] {
            const Usage usage;
            if (m_last.nsecsElapsed() > m_longestNs) {
                m_longestNs = m_last.nsecsElapsed();
                m_longest.workedNs = usage.workedNs - m_before.workedNs;
                m_longest.waits = usage.waits - m_before.waits;
            }
            m_before = usage;
            m_last.start();
        });
        m_last.start();
        m_timer.start(1);
    }
    double longestMs() const { return static_cast<double>(m_longestNs) / 1e6; }
    double workedMs() const { return static_cast<double>(m_longest.workedNs) / 1e6; }
    long waits() const { return m_longest.waits; }

private:
    QTimer m_timer;
    QElapsedTimer m_last;
    qint64 m_longestNs = 0;
    Usage m_longest;
    Usage m_before;
};

void printGap(const char* what, const SlowCamera& camera, const std::function<void(int)>& action)
{
    const int before = camera.guiReads();
    const Beat beat;
    for (int i = 0; i < kActions; ++i) {
        action(i);
        QTest::qWait(kStepMs);
    }
    std::printf("    %-18s longest gap %6.1f ms (%.1f of work, %ld waits) = %.2f calls' time, "
                "%d reads on the GUI thread\n",
                what, beat.longestMs(), beat.workedMs(), beat.waits(),
                beat.longestMs() / kLatencyMs, camera.guiReads() - before);
    std::fflush(stdout);
}

void pressGroup(const PageWindow& window, int step)
{
    CFeatureGroupTreeView* groups = window.widget()->featureGroup(1)->groupView();
    const QAbstractItemModel* model = groups->model();
    const QModelIndex page = model->index(step % model->rowCount(), 0);
    groups->OnChangedIndex(page);
    if (const int rows = model->rowCount(page))
        groups->OnChangedIndex(model->index(step / model->rowCount() % rows, 0, page));
}

} // namespace

void Measures::gapsOfTheEventLoop()
{
    OBDeviceControl::SetUserLevel(0);
    DemoCamera demo;
    SlowCamera camera(demo);
    const PageWindow window(camera);
    camera.setLatencyMs(kLatencyMs);
    std::printf("event loop at %d ms a call (wanted: no gap beyond 30 ms)\n", kLatencyMs);
    printGap("polling", camera, [](int) {});
    // What the white balance of the common page stands on changes by itself.
    printGap("changing by itself", camera, [&](int step) {
        demo.write(OB_FT_TYPE_FLOAT, "BalanceRatio", step % 2 ? "1.5" : "1.25");
        if (step % 8 == 0)
            OB_FT_UpdateFeatures();
    });
    OB_FT_UpdateFeatures();
    printGap("reading", camera, [](int) {});
    auto* box = window.widget()->featureGroup(1)->findChild<QLineEdit*>("FeatureSearch"_s);
    const QString text = "exposure time"_s;
    printGap("searching", camera, [&](int step) { box->setText(text.left(step % text.size())); });
    box->clear();
    QScrollBar* bar = window.tree()->treeView()->verticalScrollBar();
    printGap("scrolling", camera,
             [&](int step) { bar->setValue(bar->maximum() * (step % 10) / 10); });
    printGap("switching pages", camera, [&](int step) { pressGroup(window, step); });
    camera.setLatencyMs(0);
}
