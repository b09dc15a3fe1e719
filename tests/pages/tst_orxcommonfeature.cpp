// SPDX-License-Identifier: Apache-2.0
// The common features page in the window, on the simulated camera.
#include "cameras/CameraError.h"
#include "model/ORXPropertyTreeModel.h"
#include "pages/CuratedPageTest.h"
#include "pages/ORXCommonFeature.h"

#include <QSignalSpy>

namespace {

constexpr int kPage = ORXMainFeatureWidget::CommonTab;
constexpr char kCommand[] = "Custom_BalanceCommand";
constexpr char kRatio[] = "Custom_BalanceRatio";
constexpr char kSelector[] = "Custom_BalanceRatioSelector";

} // namespace

class TestORXCommonFeature : public CuratedPageTest
{
    Q_OBJECT

public:
    TestORXCommonFeature()
        : CuratedPageTest(
              {kPage,
               {"Common Features"_s, "Basic Features"_s, "ISP"_s, "Transport Layer Control"_s},
               {"常用参数"_s, "基本参数"_s, "图像信号处理"_s, "传输层控制"_s},
               {{"Custom_BasicGroup",
                 words("AcquisitionFrameRateEnable AcquisitionFrameRate ResultingFrameRate "
                       "ExposureAuto ExposureTime GainAuto Gain Width Height PixelFormat "
                       "TestPattern DigitalShift AcquisitionLineRate AcquisitionLineRateEnable "
                       "ResultingLineRate")},
                {"Custom_ISPGroup",
                 words("GammaEnable GammaSelector Gamma SharpnessEnable Sharpness Brightness "
                       "HueEnable Hue SaturationEnable Saturation BalanceWhiteAuto "
                       "BalanceColorTemperatureMode Custom_BalanceRatioSelector "
                       "Custom_BalanceRatio Custom_BalanceCommand ShadingSelector ActivateShading "
                       "FPNCUserEnable PRNUCUserEnable")},
                {"Custom_TransportLayerGroup",
                 words("GevSCPSPacketSize GevSCPD GevPAUSEFrameReception DeviceTapGeometry "
                       "ClConfiguration DeviceConnectionConfig DeviceConnectionConfigDefault")}},
               words("Custom_BalanceRatioSelector Custom_BalanceRatio")})
    {
    }

private:
    // "command", "ratio" (with the selector) or "", by the rows of the page.
    QString shownBalance() const
    {
        m_window->show(kPage, "Brightness");
        const bool ratio = m_window->isRowShown(kPage, kRatio);
        if (ratio != m_window->isRowShown(kPage, kSelector))
            return "only one of ratio and selector"_s;
        const QString command = m_window->isRowShown(kPage, kCommand) ? "command"_s : QString();
        return command + (ratio ? "ratio"_s : QString());
    }

private slots:
    // Rows ----------------------------------------------------------------------------------------
    void missingFeaturesLeaveNoRows()
    {
        open(words("Gain GevSCPSPacketSize GevSCPD GevPAUSEFrameReception DeviceTapGeometry "
                   "ClConfiguration DeviceConnectionConfig DeviceConnectionConfigDefault"));
        QVERIFY(!m_window->items(kPage, "Custom_BasicGroup").contains("Gain"_s));
        QVERIFY(m_window->show(kPage, "Width"));
        QVERIFY(m_window->isRowShown(kPage, "Width"));
        // A group without any feature is not offered.
        QCOMPARE(m_window->items(kPage, "Custom_TransportLayerGroup"), QStringList());
        QVERIFY(!m_window->item(kPage, "Custom_TransportLayerGroup")->visible());
    }

    // Mirrors -------------------------------------------------------------------------------------
    void editOnOnePageShowsOnTheOther_data()
    {
        const Rows<int, int> row("edited", "other");
        row("on the page", kPage, kTree);
        row("in the whole tree", kTree, kPage);
    }

