// SPDX-License-Identifier: Apache-2.0
// What the commands of the look-up table and the switch of the matrix do on the image processing
// page: to files, and to a simulated camera that may be unplugged or go meanwhile.
#include "basetools/ORXInterface.h"
#include "lut/QLUTDrawWidget.h"
#include "pages/DemoPageTest.h"
#include "pages/ORXImgProcessingFeature.h"
#include "pages/SettingsFile.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "support/FileSizeLimit.h"

#include <QLineEdit>
#include <QScopeGuard>
#include <QTemporaryDir>

namespace {

constexpr int kPage = ORXMainFeatureWidget::ImageProcessingTab;
constexpr int kTransferMs = 60000;   // 1,024 points on a slow machine
constexpr int kUnpluggedAfter = 500; // points
const SettingsFile kFile{"DEMO000001"_s};

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

} // namespace

class TestORXImgProcessingTransfers : public DemoPageTest
{
    Q_OBJECT

protected:
    void prepare() override
    {
        SettingsFile::removeAll();
        DemoPageTest::prepare();
        m_directory = std::make_unique<QTemporaryDir>();
        m_asked.clear();
        m_strPath = m_directory->filePath("curve.txt"_s);
        // Answers every dialog with the name that a user would type.
        ORXInterface::setFileDialogHook([this](auto, const QString& title, const QString& filter) {
            m_asked = title + ": "_s + filter;
            return m_directory->filePath("curve"_s) +
                   (title.startsWith("Open"_s) ? ".txt"_s : QString());
        });
    }
    void finish() override
    {
        ORXInterface::setFileDialogHook(nullptr);
        DemoPageTest::finish();
        SettingsFile::removeAll();
    }

private:
    QLUTDrawWidget* editor() const { return imagePage()->lutEditor(); }
    void openLut()
    {
        QCOMPARE(write("LUTEnable", "1"), 0);
        open();
        QVERIFY(m_window->show(kPage, "LUTEnable"));
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
        if (!m_window->click(kPage, name))
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
    bool store(const QByteArray& content) const
    {
        QFile file(m_strPath);
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
    }
    QLineEdit* cell(int index) const
    {
        return imagePage()->findChild<QLineEdit*>("CCMValue%1"_s.arg(index));
    }

    std::unique_ptr<QTemporaryDir> m_directory;
    QString m_strPath; // the file that the dialogs choose
    QString m_asked;   // title and filter of the last dialog

private slots:
    // Curve ---------------------------------------------------------------------------------------
    void drawnLineReachesTheCamera()
    {
        const QVector<int> other = memory(3);
        write("LUTSelector", "1");
        openLut();
        QCOMPARE(lutCommand("Custom_LUTLoadFromCamera"), "5 Loading from camera completed."_s);
        const QVector<int> before = drawn();
        QVERIFY(m_window->choose(kPage, "Custom_LUTLineType", "Curve"_s));
        drawSomething();
        const QVector<int> curve = drawn();
        QVERIFY(curve != before);
        QCOMPARE(lutCommand("Custom_LUTSetToFile"), "5 Exporting to file completed."_s);
        QCOMPARE(m_asked, "Save as txt File: txt File (*.txt)"_s);
        QCOMPARE(bytesOf(m_strPath).count("\r\n"), 2 * curve.size());
        QVERIFY(m_window->click(kPage, "Custom_LUTClear"));
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
        QVERIFY(store(content));
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
        QVERIFY(store("mine"));
        {
            const FileSizeLimit full(4096);
            QCOMPARE(lutCommand("Custom_LUTSetToFile"),
                     "3 File opreation failed, possable storage disk is full."_s);
        }
        QCOMPARE(bytesOf(m_strPath), QByteArray("mine"));
        QCOMPARE(drawn(), curve);
    }

    void dialogWithoutAFileDoesNothing_data()
    {
        const Rows<QByteArray> row("command");
        row("export cancelled", "Custom_LUTSetToFile");
        row("import cancelled", "Custom_LUTLoadFromFile");
    }

    void dialogWithoutAFileDoesNothing()
    {
        QFETCH(QByteArray, command);
        openLut();
        drawSomething();
        const QVector<int> curve = drawn();
        ORXInterface::setFileDialogHook([&](auto, const QString& title, const QString&) {
            m_asked = title;
            return QString();
        });
        QVERIFY(m_window->click(kPage, command));
        OBFT_TRY_VERIFY(!m_asked.isEmpty());
        QApplication::processEvents();
        QVERIFY(!lutBox());
        QCOMPARE(drawn(), curve);
    }

    void tableIsLockedDuringATransfer()
    {
        openLut();
        m_camera->closeGate("LUTIndex");
        QVERIFY(m_window->click(kPage, "Custom_LUTSetToCamera"));
        OBFT_TRY_VERIFY(editor()->isTransferring());
        for (const char* name : {"LUTSelector", "LUTIndex", "LUTValue"})
            OBFT_TRY_VERIFY(!m_window->item(kTree, name)->value()->enabled());
        QVERIFY(m_window->refresh());
        QVERIFY(!m_window->isEnabled(kPage, "LUTSelector"));
        m_camera->openGate();
        QTRY_VERIFY_WITH_TIMEOUT(!editor()->isTransferring(), kTransferMs);
        OBFT_TRY_VERIFY(m_window->isEnabled(kPage, "LUTSelector"));
        OBFT_TRY_VERIFY(m_window->isEnabled(kTree, "LUTValue"));
    }

    // Matrix --------------------------------------------------------------------------------------
    void badMatrixFileIsReportedAndLeftAlone()
    {
        const QByteArray content = "[Common]\nCCMEnable=true\nCCMValue3=abc\n";
        MessageGuard::expectMessage("Color correction settings"_s);
        kFile.store("[Common]\nCCMEnable=true\nCCMValue0=2048\n");
        open(words("ColorTransformationValueSelector ColorTransformationValue "
                   "ColorTransformationEnable CCMEnable"));
        QVERIFY(m_window->show(kPage, "Custom_CCM"));
        OBFT_TRY_VERIFY(cell(0) && cell(0)->text() == "2.0000"_s);
        kFile.store(content);
        // Switching it would write the file.
        QVERIFY(m_window->click(kPage, "Custom_CCMEnable"));
        OBFT_TRY_VERIFY(messageBox());
        QCOMPARE(messageBox()->cTextTitle(), "The color correction settings cannot be used."_s);
        QVERIFY(message().contains(ORXRWCCMValue::fileOf(kFile.name)));
        OBFT_TRY_VERIFY(!cell(0)->isEnabled());
        OBFT_TRY_COMPARE(m_window->shown(kPage, "Custom_CCMEnable"), "unchecked"_s);
        QCOMPARE(kFile.stored(), content);
    }

    // Camera --------------------------------------------------------------------------------------
    void cameraUnpluggedOnTheWay_data()
    {
        const Rows<QByteArray, QByteArray, int, QString> row("command", "feature", "after",
                                                             "message");
        row("table read", "Custom_LUTLoadFromCamera", "LUTIndex", kUnpluggedAfter,
            "3 Loading from camera failed after 500 of 1024 points. The curve is unchanged.");
        row("table written", "Custom_LUTSetToCamera", "LUTValue", kUnpluggedAfter,
            "3 Only 500 of 1024 points were applied to the camera.");
    }

    void cameraUnpluggedOnTheWay()
    {
        QFETCH(QByteArray, command);
        QFETCH(QByteArray, feature);
        QFETCH(int, after);
        for (const char* line : {"LUT: ", "Feature Failed"})
            MessageGuard::expectMessage(QString::fromLatin1(line));
        openLut();
        drawSomething();
        const QVector<int> curve = drawn();
        std::atomic<int> writes{0};
        m_camera->beforeWrite = [&](const QString& name) {
            if (name == QLatin1String(feature) && ++writes > after)
                m_camera->unplug();
        };
        QTEST(lutCommand(command), "message");
        QCOMPARE(drawn(), curve);
    }

    void transferEndsWithTheCamera_data()
    {
        const Rows<QByteArray, QByteArray, bool> row("command", "held", "released");
        for (const bool released : {false, true}) {
            const QByteArray how = released ? "released" : "camera removed";
            row(("table read, " + how).constData(), "Custom_LUTLoadFromCamera", "LUTIndex",
                released);
            row(("table written, " + how).constData(), "Custom_LUTSetToCamera", "LUTValue",
                released);
            row(("matrix read, " + how).constData(), "Custom_CCM",
                "ColorTransformationValueSelector", released);
        }
    }

    void transferEndsWithTheCamera()
    {
        QFETCH(QByteArray, command);
        QFETCH(QByteArray, held);
        QFETCH(bool, released);
        MessageGuard::expectMessage("LUT: "_s);
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
        if (released)
            OB_FT_Release();
        else
            m_window->widget()->removeFeatureTree(1);
        const int writes = m_camera->writes().size();
        QVERIFY2(writes < 2000, "the transfer went on");
        QApplication::processEvents();
        // No host call afterwards.
        QCOMPARE(m_camera->writes().size(), writes);
    }
};

OBFT_TEST_MAIN(TestORXImgProcessingTransfers)
#include "tst_orximgprocessingtransfers.moc"
