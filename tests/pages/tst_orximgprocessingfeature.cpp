// SPDX-License-Identifier: Apache-2.0
// The image processing page in the window, on the simulated camera: rows, look-up table, matrix
// and palettes. The region is tst_regiondrawwidget's subject, the check boxes tst_selectorchecks'.
#include "CameraError.h"
#include "DemoCamera.h"
#include "basetools/ORXInterface.h"
#include "device/OBDeviceControl.h"
#include "main/CFeatureGroupTreeView.h"
#include "main/ORXFeatureGroup.h"
#include "pages/MeddledCamera.h"
#include "pages/ORXImgProcessingFeature.h"
#include "pages/ORXRWCCMValue.h"
#include "pages/PageWindow.h"
#include "pages/QLUTDrawWidget.h"
#include "pages/RegionDrawWidget.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "support/TestMain.h"

#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <memory>

namespace {

constexpr int kTree = ORXMainFeatureWidget::WholeTreeTab;
constexpr int kPage = ORXMainFeatureWidget::ImageProcessingTab;
const QVector<const char*> kLutItems = {
    "Custom_LUTLineType",     "Custom_LUTGamma",          "Custom_LUTContrast",
    "Custom_LUTLum",          "Custom_LUTLoadFromCamera", "Custom_LUTSetToCamera",
    "Custom_LUTLoadFromFile", "Custom_LUTSetToFile",      "Custom_LUTClear"};

} // namespace

class TestORXImgProcessingFeature : public GuardedTest
{
    Q_OBJECT
private slots:
    void groupsHoldTheirFeatures_data();
    void groupsHoldTheirFeatures();
    void titlesInBothLanguages_data();
    void titlesInBothLanguages();
    void groupsWithoutFeaturesDoNotShow_data();
    void groupsWithoutFeaturesDoNotShow();
    void lutItemsFollowTheSwitch();
    void drawnLineReachesTheCamera_data();
    void drawnLineReachesTheCamera();
    void tableIsLockedDuringATransfer();
    void transferEndsWithTheCamera_data();
    void transferEndsWithTheCamera();
    void matrixStandsWhereItIs_data();
    void matrixStandsWhereItIs();
    void palettesMirrorTheCamera();
    void languageSwitchedWhileShown();

protected:
    void prepare() override;
    void finish() override;

private:
    void open(const QStringList& lacking = {}, int language = 0);
    void openLut();
    ORXImgProcessingFeature* page() const
    {
        return static_cast<ORXImgProcessingFeature*>(m_window->page(kPage));
    }
    RegionDrawWidget* picture() const { return page()->regionPicture(); }
    QLUTDrawWidget* editor() const { return page()->lutEditor(); }
    void set(const char* name, const QString& text)
    {
        const DescriptionNode* node = m_demo->nodes().find(name);
        const int type = node->tag == "Enumeration" ? OB_FT_TYPE_ENUMERATION
                         : node->tag == "Boolean"   ? OB_FT_TYPE_BOOLEAN
                         : node->tag == "Command"   ? OB_FT_TYPE_COMMAND
                                                    : OB_FT_TYPE_INTEGER;
        QCOMPARE(m_demo->write(type, name, text.toStdString()), 0);
    }
    qint64 held(const QString& name) const
    {
        _ZDCC_INTVALUE_EX_T record = {};
        m_demo->read(OB_FT_TYPE_INTEGER, name.toStdString(), &record);
        return record.value;
    }
    QStringList shownGroups() const;
    QString treeMessage() const
    {
        const auto* box = m_window->tree()->findChild<ZELCustomMessageBox*>();
        return box && box->isVisible() ? box->cContent() : QString();
    }
    QString lutMessage() const
    {
        const auto boxes = editor()->findChildren<ZELCustomMessageBox*>();
        return boxes.isEmpty() ? QString() : boxes.constLast()->cContent();
    }
    bool lutCommand(const char* name, const char* message);
    QVector<int> drawn() const
    {
        QVector<int> values;
        for (const LUTPoint& point : editor()->GetSettinngPoints())
            values += point.value;
        return values;
    }
    QVector<int> memory(int selector);

