// SPDX-License-Identifier: Apache-2.0
// What stands on the curated pages in the window, on the simulated camera, the white balance of the
// common features page, and why a row cannot be edited.
#include "cameras/CameraError.h"
#include "main/ORXFeatureGroup.h"
#include "model/ORXPropertyTreeItem.h"
#include "pages/DemoPageTest.h"
#include "tree/ReadOnlyReasonLine.h"

#include <QLineEdit>

namespace {

constexpr int kCommon = ORXMainFeatureWidget::CommonTab;
constexpr int kTrigger = ORXMainFeatureWidget::TriggerTab;
// Rows of the pages' own that the demo camera does not show at first.
const QStringList kHidden = words("Custom_BalanceRatioSelector Custom_BalanceRatio Custom_LUTGamma "
                                  "Custom_LUTContrast Custom_LUTLum");
constexpr char kCommand[] = "Custom_BalanceCommand";
constexpr char kRatio[] = "Custom_BalanceRatio";
constexpr char kSelector[] = "Custom_BalanceRatioSelector";

} // namespace

class TestCuratedPages : public DemoPageTest
{
    Q_OBJECT

private:
    // "command", "ratio" (with the selector) or "", by the rows of the page.
    QString shownBalance() const
    {
        m_window->show(kCommon, "Brightness");
        const bool ratio = m_window->isRowShown(kCommon, kRatio);
        if (ratio != m_window->isRowShown(kCommon, kSelector))
            return "only one of ratio and selector"_s;
        const QString command = m_window->isRowShown(kCommon, kCommand) ? "command"_s : QString();
        return command + (ratio ? "ratio"_s : QString());
    }
    ReadOnlyReasonLine* line() const { return m_window->tree()->findChild<ReadOnlyReasonLine*>(); }
    QString said() const { return line()->isVisible() ? line()->toPlainText() : QString(); }

private slots:
    void groupsHoldTheirFeatures_data()
    {
        const Rows<QByteArray, int, QStringList> row("group", "tab", "items");
        row.of("Custom_BasicGroup", kCommon,
               "AcquisitionFrameRateEnable AcquisitionFrameRate ResultingFrameRate ExposureAuto "
               "ExposureTime GainAuto Gain Width Height PixelFormat TestPattern DigitalShift "
               "AcquisitionLineRate AcquisitionLineRateEnable ResultingLineRate");
        row.of("Custom_ISPGroup", kCommon,
               "GammaEnable GammaSelector Gamma SharpnessEnable Sharpness Brightness HueEnable Hue "
               "SaturationEnable Saturation BalanceWhiteAuto BalanceColorTemperatureMode "
               "Custom_BalanceRatioSelector Custom_BalanceRatio Custom_BalanceCommand "
               "ShadingSelector ActivateShading FPNCUserEnable PRNUCUserEnable");
        row.of("Custom_TransportLayerGroup", kCommon,
               "GevSCPSPacketSize GevSCPD GevPAUSEFrameReception DeviceTapGeometry ClConfiguration "
               "DeviceConnectionConfig DeviceConnectionConfigDefault");
        row.of("Custom_Trigger", kTrigger,
               "TriggerSelector TriggerMode TriggerSource TriggerActivation TriggerDelay "
               "Custom_AutoTrigTime Custom_EnableAutoTrig TriggerSoftware");
        row.of("Custom_IOControl", kTrigger,
               "LineSelector LineMode LineDebouncerTime LineSource HardwareTriggerSource "
               "HardwareTriggerActivation LineTriggerSoftware StrobeEnable StrobeLineDuration "
               "StrobeLineDelay StrobeLinePreDelay");
        row.of("Custom_EncoderControl", kTrigger,
               "EncoderSelector EncoderSourceA EncoderSourceB EncoderOutputMode EncoderCounterMode "
               "EncoderCounter EncoderCounterMax EncoderCounterReset EncoderMaxReverseCounter "
               "EncoderReverseCounterReset");
        row.of("Custom_FrequencyConverterControl", kTrigger,
               "InputSource PreDivider Multiplier PostDivider");
        row.of("Custom_ROIGroup", kImage,
               "RegionSelector RegionMode Width Height OffsetX OffsetY BinningSelector "
               "BinningHorizontal BinningVertical DecimationHorizontal DecimationVertical ReverseX "
               "ReverseY Custom_ROIDraw");
        row.of("Custom_AOIGroup", kImage,
               "AutoFunctionAOISelector AutoFunctionAOIWidth AutoFunctionAOIHeight "
               "AutoFunctionAOIOffsetX AutoFunctionAOIOffsetY AutoFunctionAOIUsageIntensity "
               "AutoFunctionAOIUsageWhiteBalance");
        row.of("Custom_EmbeddedInfoGroup", kImage,
               "ChunkModeActive Custom_ChunkSelector_0 Custom_ChunkSelector_2 "
               "Custom_ChunkSelector_4 Custom_ChunkSelector_6");
        row.of("Custom_EventGroup", kImage,
               "Custom_EventSelector_0 Custom_EventSelector_2 Custom_EventSelector_4 "
               "Custom_EventSelector_6");
        row.of("Custom_LUTGroup", kImage,
               "LUTEnable LUTSelector Custom_LUTLineType Custom_LUTGamma Custom_LUTContrast "
               "Custom_LUTLum Custom_LUTLoadFromCamera Custom_LUTSetToCamera "
               "Custom_LUTLoadFromFile Custom_LUTSetToFile Custom_LUTClear");
        row.of("Custom_CCMGroup", kImage, "Custom_CCMEnable Custom_CCM");
        row.of("Custom_PaletteGroup", kImage, "Custom_PalettesMode");
    }

