// SPDX-License-Identifier: Apache-2.0
#include "host/FakeGigECamera.h"
#include "pages/MeddledCamera.h"
#include "pages/PageWindow.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "support/Periods.h"
#include "support/TestMain.h"

#include <QComboBox>

#include <memory>

namespace {

constexpr int kTree = ORXMainFeatureWidget::WholeTreeTab;
constexpr int kPage = ORXMainFeatureWidget::TriggerTab;
constexpr int kSlowMs = PageWindow::kPatienceMs; // a pass over the protocol on a busy machine

} // namespace

// Drives the visible editors of the window on a GigE Vision camera that another program simulates,
// and asks a third program what the camera holds.
class TestGigEWindow : public GuardedTest
{
    Q_OBJECT

protected:
    bool failsOnGuiThreadReads() const override { return true; }

private:
    QString shown(const char* name) const { return m_window->shown(kTree, name); }

    std::unique_ptr<FakeGigECamera> m_fake;
    std::unique_ptr<Camera> m_real;
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
        m_camera = std::make_unique<MeddledCamera>(*m_real);
        m_window = std::make_unique<PageWindow>(*m_camera);
    }

    void cleanupTestCase() { m_window.reset(); }

    // Asking the camera through another program takes seconds while this one holds it: its writes
    // have returned by then, so one look is enough.
    void typedWidthReachesTheCamera()
    {
        const QString wanted = shown("Width") == QLatin1String("320") ? "256"_s : "320"_s;
        QVERIFY(m_window->enter(kTree, "Width", wanted));
        QVERIFY(FakeGigECamera::readIndependently("Width"_s).contains(wanted));
        QTRY_COMPARE_WITH_TIMEOUT(shown("Width"), wanted, kSlowMs);
    }

    void valueOutOfRangeIsNotSent()
    {
        QVERIFY(m_window->enter(kTree, "Width", "99999999"_s));
        // Whatever the editor makes of it (the nearest legal value), it is legal, and window and
        // camera agree.
        _ZDCC_INTVALUE_EX_T record = {};
        QCOMPARE(m_camera->read(OB_FT_TYPE_INTEGER, "Width", &record), 0);
        QVERIFY(record.value <= record.maximum);
        QTRY_COMPARE_WITH_TIMEOUT(shown("Width"), QString::number(record.value), kSlowMs);
    }

    void chosenEntryReachesTheCamera()
    {
        const auto* format = m_window->editor<QComboBox>(kTree, "PixelFormat");
        QVERIFY(format);
        QTRY_VERIFY_WITH_TIMEOUT(format->count() > 1, kSlowMs);
        const QString wanted = format->itemText(format->currentIndex() == 0 ? 1 : 0);
        QVERIFY(m_window->choose(kTree, "PixelFormat", wanted));
        QVERIFY(FakeGigECamera::readIndependently("PixelFormat"_s).contains(wanted));
        QTRY_COMPARE_WITH_TIMEOUT(shown("PixelFormat"), wanted, kSlowMs);
    }

    void commandIsExecuted()
    {
        for (const char* command : {"AcquisitionStart", "AcquisitionStop"}) {
            QVERIFY(m_window->click(kTree, command));
            QVERIFY(MessageGuard::contains("NodeName:"_s + QLatin1String(command)));
        }
    }

    void valueChangedByAnotherProgramShowsAfterRefresh()
    {
        // Another program cannot take control while this one has it, so the register is written
        // past the window: through the camera object, as a second user of the host would.
        const QString wanted = shown("Height") == QLatin1String("200") ? "160"_s : "200"_s;
        QCOMPARE(m_camera->write(OB_FT_TYPE_INTEGER, "Height", wanted.toStdString()), 0);
        QVERIFY(shown("Height") != wanted);
        OB_FT_UpdateFeatures();
        QTRY_COMPARE_WITH_TIMEOUT(shown("Height"), wanted, kSlowMs);
    }

    // The camera has neither lines nor encoders: those groups are not offered.
    void triggerPageShowsWhatTheCameraHas()
    {
        QVERIFY(m_window->show(kPage, "TriggerMode"));
        for (const char* name :
             {"TriggerSelector", "TriggerMode", "TriggerSource", "TriggerActivation",
              "TriggerSoftware", "Custom_AutoTrigTime", "Custom_EnableAutoTrig"})
            QTRY_VERIFY2_WITH_TIMEOUT(m_window->isRowShown(kPage, name), name, kSlowMs);
        QCOMPARE(m_window->item(kPage, "TriggerDelay"), nullptr);
        for (const char* group : {"Custom_IOControl", "Custom_EncoderControl"}) {
            QCOMPARE(m_window->items(kPage, group), QStringList());
            QVERIFY(!m_window->isRowShown(kPage, group));
        }
    }

    void choiceOnATriggerPageReachesTheCamera()
    {
        QVERIFY(m_window->choose(kPage, "TriggerMode", "On"_s));
        QVERIFY(FakeGigECamera::readIndependently("TriggerMode"_s).contains("On"_s));
        QTRY_COMPARE_WITH_TIMEOUT(m_window->shown(kTree, "TriggerMode"), "On"_s, kSlowMs);
        QVERIFY(m_window->choose(kTree, "TriggerMode", "Off"_s));
        QTRY_COMPARE_WITH_TIMEOUT(m_window->shown(kPage, "TriggerMode"), "Off"_s, kSlowMs);
    }

    void autoTriggerExecutesTheCommand()
    {
        QVERIFY(m_window->enter(kPage, "Custom_AutoTrigTime", "1"_s));
        m_camera->forget();
        QVERIFY(m_window->click(kPage, "Custom_EnableAutoTrig"));
        // Each command is a round trip that the camera acknowledges.
        QTRY_VERIFY_WITH_TIMEOUT(m_camera->writesOf("TriggerSoftware") > 5, kSlowMs);
        QCOMPARE(m_camera->mostAtOnce("TriggerSoftware"), 1);
        QVERIFY(!m_window->isEnabled(kPage, "TriggerSoftware"));
        QCOMPARE(OB_FT_Close(), 0);
        const int last = m_camera->writesOf("TriggerSoftware");
        QVERIFY(twentyPeriodsPass());
        QCOMPARE(m_camera->writesOf("TriggerSoftware"), last);
        QCOMPARE(OB_FT_Start(nullptr, 0), 0);
    }

    void windowSurvivesTheCamerasDeath()
    {
        MessageGuard::expectMessage("Read Feature Failed"_s);
        OB_FT_UpdateFeatures();
        m_fake->kill();
        // The window stays alive and answers while the pass runs into the dead camera.
        QVERIFY(m_window->enter(kTree, "Width", "128"_s));
        QTRY_VERIFY_WITH_TIMEOUT(m_window->tree()->findChild<ZELCustomMessageBox*>(), kSlowMs);
        auto* box = m_window->tree()->findChild<ZELCustomMessageBox*>();
        QCOMPARE(box->cTextTitle(), "Failed to set the feature value."_s);
        QVERIFY(box->cContent().startsWith("Node 'Width':failed to save value '128'\r\n"_s));
        QCOMPARE(OB_FT_UpdateFeatures(), 0);
        QCOMPARE(OB_FT_Close(), 0);
    }
};

OBFT_TEST_MAIN(TestGigEWindow)
#include "tst_gigewindow.moc"