    std::unique_ptr<DemoCamera> m_demo;
    std::unique_ptr<MeddledCamera> m_camera;
    std::unique_ptr<PageWindow> m_window;
};

void TestORXImgProcessingFeature::prepare()
{
    OBDeviceControl::SetUserLevel(0);
    QDir(ORXInterface::userDataPath() + QStringLiteral("/CCMList")).removeRecursively();
    m_demo = std::make_unique<DemoCamera>();
}

void TestORXImgProcessingFeature::finish()
{
    if (m_camera)
        m_camera->openGate();
    m_window.reset();
    m_camera.reset();
    m_demo.reset();
    QDir(ORXInterface::userDataPath() + QStringLiteral("/CCMList")).removeRecursively();
    ORXInterface::setFileDialogHook(nullptr);
    OBDeviceControl::SetUserLevel(1);
    ORXInterface::setLanguage(QStringLiteral("ENG"));
}

void TestORXImgProcessingFeature::open(const QStringList& lacking, int language)
{
    if (!m_camera)
        m_camera = std::make_unique<MeddledCamera>(*m_demo, lacking);
    m_window = std::make_unique<PageWindow>(*m_camera, language);
}

// Rows --------------------------------------------------------------------------------------------

void TestORXImgProcessingFeature::groupsHoldTheirFeatures_data()
{
    QTest::addColumn<QByteArray>("group");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("region") << QByteArray("Custom_ROIGroup")
                            << words("RegionSelector RegionMode Width Height OffsetX OffsetY "
                                     "BinningSelector BinningHorizontal BinningVertical "
                                     "DecimationHorizontal DecimationVertical ReverseX ReverseY "
                                     "Custom_ROIDraw");
    QTest::newRow("automatics' area")
        << QByteArray("Custom_AOIGroup")
        << words("AutoFunctionAOISelector AutoFunctionAOIWidth AutoFunctionAOIHeight "
                 "AutoFunctionAOIOffsetX AutoFunctionAOIOffsetY AutoFunctionAOIUsageIntensity "
                 "AutoFunctionAOIUsageWhiteBalance");
    QTest::newRow("embedded information")
        << QByteArray("Custom_EmbeddedInfoGroup")
        << words("ChunkModeActive Custom_ChunkSelector_0 Custom_ChunkSelector_2 "
                 "Custom_ChunkSelector_4 Custom_ChunkSelector_6");
    QTest::newRow("events") << QByteArray("Custom_EventGroup")
                            << words("Custom_EventSelector_0 Custom_EventSelector_2 "
                                     "Custom_EventSelector_4 Custom_EventSelector_6");
    QTest::newRow("look-up table")
        << QByteArray("Custom_LUTGroup")
        << words("LUTEnable LUTSelector Custom_LUTLineType Custom_LUTGamma Custom_LUTContrast "
                 "Custom_LUTLum Custom_LUTLoadFromCamera Custom_LUTSetToCamera "
                 "Custom_LUTLoadFromFile Custom_LUTSetToFile Custom_LUTClear");
    QTest::newRow("matrix") << QByteArray("Custom_CCMGroup")
                            << words("Custom_CCMEnable Custom_CCM");
    QTest::newRow("palette") << QByteArray("Custom_PaletteGroup") << words("Custom_PalettesMode");
}

void TestORXImgProcessingFeature::groupsHoldTheirFeatures()
{
    QFETCH(QByteArray, group);
    QFETCH(QStringList, names);
    const QStringList hidden = words("Custom_LUTGamma Custom_LUTContrast Custom_LUTLum");
    open();
    QVERIFY(m_window->show(kPage, names.first().toLatin1()));
    // Rows are kept for the most entries that there may be.
    QStringList items = m_window->items(kPage, group);
    items.removeAll(QString());
    QCOMPARE(items, names);
    for (const QString& name : qAsConst(names)) {
        const QByteArray latin = name.toLatin1();
        const ORXPropertyTreeItem* whole = m_window->item(kTree, latin);
        QVERIFY2(latin.startsWith("Custom_") || m_window->item(kPage, latin) == whole, latin);
        const bool shown = whole ? whole->visible() : !hidden.contains(name);
        QVERIFY2(m_window->isRowShown(kPage, latin) == shown, latin);
    }
}

