// SPDX-License-Identifier: Apache-2.0
// The image processing page in the window, on the simulated camera. The region is
// tst_regiondrawwidget's subject, the check boxes are tst_selectorchecks', and what ends a transfer
// is tst_qlutdrawwidget's and tst_stopping's.
#include "basetools/ORXInterface.h"
#include "cameras/CameraError.h"
#include "ccm/ORXCCMWidget.h"
#include "lut/QLUTDrawWidget.h"
#include "pages/DemoPageTest.h"
#include "pages/ORXImgProcessingFeature.h"
#include "pages/SettingsFile.h"
#include "region/RegionDrawWidget.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "support/FileSizeLimit.h"
#include "support/Files.h"

#include <QComboBox>
#include <QLineEdit>

namespace {

constexpr int kTransferMs = 60000; // 1,024 points on a slow machine
const SettingsFile kFile{"DEMO000001"_s};
const QStringList kMatrixFeatures =
    words("ColorTransformationValueSelector ColorTransformationValue ColorTransformationEnable "
          "CCMEnable");
const QStringList kHiddenNumbers = words("Custom_LUTGamma Custom_LUTContrast Custom_LUTLum");

} // namespace

class TestORXImgProcessingFeature : public DemoPageTest
{
    Q_OBJECT

protected:
    void prepare() override
    {
        DemoPageTest::prepare();
        m_asked.clear();
        m_strPath = m_folder->filePath("curve.txt"_s);
        // Answers every dialog with the name that a user would type.
        ORXInterface::setFileDialogHook([this](auto, const QString& title, const QString& filter) {
            m_asked = title + ": "_s + filter;
            return m_folder->filePath("curve"_s) +
                   (title.startsWith("Open"_s) ? ".txt"_s : QString());
        });
    }
    void finish() override
    {
        ORXInterface::setFileDialogHook(nullptr);
        DemoPageTest::finish();
    }

private:
    QLUTDrawWidget* editor() const { return imagePage()->lutEditor(); }
    void openLut()
    {
        QCOMPARE(write("LUTEnable", "1"), 0);
        open();
        QVERIFY(m_window->show(kImage, "LUTEnable"));
        OBFT_TRY_VERIFY(editor()->isVisible() && editor()->isEnabled());
    }
    const ZELCustomMessageBox* lutBox() const
    {
        const auto boxes = editor()->findChildren<ZELCustomMessageBox*>();
        return boxes.isEmpty() ? nullptr : boxes.constLast();
    }
    // Presses the page's command; what its message says once all is done, and of what kind it is.
    QString lutCommand(const char* name)
    {
        delete lutBox();
        if (!m_window->click(kImage, name))
            return "cannot be pressed"_s;
        const auto done = [&] { return lutBox() && !editor()->isTransferring(); };
        return QTest::qWaitFor(done, kTransferMs)
                   ? QString::number(lutBox()->cHintStyle()) + " "_s + lutBox()->cContent()
                   : "no message"_s;
    }
    QVector<int> drawn() const
    {
        QVector<int> values;
        for (const LUTPoint& point : editor()->GetSettinngPoints())
            values += point.value;
        return values;
    }
    // A table as the camera has it.
    QVector<int> memory(int selector)
    {
        QVector<int> values;
        write("LUTSelector", QByteArray::number(selector));
        for (int i = 0; i < QLUTDrawWidget::PointCount(); ++i) {
            write("LUTIndex", QByteArray::number(i));
            values += int(read("LUTValue"));
        }
        return values;
    }
    void drawSomething()
    {
        const QPoint onTheLine(30 + 60, 30 + 179);
        QTest::mousePress(editor(), Qt::LeftButton, {}, onTheLine);
        QTest::mouseRelease(editor(), Qt::LeftButton, {}, onTheLine - QPoint(0, 99));
    }
    QLineEdit* cell(int index) const
    {
        return imagePage()->findChild<QLineEdit*>("CCMValue%1"_s.arg(index));
    }

