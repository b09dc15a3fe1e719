// SPDX-License-Identifier: Apache-2.0
#include "RealCamera.h"
#include "host/FakeGigECamera.h"
#include "pages/MeddledCamera.h"
#include "pages/PageWindow.h"
#include "support/Periods.h"
#include "support/TestMain.h"

#include <memory>

namespace {

constexpr int kTree = ORXMainFeatureWidget::WholeTreeTab;
constexpr int kPage = ORXMainFeatureWidget::TriggerTab;
constexpr int kSlowMs = PageWindow::kPatienceMs; // a pass over the protocol on a busy machine

} // namespace

// The trigger page on a GigE Vision camera that another program simulates: what the page writes is
// read back by a third program.
class TestGigETrigger : public GuardedTest
{
    Q_OBJECT

private:
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
        QVERIFY(m_fake->start());
        std::string error;
        m_real = RealCamera::open("127.0.0.1", &error);
        QVERIFY2(m_real, error.c_str());
        m_camera = std::make_unique<MeddledCamera>(*m_real);
        m_window = std::make_unique<PageWindow>(*m_camera);
    }

    void cleanupTestCase() { m_window.reset(); }

    // The camera has neither lines nor encoders: those groups are not offered.
    void pageShowsWhatTheCameraHas()
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

    void choiceReachesTheCamera()
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
    }
};

OBFT_TEST_MAIN(TestGigETrigger)
#include "tst_gigetrigger.moc"
