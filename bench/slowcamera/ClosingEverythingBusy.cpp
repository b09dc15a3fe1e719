// SPDX-License-Identifier: Apache-2.0
#include "Measures.h"
#include "SlowCamera.h"
#include "demo/DemoCamera.h"
#include "device/OBDeviceControl.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "pages/PageWindow.h"
#include "support/Literals.h"

#include <QEvent>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int kPage = ORXMainFeatureWidget::ImageProcessingTab;
constexpr int kLatencyMs = 100;
constexpr int kRuns = 5;

// Notes when a widget is hidden.
class HideWatch : public QObject
{
public:
    HideWatch(QWidget* widget, const SlowCamera& camera)
        : m_camera(camera)
    {
        widget->installEventFilter(this);
    }
    double hiddenMs() const { return m_hiddenMs; }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Hide)
            m_hiddenMs = m_camera.nowMs();
        return false;
    }

private:
    const SlowCamera& m_camera;
    double m_hiddenMs = 0;
};

// Both reading threads, the matrix reader, the check boxes, the table's transfer and the automatic
// trigger all have work that takes longer than the measurement.
bool makeBusy(const PageWindow& window, SlowCamera& camera)
{
    if (!window.show(kPage, "LUTEnable"))
        return false;
    camera.setLatencyMs(kLatencyMs);
    const bool busy = window.click(kPage, "Custom_LUTSetToCamera") &&
                      window.show(kPage, "Custom_ChunkSelector_0");
    QTest::qWait(kLatencyMs / 2);
    if (!busy || !window.show(kPage, "Custom_CCM"))
        return false;
    OB_FT_UpdateFeatures();
    window.tree()->SetAutoSoftwareTrig(true, 10);
    const qint64 width = window.item(0, "Width")->value()->value().toLongLong();
    window.tree()->setFeatureValue("Integer"_s, "Width"_s, width);
    return true;
}

void printRun(int run)
{
    DemoCamera demo;
    demo.write(OB_FT_TYPE_BOOLEAN, "LUTEnable", "1");
    SlowCamera camera(demo);
    const PageWindow window(camera);
    if (!makeBusy(window, camera)) {
        std::printf("    the window cannot be made busy\n");
        return;
    }
    const HideWatch watch(window.widget(), camera);
    // Another moment of the jobs in each run.
    QTest::qWait(3 * kLatencyMs + run * kLatencyMs * 7 / 10);
    camera.mark();
    const double asked = camera.nowMs();
    OB_FT_Close();
    const double returned = camera.nowMs();
    const double after = (returned - camera.markedCallsEndedMs()) / kLatencyMs;
    std::printf("    %d calls under way: returned %.2f calls' time after them (%.0f ms in all), "
                "hidden after %.0f ms, %d calls begun after the request\n",
                camera.underWayAtMark(), after, returned - asked, watch.hiddenMs() - asked,
                camera.begunSinceMark());
    std::fflush(stdout);
    camera.setLatencyMs(0);
}

} // namespace

void Measures::closingEverythingBusy()
{
    std::printf("OB_FT_Close with everything busy at %d ms a call (wanted: 3 calls' time, hidden "
                "at once)\n",
                kLatencyMs);
    OBDeviceControl::SetUserLevel(0);
    for (int run = 0; run < kRuns; ++run)
        printRun(run);
}