    QString m_strPath; // the file that the dialogs choose
    QString m_asked;   // title and filter of the last dialog

private slots:
    void groupsWithoutFeaturesDoNotShow_data()
    {
        const Rows<QString, QStringList, bool> row("group", "features", "hide");
        const auto both = [&](const char* group, const RowList& features) {
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
        both("Custom_CCMGroup", kMatrixFeatures);
    }

    // The description lacks the features, or their access modes say that they are not there.
    void groupsWithoutFeaturesDoNotShow()
    {
        const auto [group, features, hide] = fetchRow<QString, QStringList, bool>();
        m_camera = std::make_unique<MeddledCamera>(*m_demo, hide ? QStringList() : features);
        for (const QString& name : qAsConst(features))
            m_camera->hide(name.toLatin1(), hide);
        open();
        QStringList expected =
            words("Custom_ROIGroup Custom_AOIGroup Custom_EmbeddedInfoGroup Custom_EventGroup "
                  "Custom_LUTGroup Custom_CCMGroup Custom_PaletteGroup");
        expected.removeAll(group);
        OBFT_TRY_COMPARE(m_window->shownGroups(kImage), expected);
        QVERIFY(m_window->show(kImage, "Width"));
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
        QVERIFY(m_window->show(kImage, "LUTEnable"));
        const auto count = [&](const auto& isCounted) {
            return int(std::count_if(own.begin(), own.end(), [&](const QString& name) {
                return isCounted(m_window->item(kImage, name.toLatin1()));
            }));
        };
        const auto readOnlyItems = [&] {
            return count([](const auto* item) { return item->readOnly(); });
        };
        const auto shownItems = [&] {
            return count([&](auto* item) { return m_window->isRowShown(kImage, item); });
        };
        const QLUTDrawWidget* editor = imagePage()->lutEditor();
        OBFT_TRY_COMPARE(readOnlyItems(), 0);
        QVERIFY(m_window->click(kImage, "LUTEnable"));
        OBFT_TRY_COMPARE(readOnlyItems(), 9);
        OBFT_TRY_VERIFY(!editor->isEnabled());
        // Each table has its own switch.
        QVERIFY(m_window->click(kImage, "LUTEnable"));
        OBFT_TRY_COMPARE(readOnlyItems(), 0);
        QVERIFY(m_window->choose(kImage, "LUTSelector", "Red"_s));
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
        const auto [inCamera, file, first] = fetchRow<bool, QByteArray, QString>();
        if (!file.isEmpty())
            kFile.store(file);
        open(inCamera ? QStringList() : kMatrixFeatures);
        // The file's name takes the serial number, and that takes the camera's time.
        const auto isThere = [this] {
            return m_window->shownGroups(kImage).contains("Custom_CCMGroup"_s);
        };
        OBFT_TRY_COMPARE(isThere(), !first.isEmpty());
        QVERIFY(m_window->refresh());
        // Another look at the host's callbacks builds nothing anew.
        m_window->widget()->CreateFeature();
        QCOMPARE(isThere(), !first.isEmpty());
        QCOMPARE(m_window->item(kImage, "Custom_CCM") != nullptr, isThere());
        if (first.isEmpty())
            return;
        QVERIFY(m_window->show(kImage, "Custom_CCM"));
        OBFT_TRY_VERIFY(cell(0) && cell(0)->text() == first);
        // Every cell lies inside the editor.
        const auto* table = imagePage()->findChild<ORXCCMWidget*>();
        for (const QLineEdit* each : table->findChildren<QLineEdit*>())
            QVERIFY(table->rect().contains(QRect(each->mapTo(table, QPoint()), each->size())));
        // The switch reaches the camera, or the file.
        m_camera->forget();
        QVERIFY(m_window->click(kImage, "Custom_CCMEnable"));
        if (inCamera)
            OBFT_TRY_VERIFY(m_camera->writes().contains("CCMEnable=1"_s));
        else
            OBFT_TRY_COMPARE(m_window->shown(kImage, "Custom_CCMEnable"), "unchecked"_s);
        QCOMPARE(m_camera->writes().isEmpty(), !inCamera);
    }

    void matrixAndTreeFollowEachOther()
    {
        open();
        QVERIFY(m_window->show(kImage, "Custom_CCM"));
        OBFT_TRY_COMPARE(m_window->shown(kImage, "Custom_CCMEnable"), "unchecked"_s);
        write("CCMEnable", "1");
        QVERIFY(m_window->refresh());
        OBFT_TRY_COMPARE(m_window->shown(kImage, "Custom_CCMEnable"), "checked"_s);
        QVERIFY(m_window->click(kImage, "Custom_CCMEnable"));
        OBFT_TRY_COMPARE(m_window->shown(kTree, "CCMEnable"), "unchecked"_s);
        OBFT_TRY_COMPARE(m_window->shown(kTree, "ColorTransformationEnable"), "checked"_s);
    }

    void palettesMirrorTheCamera()
    {
        constexpr char kOwn[] = "Custom_PalettesMode";
        open();
        QCOMPARE(m_window->shown(kImage, kOwn), "White Hot"_s);
        QVERIFY(m_window->choose(kImage, kOwn, "Black Hot"_s));
        QCOMPARE(read("PalettesMode"), 1);
        OBFT_TRY_COMPARE(m_window->shown(kTree, "PalettesMode"), "Black Hot"_s);
        const QString third = m_window->editor<QComboBox>(kTree, "PalettesMode")->itemText(2);
        QVERIFY(m_window->choose(kTree, "PalettesMode", third));
        OBFT_TRY_COMPARE(m_window->shown(kImage, kOwn), third);
        QVERIFY(!m_window->editor<QComboBox>(kImage, kOwn)->itemIcon(2).isNull());
        MessageGuard::expectMessage("Read Feature Failed"_s);
        m_camera->fail("PalettesMode", CameraError::NotWritable);
        m_window->choose(kImage, kOwn, "White Hot"_s);
        OBFT_TRY_VERIFY(message().startsWith("Node 'PalettesMode'"_s));
        OBFT_TRY_COMPARE(m_window->shown(kImage, kOwn), third);
    }

    void languageSwitchedWhileShown()
    {
        write("LUTEnable", "1");
        open();
        QVERIFY(m_window->choose(kImage, "Custom_LUTLineType", "Curve"_s));
        for (const bool chinese : {true, false}) {
            m_window->widget()->SetLanguage(chinese ? 1 : 0);
            OBFT_TRY_COMPARE(m_window->shown(kImage, "Custom_LUTLineType"),
                             chinese ? "曲线"_s : "Curve"_s);
            QCOMPARE(m_window->titles(kImage).value(1), chinese ? "感兴趣区域（ROI）"_s : "ROI"_s);
            OBFT_TRY_COMPARE(imagePage()->regionPicture()->accessibleName(),
                             chinese ? "传感器区域示意图"_s : "Picture of the sensor area"_s);
            QCOMPARE(imagePage()->lutEditor()->accessibleName(),
                     chinese ? "查找表曲线"_s : "Curve of the look-up table"_s);
            QCOMPARE(imagePage()->lutEditor()->GetCurrentDrawLine(),
                     int(QLUTDrawWidget::SmoothCurve));
        }
    }

    // Curve ---------------------------------------------------------------------------------------
    void drawnLineReachesTheCamera()
    {
        const QVector<int> other = memory(3);
        write("LUTSelector", "1");
        openLut();
        QCOMPARE(lutCommand("Custom_LUTLoadFromCamera"), "5 Loading from camera completed."_s);
        const QVector<int> before = drawn();
        QVERIFY(m_window->choose(kImage, "Custom_LUTLineType", "Curve"_s));
        drawSomething();
        const QVector<int> curve = drawn();
        QVERIFY(curve != before);
        QCOMPARE(lutCommand("Custom_LUTSetToFile"), "5 Exporting to file completed."_s);
        QCOMPARE(m_asked, "Save as txt File: txt File (*.txt)"_s);
        QCOMPARE(bytesOf(m_strPath).count("\r\n"), 2 * curve.size());
        QVERIFY(m_window->click(kImage, "Custom_LUTClear"));
        OBFT_TRY_VERIFY(drawn() != curve);
        QCOMPARE(lutCommand("Custom_LUTLoadFromFile"), "5 Importing from file completed."_s);
        QCOMPARE(m_asked, "Open txt File: txt Files (*.txt)"_s);
        QCOMPARE(drawn(), curve);
        QCOMPARE(lutCommand("Custom_LUTSetToCamera"), "5 Applied to camera successfully."_s);
        QCOMPARE(memory(1), curve);
        QCOMPARE(memory(3), other);
    }

    // The limits of the camera's table; tst_luttextfile has all the other faults of files.
    void badImportLeavesTheCurve_data()
    {
        const Rows<QByteArray> row("content");
        row("value above the camera's", "0\r\n4096\r\n");
        row("index above the number of points", "1025\r\n1\r\n");
        row("too many points", QByteArray("0\r\n1\r\n").repeated(1024 + 2));
    }

    void badImportLeavesTheCurve()
    {
        QFETCH(QByteArray, content);
        openLut();
        drawSomething();
        const QVector<int> before = drawn();
        QVERIFY(storeFile(m_strPath, content));
        QCOMPARE(lutCommand("Custom_LUTLoadFromFile"),
                 "3 Failed to import file. Incorrect file format."_s);
        QCOMPARE(drawn(), before);
        QCOMPARE(bytesOf(m_strPath), content);
    }

    void failedExportKeepsTheFile()
    {
        MessageGuard::ignoreMessage(QtCriticalMsg, "Save success,but file is error.");
        openLut();
        drawSomething();
        const QVector<int> curve = drawn();
        QVERIFY(storeFile(m_strPath, "mine"));
        {
            const FileSizeLimit full(4096);
            QCOMPARE(lutCommand("Custom_LUTSetToFile"),
                     "3 File opreation failed, possable storage disk is full."_s);
        }
        QCOMPARE(bytesOf(m_strPath), QByteArray("mine"));
        QCOMPARE(drawn(), curve);
    }

    void dialogWithoutAFileDoesNothing()
    {
        openLut();
        drawSomething();
        const QVector<int> curve = drawn();
        ORXInterface::setFileDialogHook([&](auto, const QString& title, const QString&) {
            m_asked = title;
            return QString();
        });
        for (const char* command : {"Custom_LUTSetToFile", "Custom_LUTLoadFromFile"}) {
            m_asked.clear();
            QVERIFY(m_window->click(kImage, command));
            OBFT_TRY_VERIFY(!m_asked.isEmpty());
            QApplication::processEvents();
            QVERIFY(!lutBox());
            QCOMPARE(drawn(), curve);
        }
    }

    void tableIsLockedDuringATransfer()
    {
        openLut();
        m_camera->closeGate("LUTIndex");
        QVERIFY(m_window->click(kImage, "Custom_LUTSetToCamera"));
        OBFT_TRY_VERIFY(editor()->isTransferring());
        for (const char* name : {"LUTSelector", "LUTIndex", "LUTValue"})
            OBFT_TRY_VERIFY(!m_window->item(kTree, name)->value()->enabled());
        QVERIFY(m_window->refresh());
        QVERIFY(!m_window->isEnabled(kImage, "LUTSelector"));
        // The curve, too, is left alone.
        const QVector<int> before = drawn();
        drawSomething();
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Up}) // selects, and moves
            QTest::keyClick(editor(), key);
        editor()->LoadFromFile();
        QVERIFY(m_asked.isEmpty());
        QCOMPARE(drawn(), before);
        m_camera->openGate();
        QTRY_VERIFY_WITH_TIMEOUT(!editor()->isTransferring(), kTransferMs);
        OBFT_TRY_VERIFY(m_window->isEnabled(kImage, "LUTSelector"));
        OBFT_TRY_VERIFY(m_window->isEnabled(kTree, "LUTValue"));
    }

    // Matrix --------------------------------------------------------------------------------------
    void badMatrixFileIsReportedAndLeftAlone()
    {
        const QByteArray content = "[Common]\nCCMEnable=true\nCCMValue3=abc\n";
        MessageGuard::expectMessage("Color correction settings"_s);
        kFile.store("[Common]\nCCMEnable=true\nCCMValue0=2048\n");
        open(kMatrixFeatures);
        QVERIFY(m_window->show(kImage, "Custom_CCM"));
        OBFT_TRY_VERIFY(cell(0) && cell(0)->text() == "2.0000"_s);
        kFile.store(content);
        // Switching it would write the file.
        QVERIFY(m_window->click(kImage, "Custom_CCMEnable"));
        OBFT_TRY_VERIFY(messageBox());
        QCOMPARE(messageBox()->cTextTitle(), "The color correction settings cannot be used."_s);
        QVERIFY(message().contains(ORXRWCCMValue::fileOf(kFile.name)));
        OBFT_TRY_VERIFY(!cell(0)->isEnabled());
        OBFT_TRY_COMPARE(m_window->shown(kImage, "Custom_CCMEnable"), "unchecked"_s);
        QCOMPARE(kFile.stored(), content);
    }
};

OBFT_TEST_MAIN(TestORXImgProcessingFeature)
#include "tst_orximgprocessingfeature.moc"