    void editOnOnePageShowsOnTheOther()
    {
        QFETCH(int, edited);
        QFETCH(int, other);
        open();
        QVERIFY(m_window->enter(edited, "Height", "600"_s));
        QTRY_COMPARE(read("Height"), 600);
        QTRY_COMPARE(m_window->shown(other, "Height"), "600"_s);
        QVERIFY(m_window->choose(edited, "ExposureAuto", "Continuous"_s));
        QTRY_COMPARE(m_window->shown(other, "ExposureAuto"), "Continuous"_s);
        // What the write locks is locked on both.
        QTRY_VERIFY(!m_window->isEnabled(edited, "ExposureTime"));
        QTRY_VERIFY(!m_window->isEnabled(other, "ExposureTime"));
        QVERIFY(m_window->click(edited, "AcquisitionFrameRateEnable"));
        QTRY_COMPARE(m_window->shown(other, "AcquisitionFrameRateEnable"), "unchecked"_s);
        QTRY_VERIFY(!m_window->isEnabled(other, "AcquisitionFrameRate"));
    }

    void readOnBothPagesWhilePassesRun()
    {
        open();
        for (int i = 0; i < 10; ++i) {
            const QByteArray width = QByteArray::number(640 + 16 * i);
            OB_FT_UpdateFeatures();
            QCOMPARE(write("Width", width), 0);
            OB_FT_UpdateFeatures();
            QVERIFY(m_window->enter(i % 2 ? kPage : kTree, "Height", QString::number(400 + 8 * i)));
        }
        QVERIFY(m_window->refresh());
        for (const int tab : {kPage, kTree}) {
            QTRY_COMPARE(m_window->shown(tab, "Width"), "784"_s);
            QTRY_COMPARE(m_window->shown(tab, "Height"), "472"_s);
        }
    }

    // White balance -------------------------------------------------------------------------------
    void whiteBalanceFollowsTheCamera_data()
    {
        const Rows<QByteArray, QByteArray, QString> row("automatic", "enabled", "shown");
        const QString command = "command"_s;
        const QString ratio = "ratio"_s;
        row("off, nothing enabled", "0", "", command);
        row("off, hue", "0", "HueEnable", ratio);
        row("off, saturation", "0", "SaturationEnable", ratio);
        row("off, gamma", "0", "GammaEnable", ratio);
        row("off, colour transformation", "0", "ColorTransformationEnable", ratio);
        row("once", "1", "", "");
        row("continuous", "2", "", "");
        row("continuous, gamma", "2", "GammaEnable", "");
    }

    // By what the camera says when the window opens, and again by what changes behind its back.
    void whiteBalanceFollowsTheCamera()
    {
        QFETCH(QByteArray, automatic);
        QFETCH(QByteArray, enabled);
        QFETCH(QString, shown);
        const auto set = [&](const QByteArray& entry, const char* on) {
            QCOMPARE(write("BalanceWhiteAuto", entry), 0);
            if (!enabled.isEmpty())
                QCOMPARE(write(enabled, on), 0);
        };
        set(automatic, "1");
        open();
        QTRY_COMPARE(shownBalance(), shown);
        const bool startsWithCommand = shown == QLatin1String("command");
        set(startsWithCommand ? "2" : "0", "0");
        QVERIFY(m_window->refresh());
        QTRY_COMPARE(shownBalance(), startsWithCommand ? QString() : "command"_s);
        set(automatic, "1");
        QVERIFY(m_window->refresh());
        QTRY_COMPARE(shownBalance(), shown);
    }

    // What the passes read decides; the window waits for no camera.
    void nothingIsReadForTheRule()
    {
        open();
        QTRY_COMPARE(shownBalance(), "command"_s);
        m_camera->forget();
        auto* page = static_cast<ORXCommonFeature*>(m_window->page(kPage));
        for (const char* changed : {"PixelFormat", "BalanceRatio", "BalanceRatioSelector"})
            page->updateWhiteBalance(QString::fromLatin1(changed),
                                     ORXCommonFeature::WhiteBalanceChanged, nullptr);
        QVERIFY(m_window->click(kTree, "GammaEnable"));
        QTRY_COMPARE(shownBalance(), "ratio"_s);
        QCOMPARE(write("BalanceRatio", "1234"), 0);
        QVERIFY(m_window->refresh());
        QTRY_COMPARE(m_window->shown(kPage, kRatio), "1234"_s);
        QVERIFY(m_window->choose(kPage, "BalanceWhiteAuto", "Once"_s));
        QTRY_COMPARE(shownBalance(), QString());
        QCOMPARE(m_camera->readsOfThisThread(), QStringList());
    }