    void groupsHoldTheirFeatures()
    {
        const auto [group, tab, items] = fetchRow<QByteArray, int, QStringList>();
        open();
        QVERIFY(m_window->show(tab, items.first().toLatin1()));
        // Rows without a name are kept for what a camera may have more.
        QStringList held = m_window->items(tab, group);
        held.removeAll(QString());
        QCOMPARE(held, items);
        // Of the camera's features each row is that of the whole tree; page items have rules of
        // their own.
        for (const QString& name : qAsConst(items)) {
            const QByteArray latin = name.toLatin1();
            const ORXPropertyTreeItem* whole = m_window->item(kTree, latin);
            QVERIFY2(!whole == latin.startsWith("Custom_"), latin);
            QVERIFY2(!whole || m_window->item(tab, latin) == whole, latin);
            const bool shown = whole ? whole->visible() : !kHidden.contains(name);
            QVERIFY2(m_window->isRowShown(tab, latin) == shown, latin);
        }
    }

    // Of the pages, and of their groups in their order.
    void titlesInBothLanguages_data()
    {
        const Rows<int, QStringList> row("language", "titles");
        row("English", 0,
            "Common_Features Basic_Features ISP Transport_Layer_Control Trigger IO_Input IO_Output "
            "Encoder_Control Frequency_Converter_Control Image_Processing ROI AOI "
            "Embedded_Information Event_Control LUT Color_Correction_Matrix Palette");
        row("Chinese", 1,
            "常用参数 基本参数 图像信号处理 传输层控制 触发 IO_输入 IO_输出 编码器控制 "
            "频率转换控制 "
            "图像处理 感兴趣区域（ROI） 自动功能区域（AOI） 嵌入信息 事件控制 查找表（LUT） "
            "色彩校正矩阵 伪彩调色板");
    }

    void titlesInBothLanguages()
    {
        auto [language, titles] = fetchRow<int, QStringList>();
        open({}, language);
        titles.replaceInStrings("_"_s, " "_s);
        QCOMPARE(m_window->titles(kCommon) + m_window->titles(kTrigger) + m_window->titles(kImage),
                 titles);
    }

    void editOnOnePageShowsOnTheOther_data()
    {
        const Rows<int, int> row("edited", "other");
        row("on the page", kCommon, kTree);
        row("in the whole tree", kTree, kCommon);
    }

