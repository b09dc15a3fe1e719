// SPDX-License-Identifier: Apache-2.0
// What the host is still asked for when the window is closed, for every worker and whatever it does
// at that moment: the call under way ends, and what was moved is put back.
#include "device/OBDeviceControl.h"
#include "pages/DemoPageTest.h"
#include "pages/ManyEntries.h"
#include "support/Periods.h"

#include <QAbstractButton>
#include <QThread>

#include <condition_variable>
#include <mutex>
#include <thread>

namespace {

const char kLoad[] = "Custom_LUTLoadFromCamera";

// Closes the window while the host holds calls, and lets the calls go when the window is hidden,
// or, if the window waits for them before it hides, much later.
class Closing : public QObject
{
public:
    Closing(MeddledCamera& camera, QWidget* window)
        : m_camera(camera)
    {
        window->installEventFilter(this);
        std::thread patience([this] {
            std::unique_lock<std::mutex> lock(m_mutex);
            if (!m_changed.wait_for(lock, std::chrono::milliseconds(kWindowPatienceMs),
                                    [this] { return m_bClosed; }))
                m_camera.openGate();
        });
        OB_FT_Close();
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_bClosed = true;
        }
        m_changed.notify_all();
        patience.join();
        window->removeEventFilter(this);
    }
    // Whether calls were under way when the window hid.
    bool hidBeforeTheWaiting() const { return m_heldAtHiding > 0; }
    // What the host was asked for from then on.
    QStringList callsSince() const { return m_camera.calls().mid(m_callsAtHiding); }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Hide && m_callsAtHiding < 0) {
            m_callsAtHiding = int(m_camera.calls().size());
            m_heldAtHiding = m_camera.held();
            m_camera.openGate();
        }
        return false;
    }

private:
    MeddledCamera& m_camera;
    int m_callsAtHiding = -1;
    int m_heldAtHiding = 0;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_bClosed = false; // guarded by m_mutex
};

} // namespace