    void failedReadLeavesWhatIsShown()
    {
        open();
        QTRY_COMPARE(shownBalance(), "command"_s);
        m_camera->fail("BalanceWhiteAuto", CameraError::Timeout);
        QVERIFY(m_window->refresh());
        QVERIFY(m_window->click(kPage, "GammaEnable"));
        QTRY_COMPARE(read("GammaEnable"), 1);
        QVERIFY(m_window->refresh());
        QApplication::processEvents();
        QCOMPARE(shownBalance(), "command"_s);
        m_camera->fail("BalanceWhiteAuto", 0);
        QVERIFY(m_window->refresh());
        QVERIFY(m_window->click(kPage, "HueEnable"));
        QTRY_COMPARE(shownBalance(), "ratio"_s);
        // An automatic that is not there hides all.
        for (const bool hidden : {true, false}) {
            m_camera->hide("BalanceWhiteAuto", hidden);
            QVERIFY(m_window->refresh());
            QTRY_COMPARE(shownBalance(), hidden ? QString() : "ratio"_s);
        }
    }

    void enableThatCannotBeReadCountsAsOff_data()
    {
        const Rows<bool> row("fails");
        row("its read fails", true);
        row("it is not there", false);
    }

    void enableThatCannotBeReadCountsAsOff()
    {
        QFETCH(bool, fails);
        QCOMPARE(write("GammaEnable", "1"), 0);
        open();
        QTRY_COMPARE(shownBalance(), "ratio"_s);
        if (fails)
            m_camera->fail("GammaEnable", CameraError::Timeout);
        else
            m_camera->hide("GammaEnable", true);
        QVERIFY(m_window->refresh());
        // Any change that concerns the rule has it decided anew.
        QVERIFY(m_window->choose(kPage, "BalanceWhiteAuto", "Continuous"_s));
        QTRY_COMPARE(shownBalance(), QString());
        QVERIFY(m_window->choose(kPage, "BalanceWhiteAuto", "Off"_s));
        QTRY_COMPARE(shownBalance(), "command"_s);
    }

    void switchReplacesCommandByRatio()
    {
        open();
        QTRY_COMPARE(shownBalance(), "command"_s);
        QVERIFY(m_window->click(kPage, "GammaEnable"));
        QTRY_COMPARE(shownBalance(), "ratio"_s);
        // A feature that the page does not show counts, too.
        QVERIFY(m_window->click(kPage, "GammaEnable"));
        QTRY_COMPARE(shownBalance(), "command"_s);
        QVERIFY(m_window->click(kTree, "ColorTransformationEnable"));
        QTRY_COMPARE(shownBalance(), "ratio"_s);
        QVERIFY(m_window->choose(kPage, "BalanceWhiteAuto", "Once"_s));
        QTRY_COMPARE(shownBalance(), QString());
    }

    void missingPartnerHidesAll_data()
    {
        const Rows<QString> row("lacking");
        for (const char* name : {"BalanceRatio", "BalanceRatioSelector", "BalanceWhiteAuto"})
            row.of(name);
    }

    void missingPartnerHidesAll()
    {
        QFETCH(QString, lacking);
        open({lacking});
        QVERIFY(m_window->click(kPage, "GammaEnable"));
        QTRY_COMPARE(read("GammaEnable"), 1);
        QVERIFY(m_window->refresh());
        QApplication::processEvents();
        QCOMPARE(shownBalance(), QString());
    }

    void ratioAndSelectorAreCopies()
    {
        QCOMPARE(write("GammaEnable", "1"), 0);
        QCOMPARE(write("BalanceRatioSelector", "2"), 0);
        QCOMPARE(write("BalanceRatio", "1234"), 0);
        open();
        QTRY_COMPARE(shownBalance(), "ratio"_s);
        QTRY_COMPARE(m_window->shown(kPage, kSelector), "Blue"_s);
        QTRY_COMPARE(m_window->shown(kPage, kRatio), "1234"_s);
        // The range, too: what is beyond it is brought back before it is sent.
        QVERIFY(m_window->enter(kPage, kRatio, "99999"_s));
        QTRY_COMPARE(m_window->shown(kPage, kRatio), "16376"_s);
        QTRY_COMPARE(read("BalanceRatio"), 16376);
    }

    void selectorOfTheWholeTreeIsFollowed()
    {
        QCOMPARE(write("GammaEnable", "1"), 0);
        open();
        QVERIFY(m_window->choose(kTree, "BalanceRatioSelector", "Blue"_s));
        QTRY_COMPARE(m_window->shown(kPage, kSelector), "Blue"_s);
        QTRY_COMPARE(m_window->shown(kPage, kRatio), "1820"_s);
        QVERIFY(m_window->enter(kTree, "BalanceRatio", "777"_s));
        QTRY_COMPARE(m_window->shown(kPage, kRatio), "777"_s);
    }

