// SPDX-License-Identifier: Apache-2.0
#include "device/OBDeviceControl.h"
#include "faults/FaultyCamera.h"
#include "host/CameraTalk.h"
#include "host/FakeGigECamera.h"
#include "pages/MeddledCamera.h"
#include "pages/PageWindow.h"
#include "support/Periods.h"
#include "support/TestMain.h"

#include <QEvent>
#include <QSemaphore>

#include <memory>
#include <thread>

namespace {

constexpr int kTree = ORXMainFeatureWidget::WholeTreeTab;
// Late in the alphabet and out of sight of the features that are edited.
constexpr char kLate[] = "TriggerSource";

// Tells another thread that a widget was hidden.
class HideWatch : public QObject
{
public:
    explicit HideWatch(QWidget* widget) { widget->installEventFilter(this); }
    // False when it does not come about.
    bool waitForHide() { return m_hidden.tryAcquire(1, PageWindow::kPatienceMs); }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Hide)
            m_hidden.release();
        return false;
    }

private:
    QSemaphore m_hidden;
};

} // namespace

// The window on a GigE Vision camera with latency on the way, before its first read has ended.
class TestSlowGigEWindow : public GuardedTest
{
    Q_OBJECT

protected:
    void prepare() override
    {
        if (!m_real)
            return; // skipped
        OBDeviceControl::SetUserLevel(0);
        QString error;
        m_slow = std::make_unique<FaultyCamera>(*m_real,
                                                FaultPlan::parse("latency * 5"_s, &error).value());
        m_camera = std::make_unique<MeddledCamera>(*m_slow);
        m_camera->closeGate(kLate, MeddledCamera::Reads);
        m_window = std::make_unique<PageWindow>(*m_camera, 0, PageWindow::InFirstRead);
    }
    void finish() override
    {
        if (m_camera)
            m_camera->openGate();
        m_window.reset();
        OBDeviceControl::SetUserLevel(1);
    }
    bool failsOnGuiThreadReads() const override { return true; }

private:
    QString shown(const char* name) const { return m_window->shown(kTree, name); }
    QString held(const char* name) const { return CameraTalk(*m_slow).value(QLatin1String(name)); }

    std::unique_ptr<FakeGigECamera> m_fake;
    std::unique_ptr<Camera> m_real;
    std::unique_ptr<FaultyCamera> m_slow;
    std::unique_ptr<MeddledCamera> m_camera;
    std::unique_ptr<PageWindow> m_window;

private slots:
    void initTestCase()
    {
        const QString reason = FakeGigECamera::reasonToSkip();
        if (!reason.isEmpty())
            QSKIP(qPrintable(reason));
        m_fake = std::make_unique<FakeGigECamera>();
        m_real = m_fake->open();
        QVERIFY(m_real);
    }

    void cleanupTestCase() { m_real.reset(); }

    void editInTheMiddleOfTheFirstRead()
    {
        OBFT_TRY_VERIFY(m_window->isEnabled(kTree, "Height"));
        OBFT_TRY_COMPARE(shown("Height"), held("Height"));
        OBFT_TRY_VERIFY(m_camera->isHolding());
        const QString wanted = shown("Height") == QLatin1String("200") ? "160"_s : "200"_s;
        QVERIFY(m_window->enter(kTree, "Height", wanted));
        QVERIFY(!m_window->tree()->HadUpdatedOnce());
        QCOMPARE(held("Height"), wanted);
        QVERIFY(FakeGigECamera::readIndependently("Height"_s).contains(wanted));
        // The camera makes something else of it, which only the re-read can tell: the first read is
        // beyond this feature.
        QCOMPARE(m_real->write(OB_FT_TYPE_INTEGER, "Height", "144"), 0);
        m_camera->openGate();
        OBFT_TRY_COMPARE(shown("Height"), "144"_s);
        OBFT_TRY_VERIFY(m_window->tree()->HadUpdatedOnce());
    }

    void closeInTheMiddleOfTheFirstRead()
    {
        OBFT_TRY_VERIFY(m_camera->isHolding());
        HideWatch watch(m_window->widget());
        const long before = m_slow->effects(0);
        // The window hides before it waits for the call under way.
        bool hidFirst = false;
        std::thread camera([&] {
            hidFirst = watch.waitForHide();
            m_camera->openGate();
        });
        QCOMPARE(OB_FT_Close(), 0);
        camera.join();
        QVERIFY(hidFirst);
        QVERIFY(twentyPeriodsPass());
        QCOMPARE(m_slow->effects(0), before + 1); // the held one went on to the camera
        // The next opening reads everything from the start.
        QCOMPARE(OB_FT_Start(nullptr, 0), 0);
        OBFT_TRY_VERIFY(m_window->tree()->HadUpdatedOnce());
        OBFT_TRY_COMPARE(shown("Height"), held("Height"));
    }
};

OBFT_TEST_MAIN(TestSlowGigEWindow)
#include "tst_slowgigewindow.moc"
