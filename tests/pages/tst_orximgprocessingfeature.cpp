// SPDX-License-Identifier: Apache-2.0
// The image processing page in the window, on the simulated camera: what it shows. The transfers of
// tables and matrix are tst_orximgprocessingtransfers' subject, the region tst_regiondrawwidget's,
// the check boxes tst_selectorchecks'.
#include "cameras/CameraError.h"
#include "lut/QLUTDrawWidget.h"
#include "main/CFeatureGroupTreeView.h"
#include "main/ORXFeatureGroup.h"
#include "pages/CuratedPageTest.h"
#include "pages/ORXImgProcessingFeature.h"
#include "pages/SettingsFile.h"
#include "region/RegionDrawWidget.h"

#include <QComboBox>
#include <QLineEdit>

namespace {

constexpr int kPage = ORXMainFeatureWidget::ImageProcessingTab;
const SettingsFile kFile{"DEMO000001"_s};
const QStringList kMatrixFeatures =
    words("ColorTransformationValueSelector ColorTransformationValue ColorTransformationEnable "
          "CCMEnable");
const QStringList kHiddenNumbers = words("Custom_LUTGamma Custom_LUTContrast Custom_LUTLum");

} // namespace

class TestORXImgProcessingFeature : public CuratedPageTest
{
    Q_OBJECT

public:
    TestORXImgProcessingFeature()
        : CuratedPageTest(
              {kPage,
               {"Image Processing"_s, "ROI"_s, "AOI"_s, "Embedded Information"_s, "Event Control"_s,
                "LUT"_s, "Color Correction Matrix"_s, "Palette"_s},
               {"图像处理"_s, "感兴趣区域（ROI）"_s, "自动功能区域（AOI）"_s, "嵌入信息"_s,
                "事件控制"_s, "查找表（LUT）"_s, "色彩校正矩阵"_s, "伪彩调色板"_s},
               {{"Custom_ROIGroup",
                 words("RegionSelector RegionMode Width Height OffsetX OffsetY BinningSelector "
                       "BinningHorizontal BinningVertical DecimationHorizontal DecimationVertical "
                       "ReverseX ReverseY Custom_ROIDraw")},
                {"Custom_AOIGroup",
                 words("AutoFunctionAOISelector AutoFunctionAOIWidth AutoFunctionAOIHeight "
                       "AutoFunctionAOIOffsetX AutoFunctionAOIOffsetY "
                       "AutoFunctionAOIUsageIntensity AutoFunctionAOIUsageWhiteBalance")},
                {"Custom_EmbeddedInfoGroup",
                 words("ChunkModeActive Custom_ChunkSelector_0 Custom_ChunkSelector_2 "
                       "Custom_ChunkSelector_4 Custom_ChunkSelector_6")},
                {"Custom_EventGroup",
                 words("Custom_EventSelector_0 Custom_EventSelector_2 Custom_EventSelector_4 "
                       "Custom_EventSelector_6")},
                {"Custom_LUTGroup",
                 words("LUTEnable LUTSelector Custom_LUTLineType Custom_LUTGamma "
                       "Custom_LUTContrast Custom_LUTLum Custom_LUTLoadFromCamera "
                       "Custom_LUTSetToCamera Custom_LUTLoadFromFile Custom_LUTSetToFile "
                       "Custom_LUTClear")},
                {"Custom_CCMGroup", words("Custom_CCMEnable Custom_CCM")},
                {"Custom_PaletteGroup", words("Custom_PalettesMode")}},
               kHiddenNumbers})
    {
    }

protected:
    void prepare() override
    {
        SettingsFile::removeAll();
        CuratedPageTest::prepare();
    }
    void finish() override
    {
        CuratedPageTest::finish();
        SettingsFile::removeAll();
    }

private:
    QStringList shownGroups() const
    {
        const CFeatureGroupTreeView* column = m_window->widget()->featureGroup(1)->groupView();
        const QAbstractItemModel* model = column->model();
        QStringList names;
        for (int row = 0; row < model->rowCount(); ++row) {
            const QModelIndex root = model->index(row, 0);
            if (CFeatureGroupModel::itemFromIndex(root) != imagePage()->getRootItem(1, false))
                continue;
            for (int group = 0; group < model->rowCount(root); ++group) {
                if (!column->isRowHidden(group, root))
                    names += CFeatureGroupModel::itemFromIndex(model->index(group, 0, root))
                                 ->value()
                                 ->nodeName(0);
            }
        }
        return names;
    }

private slots:
    void groupsWithoutFeaturesDoNotShow_data()
    {
        const Rows<QString, QStringList, bool> row("group", "features", "hide");
        const auto both = [&](const char* group, const char* features) {
            row(qPrintable("%1 missing"_s.arg(QLatin1String(group))), group, features, false);
            row(qPrintable("%1 hidden"_s.arg(QLatin1String(group))), group, features, true);
        };
        both("Custom_AOIGroup", "AutoFunctionAOISelector AutoFunctionAOIWidth "
                                "AutoFunctionAOIHeight AutoFunctionAOIOffsetX "
                                "AutoFunctionAOIOffsetY AutoFunctionAOIUsageIntensity "
                                "AutoFunctionAOIUsageWhiteBalance");
        both("Custom_EmbeddedInfoGroup", "ChunkModeActive ChunkSelector ChunkEnable "
                                         "FrameSpecInfoSelector FrameSpecInfo");
        both("Custom_EventGroup", "EventSelector EventNotification");
        both("Custom_LUTGroup", "LUTEnable LUTSelector");
        both("Custom_PaletteGroup", "PalettesMode");
        both("Custom_CCMGroup", "ColorTransformationValueSelector ColorTransformationValue "
                                "ColorTransformationEnable CCMEnable");
    }

