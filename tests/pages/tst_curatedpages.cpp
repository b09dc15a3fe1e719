// SPDX-License-Identifier: Apache-2.0
// What stands on the curated pages, with the simulated camera.
#include "model/ORXPropertyTreeItem.h"
#include "pages/DemoPageTest.h"

namespace {

constexpr int kCommon = ORXMainFeatureWidget::CommonTab;
constexpr int kTrigger = ORXMainFeatureWidget::TriggerTab;
constexpr int kImage = ORXMainFeatureWidget::ImageProcessingTab;
// Rows of the pages' own that the demo camera does not show at first.
const QStringList kHidden = words("Custom_BalanceRatioSelector Custom_BalanceRatio Custom_LUTGamma "
                                  "Custom_LUTContrast Custom_LUTLum");

} // namespace

class TestCuratedPages : public DemoPageTest
{
    Q_OBJECT

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
        QFETCH(QByteArray, group);
        QFETCH(int, tab);
        QFETCH(QStringList, items);
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

    // Of a page, and of its groups in their order.
    void titlesInBothLanguages_data()
    {
        const Rows<int, int, QStringList> row("tab", "language", "titles");
        row("common", kCommon, 0, "Common_Features Basic_Features ISP Transport_Layer_Control");
        row("common, Chinese", kCommon, 1, "常用参数 基本参数 图像信号处理 传输层控制");
        row("trigger", kTrigger, 0,
            "Trigger IO_Input IO_Output Encoder_Control Frequency_Converter_Control");
        row("trigger, Chinese", kTrigger, 1, "触发 IO_输入 IO_输出 编码器控制 频率转换控制");
        row("image", kImage, 0,
            "Image_Processing ROI AOI Embedded_Information Event_Control LUT "
            "Color_Correction_Matrix Palette");
        row("image, Chinese", kImage, 1,
            "图像处理 感兴趣区域（ROI） 自动功能区域（AOI） 嵌入信息 事件控制 查找表（LUT） "
            "色彩校正矩阵 伪彩调色板");
    }

    void titlesInBothLanguages()
    {
        QFETCH(int, tab);
        QFETCH(int, language);
        QFETCH(QStringList, titles);
        open({}, language);
        titles.replaceInStrings("_"_s, " "_s);
        QCOMPARE(m_window->titles(tab), titles);
    }
};

OBFT_TEST_MAIN(TestCuratedPages)
#include "tst_curatedpages.moc"