class TestStopping : public DemoPageTest
{
    Q_OBJECT

protected:
    void prepare() override
    {
        DemoPageTest::prepare();
        m_camera = std::make_unique<ManyEntries>(*m_demo);
        QCOMPARE(write("ChunkSelector", "3"), 0);
        QCOMPARE(write(kMatrixSelector, "6"), 0);
        QCOMPARE(write(kTransformation, "1"), 0);
        QCOMPARE(write("LUTEnable", "1"), 0);
        QCOMPARE(write("TriggerMode", "1"), 0);
    }

private:
    QAbstractButton* box(int entry) const { return DemoPageTest::box("ChunkSelector", entry); }
    void show(const char* name) const { QVERIFY(m_window->show(kImage, name)); }
    void click(const char* name) const { QVERIFY(m_window->click(kImage, name)); }
    // The boxes stand there, their states have been read, and nothing is under way.
    void showBoxes() const
    {
        show("Custom_ChunkSelector_0");
        OBFT_TRY_VERIFY(box(2) && box(2)->isChecked() && box(6) && box(6)->isEnabled());
    }
    // What the window is brought to before calls are held, and what sets a worker to work.
    struct Work
    {
        std::function<void()> before;
        std::function<void()> start;
    };
    Work workOf(const QString& name, int held)
    {
        const auto nothing = [] {};
        const auto showMatrix = [this] { show("Custom_CCM"); };
        const auto showTable = [this] { show(kLoad); };
        const auto trigger = [this] { m_window->tree()->SetAutoSoftwareTrig(true, 1); };
        const auto reread = [this] { m_window->tree()->rereadInvalidated("Width"_s); };
        const QHash<QString, Work> works = {
            {"polling"_s, {nothing, nothing}},
            {"refresh"_s, {nothing, [] { OB_FT_UpdateFeatures(); }}},
            {"user level"_s,
             {nothing,
              [this] {
                  OBDeviceControl::SetUserLevel(1);
                  m_window->tree()->OnUserLevelChanged();
              }}},
            {"after an edit"_s, {nothing, reread}},
            {"lockable"_s, {nothing, [this] { m_window->tree()->OnCameraStartShot(); }}},
            {"matrix"_s, {nothing, showMatrix}},
            {"matrix after tabs"_s,
             {nothing,
              [=] {
                  showMatrix();
                  OBFT_TRY_COMPARE(m_camera->held(), held);
                  QVERIFY(m_window->show(kTree, "Width"));
                  showMatrix();
              }}},
            // Out of sight first; they are read when they come back.
            {"boxes read"_s,
             {[this] {
                  showBoxes();
                  QVERIFY(m_window->show(kTree, "Width"));
                  OBFT_TRY_VERIFY(!m_window->tree()->isReading());
              },
              [this] { show("Custom_ChunkSelector_0"); }}},
            {"box written"_s, {[this] { showBoxes(); }, [this] { PageWindow::press(box(6)); }}},
            {"table read"_s, {showTable, [this] { click(kLoad); }}},
            {"table written"_s, {showTable, [this] { click("Custom_LUTSetToCamera"); }}},
            {"trigger"_s, {nothing, trigger}},
            {"everyone"_s,
             {[=] {
                  showBoxes();
                  showTable();
                  click(kLoad);
              },
              [=] {
                  trigger();
                  showBoxes();
                  PageWindow::press(box(6));
                  OBFT_TRY_COMPARE(m_camera->held(), held);
                  // These wait for their turns.
                  showMatrix();
                  OB_FT_UpdateFeatures();
                  reread();
              }}},
        };
        return works.value(name);
    }
    // Opens the window and sets the worker to work, with the calls held.
    void begin(const QString& work, const QStringList& calls)
    {
        const auto hold = [&] {
            m_camera->forget();
            for (const QString& call : calls)
                m_camera->hold(call);
        };
        if (work == "refresh"_s)
            OBDeviceControl::SetUserLevel(1);
        if (work == "first read"_s) {
            hold();
            m_window = std::make_unique<PageWindow>(*m_camera, 0, PageWindow::InFirstRead);
        } else {
            open();
            const Work steps = workOf(work, int(calls.size()));
            steps.before();
            hold();
            steps.start();
        }
        OBFT_TRY_COMPARE(m_camera->held(), int(calls.size()));
    }

private slots:
    void onlyThePuttingBackFollows_data()
    {
        const Rows<QString, QString, QString> row("work", "held", "afterwards");
        const char* const transform = "set ColorTransformationEnable=1";
        const char* const matrix =
            "set ColorTransformationValueSelector=6, set ColorTransformationEnable=1";
        const char* const chunk = "set ChunkSelector=3";
        row("first read, access mode", "first read", "mode AaMany", "");
        row("first read, value", "first read", "get AaMany", "");
        row("first read, an entry's decider", "first read", "get AaManyDecider7", "");
        row("refresh, an entry of a description", "refresh", "get AaManyGuruDecider7", "");
        row("user level", "user level", "mode AaMany", "");
        row("after an edit, access mode", "after an edit", "mode Width", "");
        row("after an edit, value", "after an edit", "get Width", "");
        row("lockable features", "lockable", "get TLParamsLocked", "");
        row("polling", "polling", "mode DeviceTemperature", "");
        row("matrix, transformation read", "matrix", "get ColorTransformationEnable", "");
        row("matrix, transformation off", "matrix", "set ColorTransformationEnable=0", transform);
        row("matrix, selector read", "matrix", "get ColorTransformationValueSelector", transform);
        row("matrix, selector written", "matrix", "set ColorTransformationValueSelector=0", matrix);
        row("matrix, coefficient", "matrix", "get ColorTransformationValue", matrix);
        row("matrix, back", "matrix", "set ColorTransformationValueSelector=6", transform);
        row("matrix, transformation back", "matrix", "set ColorTransformationEnable=1", "");
        row("matrix, switch", "matrix", "get CCMEnable", "");
        row("matrix, after tabs", "matrix after tabs", "get ColorTransformationValue", matrix);
        row("boxes read, selector read", "boxes read", "get ChunkSelector", "");
        row("boxes read, selector written", "boxes read", "set ChunkSelector=0", chunk);
        row("boxes read, state", "boxes read", "get ChunkEnable", chunk);
        row("box written, selector read", "box written", "get ChunkSelector", "");
        row("box written, selector written", "box written", "set ChunkSelector=6", chunk);
        row("box written, state", "box written", "set ChunkEnable", chunk);
        row("box written, selector put back", "box written", "set ChunkSelector=3", "");
        row("table read, size", "table read", "get LUTIndex", "");
        row("table read, index", "table read", "set LUTIndex=5", "");
        row("table read, value", "table read", "get LUTValue", "");
        row("table written, index", "table written", "set LUTIndex=5", "");
        row("table written, value", "table written", "set LUTValue", "");
        row("automatic trigger", "trigger", "set TriggerSoftware", "");
        row("everyone", "everyone", "set LUTIndex=1000, set ChunkEnable, set TriggerSoftware",
            chunk);
    }