    // The description lacks the features, or their access modes say that they are not there.
    void groupsWithoutFeaturesDoNotShow()
    {
        QFETCH(QString, group);
        QFETCH(QStringList, features);
        QFETCH(bool, hide);
        m_camera = std::make_unique<MeddledCamera>(*m_demo, hide ? QStringList() : features);
        for (const QString& name : qAsConst(features))
            m_camera->hide(name.toLatin1(), hide);
        open();
        QStringList expected =
            words("Custom_ROIGroup Custom_AOIGroup Custom_EmbeddedInfoGroup Custom_EventGroup "
                  "Custom_LUTGroup Custom_CCMGroup Custom_PaletteGroup");
        expected.removeAll(group);
        OBFT_TRY_COMPARE(shownGroups(), expected);
        QVERIFY(m_window->show(kPage, "Width"));
        QVERIFY(imagePage()->regionPicture()->isVisible());
    }

    void lutItemsFollowTheSwitch()
    {
        const QStringList own =
            kHiddenNumbers +
            words("Custom_LUTLineType Custom_LUTLoadFromCamera Custom_LUTSetToCamera "
                  "Custom_LUTLoadFromFile Custom_LUTSetToFile Custom_LUTClear");
        write("LUTEnable", "1");
        open();
        QVERIFY(m_window->show(kPage, "LUTEnable"));
        const auto readOnlyItems = [&] {
            return int(std::count_if(own.begin(), own.end(), [&](const QString& name) {
                return m_window->item(kPage, name.toLatin1())->readOnly();
            }));
        };
        const auto shownItems = [&] {
            return int(std::count_if(own.begin(), own.end(), [&](const QString& name) {
                return m_window->isRowShown(kPage, name.toLatin1());
            }));
        };
        const QLUTDrawWidget* editor = imagePage()->lutEditor();
        OBFT_TRY_COMPARE(readOnlyItems(), 0);
        QVERIFY(m_window->click(kPage, "LUTEnable"));
        OBFT_TRY_COMPARE(readOnlyItems(), 9);
        OBFT_TRY_VERIFY(!editor->isEnabled());
        // Each table has its own switch.
        QVERIFY(m_window->click(kPage, "LUTEnable"));
        OBFT_TRY_COMPARE(readOnlyItems(), 0);
        QVERIFY(m_window->choose(kPage, "LUTSelector", "Red"_s));
        OBFT_TRY_COMPARE(readOnlyItems(), 9);
        QCOMPARE(shownItems(), 6);
        for (const bool hidden : {true, false}) {
            m_camera->hide("LUTEnable", hidden);
            QVERIFY(m_window->refresh());
            OBFT_TRY_COMPARE(shownItems(), hidden ? 0 : 6);
        }
    }

    void matrixStandsWhereItIs_data()
    {
        const Rows<bool, QByteArray, QString> row("inCamera", "file", "first");
        const QByteArray file = "[Common]\nCCMEnable=true\nCCMValue0=2048\n";
        row("camera", true, "", "1.0000");
        row("camera and file", true, file, "1.0000");
        row("file", false, file, "2.0000");
        row("neither", false, "", ""); // there is no matrix
    }

    void matrixStandsWhereItIs()
    {
        QFETCH(bool, inCamera);
        QFETCH(QByteArray, file);
        QFETCH(QString, first);
        if (!file.isEmpty())
            kFile.store(file);
        open(inCamera ? QStringList() : kMatrixFeatures);
        QCOMPARE(m_window->item(kPage, "Custom_CCM") != nullptr, !first.isEmpty());
        if (first.isEmpty())
            return;
        QVERIFY(m_window->show(kPage, "Custom_CCM"));
        const auto cell = [&] {
            const auto* line = imagePage()->findChild<QLineEdit*>("CCMValue0"_s);
            return line ? line->text() : QString();
        };
        OBFT_TRY_COMPARE(cell(), first);
        // The switch reaches the camera, or the file.
        m_camera->forget();
        QVERIFY(m_window->click(kPage, "Custom_CCMEnable"));
        if (inCamera)
            OBFT_TRY_VERIFY(m_camera->writes().contains("CCMEnable=1"_s));
        else
            OBFT_TRY_COMPARE(m_window->shown(kPage, "Custom_CCMEnable"), "unchecked"_s);
        QCOMPARE(m_camera->writes().isEmpty(), !inCamera);
    }

