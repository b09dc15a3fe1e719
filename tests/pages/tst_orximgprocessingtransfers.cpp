// SPDX-License-Identifier: Apache-2.0
// Tables and matrix of the image processing page on their way: drawn and written to the simulated
// camera, to files that are bad, to disks that are full, to a camera that is unplugged meanwhile.
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

#include <optional>

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
    QLineEdit* cell(int index) const
    {
        return imagePage()->findChild<QLineEdit*>("CCMValue%1"_s.arg(index));
    }
    QStringList cells() const
    {
        QStringList texts;
        for (int i = 0; i < ORXRWCCMValue::kCoefficients; ++i)
            texts += cell(i) ? cell(i)->text() : QString();
        return texts;
    }

    std::unique_ptr<QTemporaryDir> m_directory;
    QString m_strPath; // the file that the dialogs choose
    QString m_asked;   // title and filter of the last dialog

private slots:
    // Curve ---------------------------------------------------------------------------------------
    void drawnLineReachesTheCamera_data()
    {
        const Rows<QString, int> row("line", "selector");
        row("fold line", "Fold Line", 0);
        row("curve", "Curve", 1);
        row("free line", "Free Line", 2);
    }

    void drawnLineReachesTheCamera()
    {
        QFETCH(QString, line);
        QFETCH(int, selector);
        const QVector<int> other = memory(3);
        write("LUTSelector", QByteArray::number(selector));
        openLut();
        QCOMPARE(lutCommand("Custom_LUTLoadFromCamera"), "5 Loading from camera completed."_s);
        const QVector<int> before = drawn();
        QVERIFY(selector == 0 || m_window->choose(kPage, "Custom_LUTLineType", line));
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
        QCOMPARE(memory(selector), curve);
        QCOMPARE(memory(3), other);
    }

    void badImportLeavesTheCurve_data()
    {
        const Rows<QByteArray> row("content");
        row("empty", "");
        row("odd number of lines", "0\r\n1\r\n1\r\n");
        row("no number", "0\r\nfive\r\n");
        row("negative value", "0\r\n-1\r\n");
        row("value above the camera's", "0\r\n4096\r\n");
        row("index above the number of points", "1025\r\n1\r\n");
        row("too many points", QByteArray("0\r\n1\r\n").repeated(1024 + 2));
        row("another format", QByteArray("\x89PNG\r\n\x1a\n\0\0", 10));
    }

    void badImportLeavesTheCurve()
    {
        QFETCH(QByteArray, content);
        openLut();
        drawSomething();
        const QVector<int> before = drawn();
        QFile file(m_strPath);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        file.close();
        QCOMPARE(lutCommand("Custom_LUTLoadFromFile"),
                 "3 Failed to import file. Incorrect file format."_s);
        QCOMPARE(drawn(), before);
        QCOMPARE(bytesOf(m_strPath), content);
    }

    void failedExportKeepsTheFile_data()
    {
        const Rows<bool, QByteArray> row("full", "before");
        row("full disk", true, "");
        row("full disk, over another file", true, "mine");
        row("no such folder", false, "");
    }

    void failedExportKeepsTheFile()
    {
        QFETCH(bool, full);
        QFETCH(QByteArray, before);
        MessageGuard::ignoreMessage(QtCriticalMsg, "Save success,but file is error.");
        openLut();
        drawSomething();
        const QVector<int> curve = drawn();
        QFile file(m_strPath);
        if (!before.isEmpty()) {
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(before) == before.size());
            file.close();
        }
        if (!full)
            QVERIFY(m_directory->remove());
        {
            std::optional<FileSizeLimit> limit;
            if (full)
                limit.emplace(4096);
            QCOMPARE(lutCommand("Custom_LUTSetToFile"),
                     "3 File opreation failed, possable storage disk is full."_s);
        }
        QCOMPARE(file.exists(), !before.isEmpty());
        if (file.exists())
            QCOMPARE(bytesOf(m_strPath), before);
        // Nothing half written stays beside it, either.
        QCOMPARE(QDir(m_directory->path()).entryList(QDir::Files).size(), before.isEmpty() ? 0 : 1);
        QCOMPARE(drawn(), curve);
    }

    void dialogWithoutAFileDoesNothing_data()
    {
        const Rows<QByteArray, QString> row("command", "answer");
        row("export cancelled", "Custom_LUTSetToFile", "");
        row("import cancelled", "Custom_LUTLoadFromFile", "");
        row("import of a missing file", "Custom_LUTLoadFromFile", "/nowhere/curve.txt");
    }

    void dialogWithoutAFileDoesNothing()
    {
        QFETCH(QByteArray, command);
        QFETCH(QString, answer);
        openLut();
        drawSomething();
        const QVector<int> curve = drawn();
        ORXInterface::setFileDialogHook([&](auto, const QString& title, const QString&) {
            m_asked = title;
            return answer;
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
    void badMatrixFileIsReportedAndLeftAlone_data()
    {
        const Rows<QByteArray> row("content");
        row("no settings at all", "Dear reader\nhow are you\n");
        row("no truth value", "[Common]\nCCMEnable=maybe\nCCMValue0=2048\n");
        row("no number", "[Common]\nCCMEnable=true\nCCMValue3=abc\n");
        row("binary", QByteArray("[Common]\nCCMEnable=true\n\0\0\1", 28));
        row("too large", "[Common]\nCCMEnable=true\n" + QByteArray(70000, ';'));
    }

    void badMatrixFileIsReportedAndLeftAlone()
    {
        QFETCH(QByteArray, content);
        MessageGuard::expectMessage("Color correction settings"_s);
        kFile.store("[Common]\nCCMEnable=true\nCCMValue0=2048\n");
        open(words("ColorTransformationValueSelector ColorTransformationValue "
                   "ColorTransformationEnable CCMEnable"));
        QVERIFY(m_window->show(kPage, "Custom_CCM"));
        OBFT_TRY_COMPARE(cells().first(), "2.0000"_s);
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

    void cameraUnpluggedWhileTheMatrixIsRead()
    {
        for (const char* line : {"Feature Failed", "Reading the color correction matrix"})
            MessageGuard::expectMessage(QString::fromLatin1(line));
        write("CCMEnable", "1");
        open();
        QVERIFY(m_window->show(kPage, "Custom_CCM"));
        OBFT_TRY_VERIFY(cell(0) && cell(0)->isEnabled());
        const QStringList before = cells();
        std::atomic<int> selected{0};
        // Only the matrix' own reader selects other coefficients.
        m_camera->beforeWrite = [&](const QString& name) {
            if (name == QLatin1String("ColorTransformationValueSelector") && ++selected == 5)
                m_camera->unplug();
        };
        // What the camera changes has the matrix read again.
        write("ColorTransformationValue", "0.5");
        OB_FT_UpdateFeatures();
        OBFT_TRY_VERIFY(MessageGuard::contains("Reading the color correction matrix"_s));
        OBFT_TRY_VERIFY(!cell(0) || !cell(0)->isEnabled());
        // A pass under way may have hidden what the camera does not answer for any more.
        if (cell(0))
            QCOMPARE(cells(), before);
    }

    void cameraUnpluggedWhileTheMatrixIsWritten_data()
    {
        const Rows<QByteArray, QString> row("feature", "message");
        row("before the coefficient", "ColorTransformationValue",
            "Node 'ColorTransformationValue':failed to save value '2'");
        row("before the selector", "ColorTransformationValueSelector",
            "Node 'ColorTransformationValueSelector':failed to save value '4'");
    }

    void cameraUnpluggedWhileTheMatrixIsWritten()
    {
        QFETCH(QByteArray, feature);
        QFETCH(QString, message);
        MessageGuard::expectMessage("Feature Failed"_s);
        MessageGuard::expectMessage("Reading the color correction matrix"_s);
        write("CCMEnable", "1");
        open();
        QVERIFY(m_window->show(kPage, "Custom_CCM"));
        OBFT_TRY_VERIFY(cell(4) && cell(4)->isEnabled());
        const QStringList before = cells();
        m_camera->beforeWrite = [&](const QString& name) {
            if (name == QLatin1String(feature))
                m_camera->unplug();
        };
        cell(4)->setFocus();
        cell(4)->selectAll();
        QTest::keyClicks(cell(4), "2"_s);
        QTest::keyClick(cell(4), Qt::Key_Return);
        QVERIFY(this->message().startsWith(message));
        QCOMPARE(cells(), before);
    }

    void transferEndsWithTheCamera_data()
    {
        const Rows<QByteArray, QByteArray, int> row("command", "held", "end");
        const char* const ends[] = {"window closed", "camera removed", "released"};
        for (int end = 0; end < 3; ++end) {
            const QByteArray how = ends[end];
            row(("table read, " + how).constData(), "Custom_LUTLoadFromCamera", "LUTIndex", end);
            row(("table written, " + how).constData(), "Custom_LUTSetToCamera", "LUTValue", end);
            row(("matrix read, " + how).constData(), "Custom_CCM",
                "ColorTransformationValueSelector", end);
        }
    }

    void transferEndsWithTheCamera()
    {
        QFETCH(QByteArray, command);
        QFETCH(QByteArray, held);
        QFETCH(int, end);
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
        const std::function<void()> ends[] = {
            [] { OB_FT_Close(); },
            [&] { m_window->widget()->removeFeatureTree(1); },
            [] { OB_FT_Release(); },
        };
        ends[end]();
        const int writes = m_camera->writes().size();
        QVERIFY2(writes < 2000, "the transfer went on");
        QApplication::processEvents();
        // No host call afterwards.
        QCOMPARE(m_camera->writes().size(), writes);
    }
};

OBFT_TEST_MAIN(TestORXImgProcessingTransfers)
#include "tst_orximgprocessingtransfers.moc"
