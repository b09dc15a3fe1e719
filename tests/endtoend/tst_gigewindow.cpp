// SPDX-License-Identifier: Apache-2.0
#include "host/FakeGigECamera.h"
#include "pages/MeddledCamera.h"
#include "pages/PageWindow.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "support/TestMain.h"

#include <memory>

namespace {

constexpr int kTree = ORXMainFeatureWidget::WholeTreeTab;
constexpr int kPage = ORXMainFeatureWidget::TriggerTab;
// Late in the alphabet and out of sight of the feature that is edited first.
constexpr char kLate[] = "TriggerSource";

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
        m_camera->closeGate(kLate, MeddledCamera::Reads);
        m_window = std::make_unique<PageWindow>(*m_camera, 0, PageWindow::InFirstRead);
    }

    void cleanupTestCase()
    {
        if (m_camera)
            m_camera->openGate();
        m_window.reset();
    }

    // First, as the window has just been opened.
    void editInTheMiddleOfTheFirstRead()
    {
        OBFT_TRY_VERIFY(m_window->isEnabled(kTree, "Height"));
        OBFT_TRY_VERIFY(m_camera->isHolding());
        const QString wanted = shown("Height") == QLatin1String("200") ? "160"_s : "200"_s;
        QVERIFY(m_window->enter(kTree, "Height", wanted));
        QVERIFY(!m_window->tree()->HadUpdatedOnce());
        QVERIFY(FakeGigECamera::readIndependently("Height"_s).contains(wanted));
        // The camera makes something else of it, which only the re-read can tell: the first read is
        // beyond this feature.
        QCOMPARE(m_real->write(OB_FT_TYPE_INTEGER, "Height", "144"), 0);
        m_camera->openGate();
        OBFT_TRY_COMPARE(shown("Height"), "144"_s);
        OBFT_TRY_VERIFY(m_window->tree()->HadUpdatedOnce());
    }

    void editReachesTheCamera_data()
    {
        const Rows<int, QByteArray, QString, QString> row("page", "feature", "one", "other");
        row("typed", kTree, "Width", "320", "256");
        row("chosen", kTree, "PixelFormat", "Mono8", "Mono16");
        row("chosen on the trigger page", kPage, "TriggerMode", "On", "Off");
    }

    // Asking the camera through another program takes seconds while this one holds it: its writes
    // have returned by then, so one look is enough.
    void editReachesTheCamera()
    {
        QFETCH(int, page);
        QFETCH(QByteArray, feature);
        QFETCH(QString, one);
        QFETCH(QString, other);
        QVERIFY(m_window->show(page, feature));
        const QString wanted = m_window->shown(page, feature) == one ? other : one;
        QVERIFY(feature == "Width" ? m_window->enter(page, feature, wanted)
                                   : m_window->choose(page, feature, wanted));
        QVERIFY(FakeGigECamera::readIndependently(QLatin1String(feature)).contains(wanted));
        OBFT_TRY_COMPARE(shown(feature), wanted);
        OBFT_TRY_COMPARE(m_window->shown(page, feature), wanted);
    }

    void valueOutOfRangeIsNotSent()
    {
        QVERIFY(m_window->enter(kTree, "Width", "99999999"_s));
        // Whatever the editor makes of it (the nearest legal value), it is legal, and window and
        // camera agree.
        _ZDCC_INTVALUE_EX_T record = {};
        QCOMPARE(m_camera->read(OB_FT_TYPE_INTEGER, "Width", &record), 0);
        QVERIFY(record.value <= record.maximum);
        OBFT_TRY_COMPARE(shown("Width"), QString::number(record.value));
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
        OBFT_TRY_COMPARE(shown("Height"), wanted);
    }

    // The camera has neither lines nor encoders: those groups are not offered.
    void triggerPageShowsWhatTheCameraHas()
    {
        QVERIFY(m_window->show(kPage, "TriggerMode"));
        for (const char* name :
             {"TriggerSelector", "TriggerMode", "TriggerSource", "TriggerActivation",
              "TriggerSoftware", "Custom_AutoTrigTime", "Custom_EnableAutoTrig"})
            QTRY_VERIFY2_WITH_TIMEOUT(m_window->isRowShown(kPage, name), name,
                                      PageWindow::kPatienceMs);
        QCOMPARE(m_window->item(kPage, "TriggerDelay"), nullptr);
        for (const char* group : {"Custom_IOControl", "Custom_EncoderControl"}) {
            QCOMPARE(m_window->items(kPage, group), QStringList());
            QVERIFY(!m_window->isRowShown(kPage, group));
        }
    }

    void windowSurvivesTheCamerasDeath()
    {
        MessageGuard::expectMessage("Read Feature Failed"_s);
        OB_FT_UpdateFeatures();
        m_fake->kill();
        // The window stays alive and answers while the pass runs into the dead camera.
        QVERIFY(m_window->enter(kTree, "Width", "128"_s));
        OBFT_TRY_VERIFY(m_window->tree()->findChild<ZELCustomMessageBox*>());
        auto* box = m_window->tree()->findChild<ZELCustomMessageBox*>();
        QCOMPARE(box->cTextTitle(), "Failed to set the feature value."_s);
        QVERIFY(box->cContent().startsWith("Node 'Width':failed to save value '128'\r\n"_s));
        QCOMPARE(OB_FT_UpdateFeatures(), 0);
        QCOMPARE(OB_FT_Close(), 0);
    }
};

OBFT_TEST_MAIN(TestGigEWindow)
#include "tst_gigewindow.moc"