    void writesReachTheCameraAndRereadTheRatio()
    {
        QCOMPARE(write("GammaEnable", "1"), 0);
        open();
        QTRY_COMPARE(m_window->shown(kPage, kRatio), "1536"_s);
        m_camera->forget();
        QVERIFY(m_window->choose(kPage, kSelector, "Green"_s));
        QTRY_COMPARE(m_window->shown(kPage, kRatio), "1024"_s);
        QVERIFY(m_window->enter(kPage, kRatio, "2000"_s));
        QTRY_COMPARE(m_camera->writes(),
                     (QStringList{"BalanceRatioSelector=1"_s, "BalanceRatio=2000"_s}));
        QTRY_COMPARE(m_window->shown(kTree, "BalanceRatioSelector"), "Green"_s);
        QTRY_COMPARE(m_window->shown(kTree, "BalanceRatio"), "2000"_s);
    }

    void refusedRatioIsShownAndTakenBack()
    {
        QCOMPARE(write("GammaEnable", "1"), 0);
        open();
        QTRY_COMPARE(m_window->shown(kPage, kRatio), "1536"_s);
        MessageGuard::expectMessage("Read Feature Failed"_s);
        QVERIFY(m_window->show(kPage, kRatio));
        m_camera->fail("BalanceRatio", CameraError::NotWritable);
        QVERIFY(m_window->enter(kPage, kRatio, "2000"_s));
        QTRY_VERIFY(message().startsWith("Node 'BalanceRatio':failed to save value '2000'"_s));
        QTRY_COMPARE(m_window->shown(kPage, kRatio), "1536"_s);
    }

    void commandBalancesOnce()
    {
        open();
        QTRY_COMPARE(shownBalance(), "command"_s);
        m_camera->forget();
        QVERIFY(m_window->click(kPage, kCommand));
        QCOMPARE(m_camera->writes(), QStringList("BalanceWhiteAuto=1"_s));
        // The button goes while it has the focus.
        QTRY_VERIFY(!m_window->isRowShown(kPage, kCommand));
        QTRY_COMPARE(shownBalance(), QString());
        // The camera ends it by itself and has other ratios then.
        m_clock->advance(std::chrono::seconds(2));
        QTRY_COMPARE_WITH_TIMEOUT(shownBalance(), "command"_s, PageWindow::kPatienceMs);
        QTRY_COMPARE(m_window->shown(kPage, "BalanceWhiteAuto"), "Off"_s);
        QTRY_VERIFY(m_window->shown(kTree, "BalanceRatio") != QLatin1String("1536"));
    }

    void ownTextsSurviveTheCopies()
    {
        QCOMPARE(write("GammaEnable", "1"), 0);
        open({}, 1);
        QTRY_COMPARE(shownBalance(), "ratio"_s);
        const auto text = [&](const char* name) {
            const auto* model = m_window->page(kPage)->treeView()->model();
            const auto* view = m_window->page(kPage)->treeView();
            return model->data(view->treeModel()->indexFromItem(m_window->item(kPage, name), 0))
                .toString();
        };
        QCOMPARE(text(kRatio), "白平衡系数"_s);
        QCOMPARE(m_window->shown(kPage, kSelector), "红"_s);
        m_window->widget()->SetLanguage(0);
        QCOMPARE(text(kRatio), "Balance Ratio"_s);
        QCOMPARE(text(kSelector), "Balance Ratio Selector"_s);
        QTRY_COMPARE(m_window->shown(kPage, kSelector), "Red"_s);
    }

    void cameraRemovedWhileReading()
    {
        open();
        for (int i = 0; i < 5; ++i) {
            QVERIFY(m_window->show(kPage, "Width"));
            OB_FT_UpdateFeatures();
            m_window->widget()->removeFeatureTree(1);
            QCOMPARE(m_window->page(kPage)->getRootItem(1, false), nullptr);
            m_window->widget()->CreateFeature();
            m_window->widget()->StartUpdateThread();
            QTRY_VERIFY(m_window->tree()->HadUpdatedOnce());
        }
        QTRY_COMPARE(shownBalance(), "command"_s);
    }
};

OBFT_TEST_MAIN(TestORXCommonFeature)
#include "tst_orxcommonfeature.moc"