void TestORXImgProcessingFeature::titlesInBothLanguages_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("titles");
    QTest::newRow("English") << 0
                             << QStringLiteral("Image Processing|ROI|AOI|Embedded Information|"
                                               "Event Control|LUT|Color Correction Matrix|Palette");
    QTest::newRow("Chinese")
        << 1
        << QStringLiteral("图像处理|感兴趣区域（ROI）|自动功能区域（AOI）|嵌入信息|事件控制|"
                          "查找表（LUT）|色彩校正矩阵|伪彩调色板");
}

void TestORXImgProcessingFeature::titlesInBothLanguages()
{
    QFETCH(int, language);
    QFETCH(QString, titles);
    open({}, language);
    QCOMPARE(m_window->titles(kPage).join(QLatin1Char('|')), titles);
}

QStringList TestORXImgProcessingFeature::shownGroups() const
{
    const CFeatureGroupTreeView* column = m_window->widget()->featureGroup(1)->groupView();
    const QAbstractItemModel* model = column->model();
    QStringList names;
    for (int row = 0; row < model->rowCount(); ++row) {
        const QModelIndex root = model->index(row, 0);
        if (CFeatureGroupModel::itemFromIndex(root) != page()->getRootItem(1, false))
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

void TestORXImgProcessingFeature::groupsWithoutFeaturesDoNotShow_data()
{
    QTest::addColumn<QString>("features");
    QTest::addColumn<QString>("group");
    QTest::addColumn<bool>("hide"); // by the access mode; else the description lacks them
    const auto row = [](const char* group, const char* features) {
        for (const bool hide : {false, true})
            QTest::addRow("%s %s", group, hide ? "hidden" : "missing")
                << QString::fromLatin1(features) << QString::fromLatin1(group) << hide;
    };
    row("Custom_AOIGroup", "AutoFunctionAOISelector AutoFunctionAOIWidth AutoFunctionAOIHeight "
                           "AutoFunctionAOIOffsetX AutoFunctionAOIOffsetY "
                           "AutoFunctionAOIUsageIntensity AutoFunctionAOIUsageWhiteBalance");
    row("Custom_EmbeddedInfoGroup", "ChunkModeActive ChunkSelector ChunkEnable "
                                    "FrameSpecInfoSelector FrameSpecInfo");
    row("Custom_EventGroup", "EventSelector EventNotification");
    row("Custom_LUTGroup", "LUTEnable LUTSelector");
    row("Custom_PaletteGroup", "PalettesMode");
    QTest::newRow("Custom_CCMGroup missing")
        << QStringLiteral("ColorTransformationValueSelector ColorTransformationValue "
                          "ColorTransformationEnable CCMEnable")
        << QStringLiteral("Custom_CCMGroup") << false;
}

void TestORXImgProcessingFeature::groupsWithoutFeaturesDoNotShow()
{
    QFETCH(QString, features);
    QFETCH(QString, group);
    QFETCH(bool, hide);
    const QStringList names = features.split(QLatin1Char(' '));
    m_camera = std::make_unique<MeddledCamera>(*m_demo, hide ? QStringList() : names);
    for (const QString& name : names)
        m_camera->hide(name.toLatin1(), hide);
    open();
    QStringList expected =
        words("Custom_ROIGroup Custom_AOIGroup Custom_EmbeddedInfoGroup Custom_EventGroup "
              "Custom_LUTGroup Custom_CCMGroup Custom_PaletteGroup");
    expected.removeAll(group);
    OBFT_TRY_COMPARE(shownGroups(), expected);
    QVERIFY(m_window->show(kPage, "Width"));
    QVERIFY(picture()->isVisible());
}

// Look-up table -----------------------------------------------------------------------------------

void TestORXImgProcessingFeature::openLut()
{
    set("LUTEnable", QStringLiteral("1"));
    open();
    QVERIFY(m_window->show(kPage, "LUTEnable"));
    OBFT_TRY_VERIFY(editor()->isVisible() && editor()->isEnabled());
}

void TestORXImgProcessingFeature::lutItemsFollowTheSwitch()
{
    openLut();
    const auto readOnlyItems = [&] {
        return int(std::count_if(kLutItems.begin(), kLutItems.end(), [&](const char* name) {
            return m_window->item(kPage, name)->readOnly();
        }));
    };
    const auto shownItems = [&] {
        return int(std::count_if(kLutItems.begin(), kLutItems.end(), [&](const char* name) {
            return m_window->isRowShown(kPage, name);
        }));
    };
    OBFT_TRY_COMPARE(readOnlyItems(), 0);
    QVERIFY(m_window->click(kPage, "LUTEnable"));
    OBFT_TRY_COMPARE(readOnlyItems(), 9);
    OBFT_TRY_VERIFY(!editor()->isEnabled());
    // Each table has its own switch.
    QVERIFY(m_window->click(kPage, "LUTEnable"));
    OBFT_TRY_COMPARE(readOnlyItems(), 0);
    QVERIFY(m_window->choose(kPage, "LUTSelector", QStringLiteral("Red")));
    OBFT_TRY_COMPARE(readOnlyItems(), 9);
    QCOMPARE(shownItems(), 6);
    for (const bool hidden : {true, false}) {
        m_camera->hide("LUTEnable", hidden);
        QVERIFY(m_window->refresh());
        OBFT_TRY_COMPARE(shownItems(), hidden ? 0 : 6);
    }
}

// Presses the page's command and waits for its message.
bool TestORXImgProcessingFeature::lutCommand(const char* name, const char* message)
{
    return m_window->click(kPage, name) && QTest::qWaitFor(
                                               [&] {
                                                   return lutMessage() == QLatin1String(message) &&
                                                          !editor()->isTransferring();
                                               },
                                               60000);
}

QVector<int> TestORXImgProcessingFeature::memory(int selector)
{
    QVector<int> values;
    set("LUTSelector", QString::number(selector));
    for (int i = 0; i < QLUTDrawWidget::PointCount(); ++i) {
        m_demo->write(OB_FT_TYPE_INTEGER, "LUTIndex", std::to_string(i));
        values += int(held(QStringLiteral("LUTValue")));
    }
    return values;
}

void TestORXImgProcessingFeature::drawnLineReachesTheCamera_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("selector");
    QTest::newRow("fold line") << QStringLiteral("Fold Line") << 0;
    QTest::newRow("curve") << QStringLiteral("Curve") << 1;
    QTest::newRow("free line") << QStringLiteral("Free Line") << 2;
}

void TestORXImgProcessingFeature::drawnLineReachesTheCamera()
{
    QFETCH(QString, line);
    QFETCH(int, selector);
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("curve.txt"));
    ORXInterface::setFileDialogHook([=](auto, const QString&, const QString&) { return path; });
    const QVector<int> other = memory(3);
    set("LUTSelector", QString::number(selector));
    openLut();
    QVERIFY(lutCommand("Custom_LUTLoadFromCamera", "Loading from camera completed."));
    const QVector<int> before = drawn();
    QVERIFY(line == QLatin1String("Fold Line") ||
            m_window->choose(kPage, "Custom_LUTLineType", line));
    const QPoint onTheLine(30 + 60, 30 + 179);
    QTest::mousePress(editor(), Qt::LeftButton, {}, onTheLine);
    QTest::mouseRelease(editor(), Qt::LeftButton, {}, onTheLine - QPoint(0, 99));
    const QVector<int> curve = drawn();
    QVERIFY(curve != before);
    QVERIFY(lutCommand("Custom_LUTSetToFile", "Exporting to file completed."));
    QVERIFY(m_window->click(kPage, "Custom_LUTClear"));
    OBFT_TRY_VERIFY(drawn() != curve);
    QVERIFY(lutCommand("Custom_LUTLoadFromFile", "Importing from file completed."));
    QCOMPARE(drawn(), curve);
    QVERIFY(lutCommand("Custom_LUTSetToCamera", "Applied to camera successfully."));
    QCOMPARE(memory(selector), curve);
    QCOMPARE(memory(3), other);
}

