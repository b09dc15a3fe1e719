// SPDX-License-Identifier: Apache-2.0
// What the host is still asked for when the window is closed, for every worker and whatever it does
// at that moment: the call under way ends, and what was moved is put back.
#include "device/OBDeviceControl.h"
#include "pages/DemoPageTest.h"
#include "pages/HeldCamera.h"
#include "support/Periods.h"

#include <QAbstractButton>
#include <QThread>

#include <condition_variable>
#include <mutex>
#include <thread>

namespace {

constexpr int kPage = ORXMainFeatureWidget::ImageProcessingTab;
const char kTransformation[] = "ColorTransformationEnable";
const char kMatrixSelector[] = "ColorTransformationValueSelector";

// Closes the window while the host holds calls, and lets the calls go when the window is hidden,
// or, if the window waits for them before it hides, much later.
class Closing : public QObject
{
public:
    explicit Closing(HeldCamera& camera)
        : m_camera(camera)
    {
    }
    void close(QWidget* window)
    {
        window->installEventFilter(this);
        std::thread patience([this] {
            std::unique_lock<std::mutex> lock(m_mutex);
            if (!m_changed.wait_for(lock, std::chrono::milliseconds(kWindowPatienceMs),
                                    [this] { return m_bClosed; }))
                m_camera.release();
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
            m_camera.release();
        }
        return false;
    }

private:
    HeldCamera& m_camera;
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

public:
    enum Work {
        FirstRead,
        Refresh,
        LevelPass,
        EditedAgain,
        Lockable,
        Polling,
        Matrix,
        MatrixAfterTabs,
        BoxesRead,
        BoxWritten,
        TableRead,
        TableWritten,
        Trigger,
        Everyone
    };
    Q_ENUM(Work)

protected:
    void prepare() override
    {
        DemoPageTest::prepare();
        m_held = std::make_unique<HeldCamera>(*m_demo);
        QCOMPARE(write("ChunkSelector", "3"), 0);
        QCOMPARE(write(kMatrixSelector, "6"), 0);
        QCOMPARE(write(kTransformation, "1"), 0);
        QCOMPARE(write("LUTEnable", "1"), 0);
        QCOMPARE(write("TriggerMode", "1"), 0);
    }
    void finish() override
    {
        m_held->release();
        DemoPageTest::finish();
        m_held.reset();
    }

private:
    void openWindow(PageWindow::Opening opening = PageWindow::WaitForFirstRead)
    {
        m_window = std::make_unique<PageWindow>(*m_held, 0, opening);
    }
    QAbstractButton* box(int entry) const
    {
        ORXPropertyTreeItem* row =
            m_window->item(kPage, "Custom_ChunkSelector_" + QByteArray::number(entry & ~1));
        return row ? qobject_cast<QAbstractButton*>(
                         m_window->page(kPage)->treeView()->editorOf(row, entry % 2))
                   : nullptr;
    }
    // The boxes stand there, their states have been read, and nothing is under way.
    void showBoxes()
    {
        QVERIFY(m_window->show(kPage, "Custom_ChunkSelector_0"));
        OBFT_TRY_VERIFY(box(2) && box(2)->isChecked() && box(6) && box(6)->isEnabled());
    }
    void clickBox(int entry) const
    {
        QTest::mouseClick(box(entry), Qt::LeftButton, {}, QPoint(10, box(entry)->height() / 2));
    }
    // Opens the window and sets the worker to work, with the calls held.
    void begin(Work work, const QStringList& calls)
    {
        const auto hold = [&] {
            m_held->forget();
            for (const QString& call : calls)
                m_held->hold(call);
        };
        if (work == Refresh)
            OBDeviceControl::SetUserLevel(1);
        if (work == FirstRead)
            hold();
        openWindow(work == FirstRead ? PageWindow::InFirstRead : PageWindow::WaitForFirstRead);
        if (work == BoxesRead || work == BoxWritten || work == Everyone)
            showBoxes();
        // Out of sight; they will be read when they come back.
        if (work == BoxesRead) {
            QVERIFY(m_window->show(kTree, "Width"));
            OBFT_TRY_VERIFY(!m_window->tree()->isReading());
        }
        if (work == TableRead || work == TableWritten || work == Everyone)
            QVERIFY(m_window->show(kPage, "Custom_LUTLoadFromCamera"));
        if (work == Everyone)
            QVERIFY(m_window->click(kPage, "Custom_LUTLoadFromCamera"));
        hold();
        switch (work) {
        case FirstRead:
        case Polling:
            break;
        case Refresh:
            OB_FT_UpdateFeatures();
            break;
        case BoxesRead:
            QVERIFY(m_window->show(kPage, "Custom_ChunkSelector_0"));
            break;
        case LevelPass:
            OBDeviceControl::SetUserLevel(1);
            m_window->tree()->OnUserLevelChanged();
            break;
        case EditedAgain:
            m_window->tree()->rereadInvalidated("Width"_s);
            break;
        case Lockable:
            m_window->tree()->OnCameraStartShot();
            break;
        case Matrix:
        case MatrixAfterTabs:
            QVERIFY(m_window->show(kPage, "Custom_CCM"));
            break;
        case BoxWritten:
            clickBox(6);
            break;
        case TableRead:
            QVERIFY(m_window->click(kPage, "Custom_LUTLoadFromCamera"));
            break;
        case TableWritten:
            QVERIFY(m_window->click(kPage, "Custom_LUTSetToCamera"));
            break;
        case Trigger:
            m_window->tree()->SetAutoSoftwareTrig(true, 1);
            break;
        case Everyone:
            m_window->tree()->SetAutoSoftwareTrig(true, 1);
            showBoxes();
            clickBox(6);
            OBFT_TRY_COMPARE(m_held->held(), calls.size());
            // These wait for their turns.
            QVERIFY(m_window->show(kPage, "Custom_CCM"));
            OB_FT_UpdateFeatures();
            m_window->tree()->rereadInvalidated("Width"_s);
            break;
        }
        OBFT_TRY_COMPARE(m_held->held(), calls.size());
        if (work == MatrixAfterTabs) {
            QVERIFY(m_window->show(kTree, "Width"));
            QVERIFY(m_window->show(kPage, "Custom_CCM"));
        }
    }

    std::unique_ptr<HeldCamera> m_held;

private slots:
    void onlyThePuttingBackFollows_data()
    {
        const QStringList transform{"set ColorTransformationEnable=1"_s};
        const QStringList matrix{"set ColorTransformationValueSelector=6"_s, transform.first()};
        const QStringList chunk{"set ChunkSelector=3"_s};
        const QStringList none;
        const Rows<Work, QStringList, QStringList> row("work", "held", "afterwards");
        const auto held = [](const char* call) { return QStringList(QString::fromLatin1(call)); };
        row("first read, access mode", FirstRead, held("mode AaMany"), none);
        row("first read, value", FirstRead, held("get AaMany"), none);
        row("first read, an entry's decider", FirstRead, held("get AaManyDecider7"), none);
        row("refresh, an entry of a description", Refresh, held("get AaManyGuruDecider7"), none);
        row("user level", LevelPass, held("mode AaMany"), none);
        row("after an edit, access mode", EditedAgain, held("mode Width"), none);
        row("after an edit, value", EditedAgain, held("get Width"), none);
        row("lockable features", Lockable, held("get TLParamsLocked"), none);
        row("polling", Polling, held("mode DeviceTemperature"), none);
        row("matrix, transformation read", Matrix, held("get ColorTransformationEnable"), none);
        row("matrix, transformation switched off", Matrix, held("set ColorTransformationEnable=0"),
            transform);
        row("matrix, selector read", Matrix, held("get ColorTransformationValueSelector"),
            transform);
        row("matrix, selector written", Matrix, held("set ColorTransformationValueSelector=0"),
            matrix);
        row("matrix, coefficient", Matrix, held("get ColorTransformationValue"), matrix);
        row("matrix, at the entry of before", Matrix,
            held("set ColorTransformationValueSelector=6"), transform);
        row("matrix, transformation put back", Matrix, held("set ColorTransformationEnable=1"),
            none);
        row("matrix, switch", Matrix, held("get CCMEnable"), none);
        row("matrix, after the tabs were changed", MatrixAfterTabs,
            held("get ColorTransformationValue"), matrix);
        row("boxes read, selector read", BoxesRead, held("get ChunkSelector"), none);
        row("boxes read, selector written", BoxesRead, held("set ChunkSelector=0"), chunk);
        row("boxes read, state", BoxesRead, held("get ChunkEnable"), chunk);
        row("box written, selector read", BoxWritten, held("get ChunkSelector"), none);
        row("box written, selector written", BoxWritten, held("set ChunkSelector=6"), chunk);
        row("box written, state", BoxWritten, held("set ChunkEnable"), chunk);
        row("box written, selector put back", BoxWritten, held("set ChunkSelector=3"), none);
        row("table read, size", TableRead, held("get LUTIndex"), none);
        row("table read, index", TableRead, held("set LUTIndex=5"), none);
        row("table read, value", TableRead, held("get LUTValue"), none);
        row("table written, index", TableWritten, held("set LUTIndex=5"), none);
        row("table written, value", TableWritten, held("set LUTValue"), none);
        row("automatic trigger", Trigger, held("set TriggerSoftware"), none);
        row("everyone", Everyone,
            QStringList{"set LUTIndex=1000"_s, "set ChunkEnable"_s, "set TriggerSoftware"_s},
            chunk);
    }

    void onlyThePuttingBackFollows()
    {
        QFETCH(Work, work);
        QFETCH(QStringList, held);
        MessageGuard::expectMessage("LUT: "_s);
        MessageGuard::expectMessage("was not written: stopped before"_s);
        begin(work, held);
        if (QTest::currentTestFailed())
            return;
        Closing closing(*m_held);
        closing.close(m_window->widget());
        QVERIFY(closing.hidBeforeTheWaiting());
        QTEST(closing.callsSince(), "afterwards");
        // Nothing begins after the window was closed, and the user, who closed it, gets no message.
        QVERIFY(twentyPeriodsPass());
        QTEST(closing.callsSince(), "afterwards");
        QVERIFY(!messageBox());
        QCOMPARE(read("ChunkSelector"), 3);
        QCOMPARE(read(kMatrixSelector), 6);
        QCOMPARE(read(kTransformation), 1);
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
        const QString table = "set LUTIndex=5"_s;
        const QString read = "mode AaMany"_s;
        MessageGuard::expectMessage("LUT: "_s);
        begin(TableWritten, {table});
        if (QTest::currentTestFailed())
            return;
        ORXFeatureTree* tree = m_window->tree();
        m_held->hold(read);
        tree->RefreshFeatures();
        OBFT_TRY_COMPARE(m_held->held(), 2);
        QStringList calls;
        std::thread host([&] {
            const auto patiently = [](const auto& done) {
                for (int i = 0; i < kWindowPatienceMs && !done(); ++i)
                    QThread::msleep(1);
            };
            patiently([] { return MessageGuard::contains("LUT: waiting"_s); });
            m_held->forget();
            m_held->release(read);
            patiently([&] { return !tree->isReading(); });
            calls = m_held->calls();
            m_held->release();
        });
        if (released)
            OB_FT_Release();
        else
            m_window->widget()->removeFeatureTree(1);
        host.join();
        QVERIFY(MessageGuard::contains("LUT: waiting"_s));
        QCOMPARE(calls, QStringList());
    }

    // A box that the camera never got stands as before, and the log says so.
    void unwrittenBoxIsTold_data()
    {
        const Rows<QString, bool> row("held", "written");
        row("before", "get ChunkSelector", false);
        row("selector moved", "set ChunkSelector=6", false);
        row("written", "set ChunkEnable", true);
    }

    void unwrittenBoxIsTold()
    {
        QFETCH(QString, held);
        QFETCH(bool, written);
        MessageGuard::expectMessage("was not written: stopped before"_s);
        begin(BoxWritten, {held});
        if (QTest::currentTestFailed())
            return;
        Closing(*m_held).close(m_window->widget());
        QCOMPARE(MessageGuard::contains("ChunkEnable of entry 6 was not written"_s), !written);
        QVERIFY(!messageBox());
        QCOMPARE(box(6)->isChecked(), written);
    }
};

OBFT_TEST_MAIN(TestStopping)
#include "tst_stopping.moc"