    void onlyThePuttingBackFollows()
    {
        const auto [work, held] = fetchRow<QString, QString>();
        MessageGuard::expectMessage("LUT: "_s);
        MessageGuard::expectMessage("was not written: stopped before"_s);
        begin(work, held.split(", "_s));
        if (QTest::currentTestFailed())
            return;
        const Closing closing(*m_camera, m_window->widget());
        QVERIFY(closing.hidBeforeTheWaiting());
        QTEST(closing.callsSince().join(", "_s), "afterwards");
        // Nothing begins after the window was closed, and the user, who closed it, gets no message.
        QVERIFY(twentyPeriodsPass());
        QTEST(closing.callsSince().join(", "_s), "afterwards");
        QVERIFY(!messageBox());
        QCOMPARE(read("ChunkSelector"), 3);
        QCOMPARE(read(kMatrixSelector), 6);
        QCOMPARE(read(kTransformation), 1);
        if (work != "box written"_s)
            return;
        // A box that the camera never got stands as before, and the log says so.
        const bool written = held == "set ChunkEnable"_s || held == "set ChunkSelector=3"_s;
        QCOMPARE(MessageGuard::contains("ChunkEnable of entry 6 was not written"_s), !written);
        QCOMPARE(box(6)->isChecked(), written);
    }

    // While the table of a camera that goes is waited for, its read ends as well.
    void everyoneIsAskedFirst_data()
    {
        const Rows<bool> row("released");
        row("camera removed", false);
        row("window released", true);
    }

    void everyoneIsAskedFirst()
    {
        QFETCH(bool, released);
        const QString read = "mode AaMany"_s;
        MessageGuard::expectMessage("LUT: "_s);
        begin("table written"_s, {"set LUTIndex=5"_s});
        if (QTest::currentTestFailed())
            return;
        ORXFeatureTree* tree = m_window->tree();
        m_camera->hold(read);
        tree->RefreshFeatures();
        OBFT_TRY_COMPARE(m_camera->held(), 2);
        QStringList calls;
        std::thread host([&] {
            const auto patiently = [](const auto& done) {
                for (int i = 0; i < kWindowPatienceMs && !done(); ++i)
                    QThread::msleep(1);
            };
            patiently([] { return MessageGuard::contains("LUT: waiting"_s); });
            m_camera->forget();
            m_camera->release(read);
            patiently([&] { return !tree->isReading(); });
            calls = m_camera->calls();
            m_camera->openGate();
        });
        if (released)
            OB_FT_Release();
        else
            m_window->widget()->removeFeatureTree(1);
        host.join();
        QVERIFY(MessageGuard::contains("LUT: waiting"_s));
        QCOMPARE(calls, QStringList());
    }
};

OBFT_TEST_MAIN(TestStopping)
#include "tst_stopping.moc"