void TestORXImgProcessingFeature::tableIsLockedDuringATransfer()
{
    openLut();
    m_camera->closeGate("LUTIndex");
    QVERIFY(m_window->click(kPage, "Custom_LUTSetToCamera"));
    OBFT_TRY_VERIFY(editor()->isTransferring());
    for (const char* name : {"LUTSelector", "LUTIndex", "LUTValue"})
        OBFT_TRY_VERIFY(m_window->item(kTree, name)->readOnly());
    QVERIFY(m_window->refresh());
    QVERIFY(!m_window->isEnabled(kPage, "LUTSelector"));
    m_camera->openGate();
    QTRY_VERIFY_WITH_TIMEOUT(!editor()->isTransferring(), 60000);
    OBFT_TRY_VERIFY(m_window->isEnabled(kPage, "LUTSelector"));
    OBFT_TRY_VERIFY(m_window->isEnabled(kTree, "LUTValue"));
}

void TestORXImgProcessingFeature::transferEndsWithTheCamera_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("held");
    QTest::addColumn<int>("end");
    const char* const ends[] = {"unplugged", "window closed", "camera removed", "released"};
    for (int end = 0; end < 4; ++end) {
        QTest::addRow("table read, %s", ends[end])
            << QByteArray("Custom_LUTLoadFromCamera") << QByteArray("LUTIndex") << end;
        QTest::addRow("table written, %s", ends[end])
            << QByteArray("Custom_LUTSetToCamera") << QByteArray("LUTValue") << end;
        QTest::addRow("matrix read, %s", ends[end])
            << QByteArray("Custom_CCM") << QByteArray("ColorTransformationValueSelector") << end;
    }
}