    void editOnOnePageShowsOnTheOther()
    {
        const auto [edited, other] = fetchRow<int, int>();
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
        const auto [automatic, enabled, shown] = fetchRow<QByteArray, QByteArray, QString>();
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

    void failedReadLeavesWhatIsShown()
    {
        open();
        QTRY_COMPARE(shownBalance(), "command"_s);
        m_camera->fail("BalanceWhiteAuto", CameraError::Timeout);
        QVERIFY(m_window->refresh());
        QVERIFY(m_window->click(kCommon, "GammaEnable"));
        QTRY_COMPARE(read("GammaEnable"), 1);
        QVERIFY(m_window->refresh());
        QApplication::processEvents();
        QCOMPARE(shownBalance(), "command"_s);
        m_camera->fail("BalanceWhiteAuto", 0);
        QVERIFY(m_window->refresh());
        QVERIFY(m_window->click(kCommon, "HueEnable"));
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
        QVERIFY(m_window->choose(kCommon, "BalanceWhiteAuto", "Continuous"_s));
        QTRY_COMPARE(shownBalance(), QString());
        QVERIFY(m_window->choose(kCommon, "BalanceWhiteAuto", "Off"_s));
        QTRY_COMPARE(shownBalance(), "command"_s);
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
        QVERIFY(m_window->click(kCommon, "GammaEnable"));
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
        open({}, 1);
        m_camera->forget();
        QTRY_COMPARE(shownBalance(), "ratio"_s);
        // Their texts are the page's own.
        const auto text = [&](const char* name) {
            return m_window->row(kCommon, name).data().toString();
        };
        QCOMPARE(text(kRatio), "白平衡系数"_s);
        QCOMPARE(m_window->shown(kCommon, kSelector), "蓝"_s);
        m_window->widget()->SetLanguage(0);
        QCOMPARE(text(kRatio), "Balance Ratio"_s);
        QCOMPARE(text(kSelector), "Balance Ratio Selector"_s);
        // Selector and ratio, on the page and in the whole tree.
        const auto shown = [this] {
            QStringList texts;
            for (const char* name : {kSelector, kRatio})
                texts += m_window->shown(kCommon, name);
            for (const char* name : {"BalanceRatioSelector", "BalanceRatio"})
                texts += m_window->shown(kTree, name);
            return texts;
        };
        QTRY_COMPARE(shown(), words("Blue 1234 Blue 1234"));
        // The range, too: what is beyond it is brought back before it is sent.
        QVERIFY(m_window->enter(kCommon, kRatio, "99999"_s));
        QTRY_COMPARE(shown(), words("Blue 16376 Blue 16376"));
        QVERIFY(m_window->choose(kCommon, kSelector, "Green"_s));
        QTRY_COMPARE(shown(), words("Green 1024 Green 1024"));
        QVERIFY(m_window->choose(kTree, "BalanceRatioSelector", "Red"_s));
        QTRY_COMPARE(shown(), words("Red 1536 Red 1536"));
        QVERIFY(m_window->enter(kTree, "BalanceRatio", "777"_s));
        QTRY_COMPARE(shown(), words("Red 777 Red 777"));
        QCOMPARE(m_camera->writes(), words("BalanceRatio=16376 BalanceRatioSelector=1 "
                                           "BalanceRatioSelector=0 BalanceRatio=777"));
        // A refused ratio is told, and taken back.
        MessageGuard::expectMessage("Read Feature Failed"_s);
        m_camera->fail("BalanceRatio", CameraError::NotWritable);
        QVERIFY(m_window->enter(kCommon, kRatio, "2000"_s));
        QTRY_VERIFY(message().startsWith("Node 'BalanceRatio':failed to save value '2000'"_s));
        QTRY_COMPARE(m_window->shown(kCommon, kRatio), "777"_s);
    }

    void commandBalancesOnce()
    {
        open();
        QTRY_COMPARE(shownBalance(), "command"_s);
        m_camera->forget();
        QVERIFY(m_window->click(kCommon, kCommand));
        QCOMPARE(m_camera->writes(), QStringList("BalanceWhiteAuto=1"_s));
        // The button goes while it has the focus.
        QTRY_VERIFY(!m_window->isRowShown(kCommon, kCommand));
        QTRY_COMPARE(shownBalance(), QString());
        // The camera ends it by itself and has other ratios then.
        m_clock->advance(std::chrono::seconds(2));
        OBFT_TRY_COMPARE(shownBalance(), "command"_s);
        QTRY_COMPARE(m_window->shown(kCommon, "BalanceWhiteAuto"), "Off"_s);
        QTRY_VERIFY(m_window->shown(kTree, "BalanceRatio") != QLatin1String("1536"));
    }

    void cameraRemovedWhileReading()
    {
        open();
        for (int i = 0; i < 5; ++i) {
            QVERIFY(m_window->show(kCommon, "Width"));
            OB_FT_UpdateFeatures();
            m_window->widget()->removeFeatureTree(1);
            QCOMPARE(m_window->page(kCommon)->getRootItem(1, false), nullptr);
            m_window->widget()->CreateFeature();
            m_window->widget()->StartUpdateThread();
            QTRY_VERIFY(m_window->tree()->HadUpdatedOnce());
        }
        QTRY_COMPARE(shownBalance(), "command"_s);
    }

    // Why a row cannot be edited ------------------------------------------------------------------
    // On each page, and in each language.
    void acquisitionLocks()
    {
        open();
        QVERIFY(m_window->select(kTree, "Width"));
        OBFT_TRY_COMPARE(said(), QString());
        QVERIFY(m_window->click(kTree, "AcquisitionStart"));
        QVERIFY(m_window->select(kTree, "Width"));
        OBFT_TRY_COMPARE(said(), "Locked by TL Params Locked (1)"_s);
        QVERIFY(!m_window->isEnabled(kImage, "Width"));
        ORXPropertyTreeItem* width = m_window->item(kTree, "Width");
        OBFT_TRY_COMPARE(
            m_window->page(kImage)->treeView()->editorOf(width)->accessibleDescription(),
            "Locked by TL Params Locked (1)"_s);
        m_window->widget()->SetLanguage(1);
        QVERIFY(m_window->select(kTree, "Width"));
        OBFT_TRY_COMPARE(said(), "已锁定，取决于：传输层参数锁定 (1)"_s);
        OBFT_TRY_COMPARE(m_window->tree()->treeView()->editorOf(width)->accessibleDescription(),
                         said());
        QVERIFY(m_window->click(kTree, "AcquisitionStop"));
        QVERIFY(m_window->select(kTree, "Width"));
        OBFT_TRY_COMPARE(said(), QString());
        OBFT_TRY_VERIFY(m_window->isEnabled(kTree, "Width"));
    }

    void linkLeadsToTheFeature()
    {
        open();
        // None, one that finds it, and one that does not.
        for (const QString& search : {""_s, "throughput"_s, "gain"_s}) {
            QVERIFY(m_window->select(kTree, "DeviceLinkThroughputLimit"));
            OBFT_TRY_COMPARE(said(), "Locked by Device Link Throughput Limit Mode (Off)"_s);
            auto* box =
                m_window->widget()->featureGroup(1)->findChild<QLineEdit*>("FeatureSearch"_s);
            box->setText(search);
            OBFT_TRY_VERIFY(line()->isVisible());
            line()->setFocus(Qt::TabFocusReason);
            QTest::keyClick(line(), Qt::Key_Return);
            QCOMPARE(m_window->tree()->treeView()->currentIndex(),
                     m_window->row(kTree, "DeviceLinkThroughputLimitMode"));
            QVERIFY(m_window->isRowShown(kTree, "DeviceLinkThroughputLimitMode"));
            QVERIFY(m_window->tree()->treeView()->hasFocus());
            OBFT_TRY_COMPARE(said(), QString());
            QCOMPARE(box->text(),
                     m_window->item(kTree, "Gain")->searchMatch() ? QString() : search);
        }
    }
};

OBFT_TEST_MAIN(TestCuratedPages)
#include "tst_curatedpages.moc"