    // The file's name takes the serial number, and that takes the camera's time.
    void matrixFileIsFoundWithoutWaiting_data()
    {
        const Rows<bool> row("exists");
        row("there is one", true);
        row("there is none", false);
    }

    void matrixFileIsFoundWithoutWaiting()
    {
        QFETCH(bool, exists);
        if (exists)
            kFile.store("[Common]\nCCMEnable=true\n");
        open(kMatrixFeatures);
        OBFT_TRY_COMPARE(shownGroups().contains("Custom_CCMGroup"_s), exists);
        QVERIFY(m_window->show(kPage, "Width"));
        QVERIFY(m_window->refresh());
        // Another look at the host's callbacks builds nothing anew.
        m_window->widget()->CreateFeature();
        QCOMPARE(shownGroups().contains("Custom_CCMGroup"_s), exists);
        QStringList reads = m_camera->readsOfThisThread();
        reads.removeAll("ChunkModeActive"_s); // when the callbacks are installed
        QCOMPARE(reads, QStringList());
    }

    void matrixAndTreeFollowEachOther()
    {
        open();
        QVERIFY(m_window->show(kPage, "Custom_CCM"));
        OBFT_TRY_COMPARE(m_window->shown(kPage, "Custom_CCMEnable"), "unchecked"_s);
        write("CCMEnable", "1");
        QVERIFY(m_window->refresh());
        OBFT_TRY_COMPARE(m_window->shown(kPage, "Custom_CCMEnable"), "checked"_s);
        QVERIFY(m_window->click(kPage, "Custom_CCMEnable"));
        OBFT_TRY_COMPARE(m_window->shown(kTree, "CCMEnable"), "unchecked"_s);
        OBFT_TRY_COMPARE(m_window->shown(kTree, "ColorTransformationEnable"), "checked"_s);
    }

    void palettesMirrorTheCamera()
    {
        constexpr char kOwn[] = "Custom_PalettesMode";
        open();
        QCOMPARE(m_window->shown(kPage, kOwn), "White Hot"_s);
        QVERIFY(m_window->choose(kPage, kOwn, "Black Hot"_s));
        QCOMPARE(read("PalettesMode"), 1);
        OBFT_TRY_COMPARE(m_window->shown(kTree, "PalettesMode"), "Black Hot"_s);
        const QString third = m_window->editor<QComboBox>(kTree, "PalettesMode")->itemText(2);
        QVERIFY(m_window->choose(kTree, "PalettesMode", third));
        OBFT_TRY_COMPARE(m_window->shown(kPage, kOwn), third);
        QVERIFY(!m_window->editor<QComboBox>(kPage, kOwn)->itemIcon(2).isNull());
        MessageGuard::expectMessage("Read Feature Failed"_s);
        m_camera->fail("PalettesMode", CameraError::NotWritable);
        m_window->choose(kPage, kOwn, "White Hot"_s);
        OBFT_TRY_VERIFY(message().startsWith("Node 'PalettesMode'"_s));
        OBFT_TRY_COMPARE(m_window->shown(kPage, kOwn), third);
    }

    void languageSwitchedWhileShown()
    {
        write("LUTEnable", "1");
        open();
        QVERIFY(m_window->choose(kPage, "Custom_LUTLineType", "Curve"_s));
        for (const bool chinese : {true, false}) {
            m_window->widget()->SetLanguage(chinese ? 1 : 0);
            OBFT_TRY_COMPARE(m_window->shown(kPage, "Custom_LUTLineType"),
                             chinese ? "曲线"_s : "Curve"_s);
            QCOMPARE(m_window->titles(kPage).value(1), chinese ? "感兴趣区域（ROI）"_s : "ROI"_s);
            OBFT_TRY_COMPARE(imagePage()->regionPicture()->accessibleName(),
                             chinese ? "传感器区域示意图"_s : "Picture of the sensor area"_s);
            QCOMPARE(imagePage()->lutEditor()->accessibleName(),
                     chinese ? "查找表曲线"_s : "Curve of the look-up table"_s);
            QCOMPARE(imagePage()->lutEditor()->GetCurrentDrawLine(),
                     int(QLUTDrawWidget::SmoothCurve));
        }
    }
};

OBFT_TEST_MAIN(TestORXImgProcessingFeature)
#include "tst_orximgprocessingfeature.moc"