void TestORXImgProcessingFeature::transferEndsWithTheCamera()
{
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, held);
    QFETCH(int, end);
    for (const char* line : {"LUT: ", "Read Feature Failed", "Reading the color correction matrix"})
        MessageGuard::expectMessage(QString::fromLatin1(line));
    openLut();
    m_camera->forget();
    m_camera->closeGate(held);
    if (command == "Custom_CCM")
        QVERIFY(m_window->show(kPage, command));
    else
        QVERIFY(m_window->click(kPage, command));
    OBFT_TRY_VERIFY(m_camera->writesOf(held) > 0);
    // Lets the host go on while the window waits for it, or just before.
    std::thread hanging([&] { m_camera->openGate(); });
    const auto joined = qScopeGuard([&] { hanging.join(); });
    const std::function<void()> ends[] = {
        [&] { m_camera->unplug(); },
        [] { OB_FT_Close(); },
        [&] { m_window->widget()->removeFeatureTree(1); },
        [] { OB_FT_Release(); },
    };
    ends[end]();
    if (end == 3)
        return;
    QTRY_VERIFY_WITH_TIMEOUT(!page()->lutEditor()->isTransferring(), 60000);
    const QStringList writes = m_camera->writes();
    if (end > 0)
        QVERIFY2(writes.size() < 2000, "the transfer went on");
    QApplication::processEvents();
    QCOMPARE(m_camera->writes().size(), writes.size());
}

// Matrix, palettes, language ----------------------------------------------------------------------

void TestORXImgProcessingFeature::matrixStandsWhereItIs_data()
{
    QTest::addColumn<bool>("inCamera");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("first"); // empty: there is no matrix
    const QByteArray file = "[Common]\nCCMEnable=true\nCCMValue0=2048\n";
    QTest::newRow("camera") << true << QByteArray() << QStringLiteral("1.0000");
    QTest::newRow("camera and file") << true << file << QStringLiteral("1.0000");
    QTest::newRow("file") << false << file << QStringLiteral("2.0000");
    QTest::newRow("neither") << false << QByteArray() << QString();
}

void TestORXImgProcessingFeature::matrixStandsWhereItIs()
{
    QFETCH(bool, inCamera);
    QFETCH(QByteArray, file);
    QFETCH(QString, first);
    if (!file.isEmpty()) {
        const QString path = ORXRWCCMValue::fileOf(QStringLiteral("DEMO000001"));
        QDir().mkpath(QFileInfo(path).path());
        QFile settings(path);
        QVERIFY(settings.open(QIODevice::WriteOnly) && settings.write(file) == file.size());
    }
    open(inCamera ? QStringList()
                  : words("ColorTransformationValueSelector ColorTransformationValue "
                          "ColorTransformationEnable CCMEnable"));
    QCOMPARE(m_window->item(kPage, "Custom_CCM") != nullptr, !first.isEmpty());
    if (first.isEmpty())
        return;
    QVERIFY(m_window->show(kPage, "Custom_CCM"));
    const auto cell = [&] {
        const auto* line = page()->findChild<QLineEdit*>(QStringLiteral("CCMValue0"));
        return line ? line->text() : QString();
    };
    OBFT_TRY_COMPARE(cell(), first);
    // The switch reaches the camera, or the file.
    m_camera->forget();
    QVERIFY(m_window->click(kPage, "Custom_CCMEnable"));
    if (inCamera)
        OBFT_TRY_VERIFY(m_camera->writes().contains(QStringLiteral("CCMEnable=1")));
    else
        OBFT_TRY_VERIFY(m_window->shown(kPage, "Custom_CCMEnable") == QLatin1String("unchecked"));
    QCOMPARE(m_camera->writes().isEmpty(), !inCamera);
}

void TestORXImgProcessingFeature::palettesMirrorTheCamera()
{
    constexpr char kOwn[] = "Custom_PalettesMode";
    open();
    QCOMPARE(m_window->shown(kPage, kOwn), QStringLiteral("White Hot"));
    QVERIFY(m_window->choose(kPage, kOwn, QStringLiteral("Black Hot")));
    QCOMPARE(held(QStringLiteral("PalettesMode")), qint64(1));
    OBFT_TRY_COMPARE(m_window->shown(kTree, "PalettesMode"), QStringLiteral("Black Hot"));
    const QString third = m_window->editor<QComboBox>(kTree, "PalettesMode")->itemText(2);
    QVERIFY(m_window->choose(kTree, "PalettesMode", third));
    OBFT_TRY_COMPARE(m_window->shown(kPage, kOwn), third);
    QVERIFY(!m_window->editor<QComboBox>(kPage, kOwn)->itemIcon(2).isNull());
    MessageGuard::expectMessage(QStringLiteral("Read Feature Failed"));
    m_camera->fail("PalettesMode", CameraError::NotWritable);
    m_window->choose(kPage, kOwn, QStringLiteral("White Hot"));
    OBFT_TRY_VERIFY(treeMessage().startsWith(QLatin1String("Node 'PalettesMode'")));
    OBFT_TRY_COMPARE(m_window->shown(kPage, kOwn), third);
}

void TestORXImgProcessingFeature::languageSwitchedWhileShown()
{
    openLut();
    QVERIFY(m_window->choose(kPage, "Custom_LUTLineType", QStringLiteral("Curve")));
    for (const bool chinese : {true, false}) {
        m_window->widget()->SetLanguage(chinese ? 1 : 0);
        OBFT_TRY_COMPARE(m_window->shown(kPage, "Custom_LUTLineType"),
                         chinese ? QStringLiteral("曲线") : QStringLiteral("Curve"));
        QCOMPARE(m_window->titles(kPage).value(1),
                 chinese ? QStringLiteral("感兴趣区域（ROI）") : QStringLiteral("ROI"));
        OBFT_TRY_COMPARE(picture()->accessibleName(),
                         chinese ? QStringLiteral("传感器区域示意图")
                                 : QStringLiteral("Picture of the sensor area"));
        QCOMPARE(editor()->GetCurrentDrawLine(), int(QLUTDrawWidget::SmoothCurve));
    }
}

OBFT_TEST_MAIN(TestORXImgProcessingFeature)
#include "tst_orximgprocessingfeature.moc"
