// SPDX-License-Identifier: Apache-2.0
// The list of changes and feature files, as the user meets them in the window.
#include "basetools/ORXInterface.h"
#include "cameras/CameraError.h"
#include "changes/ChangesPanel.h"
#include "changes/FeatureFileDialog.h"
#include "changes/FeatureFileTable.h"
#include "pages/DemoPageTest.h"
#include "support/Files.h"

#include <QAbstractItemModelTester>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>

class TestChangesPanel : public DemoPageTest
{
    Q_OBJECT

private:
    enum End { Dialog, Window, Release };

    void finish() override
    {
        ORXInterface::setFileDialogHook({});
        m_tester.reset();
        DemoPageTest::finish();
    }
    void openWatched(int language = 0)
    {
        open({}, language);
        m_tester = std::make_unique<QAbstractItemModelTester>(
            panel()->journal(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    }
    ChangesPanel* panel() const { return m_window->tree()->findChild<ChangesPanel*>(); }
    QTableView* list() const { return panel()->findChild<QTableView*>("ChangesView"_s); }
    QPushButton* button(const char* name) const
    {
        return m_window->tree()->findChild<QPushButton*>(QLatin1String(name));
    }
    FeatureFileDialog* dialog() const
    {
        return m_window->widget()->findChild<FeatureFileDialog*>();
    }
    // Of a feature file.
    QString path() const { return m_folder->filePath("a.features"_s); }
    void showPanel() const
    {
        auto* tabs = m_window->tree()->findChild<QTabWidget*>("FeatureInfoTabs"_s);
        tabs->setCurrentIndex(1);
        QVERIFY(list()->isVisible());
        QTRY_VERIFY(!button("ChangesCompare")->visibleRegion().isEmpty());
    }
    // The lines of a feature, the latest first: "before > now, cause".
    QStringList lines(const QString& feature) const
    {
        QStringList result;
        const ChangeJournal* journal = panel()->journal();
        for (int row = 0; row < journal->rowCount(); ++row) {
            const auto text = [&](int column) {
                return journal->index(row, column).data().toString();
            };
            if (journal->change(row).name == feature)
                result.append("%1 > %2, %3"_s.arg(text(ChangeJournal::Before),
                                                  text(ChangeJournal::Now),
                                                  text(ChangeJournal::Cause)));
        }
        return result;
    }
    int rowOf(const QString& feature) const
    {
        const ChangeJournal* journal = panel()->journal();
        int row = 0;
        while (row < journal->rowCount() && journal->change(row).name != feature)
            ++row;
        return row;
    }

    std::unique_ptr<QAbstractItemModelTester> m_tester;

private slots:
    void tellsWhatChangedAndWhy()
    {
        openWatched();
        QCOMPARE(lines("Width"_s), QStringList()); // the first read changes nothing
        QVERIFY(m_window->enter(kTree, "Width", "640"_s));
        OBFT_TRY_COMPARE(lines("Width"_s), QStringList{"1920 > 640, edited"_s});
        OBFT_TRY_VERIFY(!lines("PayloadSize"_s).isEmpty());
        QVERIFY(lines("PayloadSize"_s).first().endsWith("after Width"_s));
        // Behind the window's back.
        write("Height", "480");
        QVERIFY(m_window->refresh());
        OBFT_TRY_COMPARE(lines("Height"_s), QStringList{"1200 > 480, camera"_s});
        QVERIFY(m_window->choose(kTree, "TriggerMode", "On"_s));
        OBFT_TRY_COMPARE(lines("TriggerMode"_s), QStringList{"Off > On, edited"_s});
        QVERIFY(m_window->click(kTree, "TriggerSoftware"));
        OBFT_TRY_COMPARE(lines("TriggerSoftware"_s), QStringList{" > , executed"_s});
        m_window->widget()->SetLanguage(1);
        OBFT_TRY_COMPARE(lines("Height"_s), QStringList{"1200 > 480, 相机"_s});
    }

    // The description says of each of them that it depends on the pixel format: reading everything
    // again finds nothing more.
    void oneWriteChangesManyFeatures()
    {
        openWatched();
        QVERIFY(m_window->choose(kTree, "PixelFormat", "Mono 12"_s));
        for (const char* name :
             {"PixelSize", "PixelColorFilter", "PixelDynamicRangeMax", "LinePitch", "PayloadSize",
              "ResultingFrameRate", "SensorReadoutTime", "DeviceLinkCurrentThroughput"}) {
            OBFT_TRY_VERIFY(!lines(QLatin1String(name)).isEmpty());
            QVERIFY2(lines(QLatin1String(name)).first().endsWith("after Pixel Format"_s), name);
        }
        QCOMPARE(read("LinePitch"), 2 * 1920);
        const int before = panel()->journal()->rowCount();
        QVERIFY(m_window->refresh());
        QCOMPARE(panel()->journal()->rowCount(), before);
        // What is polled changes without being asked to; nothing else has done so.
        for (int row = 0; row < before; ++row)
            QVERIFY2(panel()->journal()->change(row).cause != ValueChange::Cause::Camera,
                     qPrintable(panel()->journal()->change(row).name));
    }

    // However often it moves, and only as long as its line is kept.
    void aPolledFeatureKeepsOneLine()
    {
        openWatched();
        for (int i = 0; i < 3; ++i) {
            const int before = int(lines("Timestamp"_s).size());
            m_clock->advance(std::chrono::minutes(1));
            OBFT_TRY_VERIFY(before == 0 ? lines("Timestamp"_s).size() == 1
                                        : lines("Timestamp"_s).first().contains("times"_s));
        }
        QCOMPARE(lines("Timestamp"_s).size(), 1);
        QVector<ValueChange> flood;
        for (int i = 0; i < ChangeJournal::kMaxLines; ++i) {
            ValueChange change;
            change.name = "Width"_s;
            change.before = i;
            change.now = i + 1;
            flood.append(change);
        }
        panel()->journal()->append(flood);
        QCOMPARE(panel()->journal()->rowCount(), int(ChangeJournal::kMaxLines));
        QCOMPARE(lines("Timestamp"_s).size(), 0);
        m_clock->advance(std::chrono::minutes(1));
        OBFT_TRY_COMPARE(lines("Timestamp"_s).size(), 1);
    }

    void revertsAndGoesThere()
    {
        openWatched();
        QVERIFY(m_window->enter(kTree, "Width", "640"_s));
        OBFT_TRY_COMPARE(lines("Width"_s).size(), 1);
        showPanel();
        list()->setCurrentIndex(panel()->journal()->index(rowOf("Width"_s), 0));
        QVERIFY(button("ChangesRevert")->isVisible());
        // No line stands below the buttons.
        const QWidget* buttons = button("ChangesRevert")->parentWidget();
        const QRect place(buttons->mapTo(m_window->widget(), QPoint()), buttons->size());
        const QImage picture = m_window->widget()->grab(place).toImage();
        QCOMPARE(picture.pixel(1, picture.height() - 1), picture.pixel(1, 1));
        list()->setFocus();
        QTest::keyClick(list(), Qt::Key_Tab);
        OBFT_TRY_VERIFY(button("ChangesRevert")->hasFocus());
        QTest::mouseClick(button("ChangesRevert"), Qt::LeftButton);
        OBFT_TRY_COMPARE(read("Width"), 1920);
        OBFT_TRY_COMPARE(m_window->shown(kTree, "Width"), "1920"_s);
        OBFT_TRY_COMPARE(lines("Width"_s).size(), 2);

        QVERIFY(m_window->show(kTree, "ExposureTime"));
        list()->setCurrentIndex(panel()->journal()->index(rowOf("Width"_s), 0));
        QTest::keyClick(list(), Qt::Key_Return);
        QCOMPARE(m_window->tree()->treeView()->currentIndex(), m_window->row(kTree, "Width"));
        QVERIFY(m_window->isRowShown(kTree, "Width"));
    }

    void savesComparesAndApplies()
    {
        ORXInterface::setFileDialogHook([this](ORXInterface::FileDialogKind, const QString&,
                                               const QString&) { return path(); });
        openWatched();
        QVERIFY(m_window->show(kTree, "TriggerDelay"));
        showPanel();
        const qint64 selector = read("TriggerSelector");
        QTest::mouseClick(button("ChangesSave"), Qt::LeftButton);
        QVERIFY(dialog()->isVisible());
        // What a selector is moved for cannot be edited meanwhile.
        QVERIFY(!m_window->item(kTree, "TriggerSelector")->value()->enabled());
        OBFT_TRY_VERIFY(dialog()->summary().contains("were saved"_s));
        // The list's style sheet, above the dialog's parents, takes no colours away.
        const auto textColor = [](const QWidget* widget) {
            return widget->palette().color(QPalette::WindowText);
        };
        QCOMPARE(textColor(dialog()->findChild<QLabel*>("FeatureFileSummary"_s)),
                 textColor(m_window->widget()));
        QVERIFY(m_window->item(kTree, "TriggerSelector")->value()->enabled());
        QCOMPARE(read("TriggerSelector"), selector);

        write("Width", "640");
        QTest::mouseClick(button("ChangesCompare"), Qt::LeftButton);
        OBFT_TRY_VERIFY(dialog()->summary().contains("values differ"_s));
        QVERIFY(dialog()->table()->chosenCount() >= 1);
        QCOMPARE(read("TriggerSelector"), selector);
    }

    void faultyFilesAreTold_data()
    {
        const Rows<QByteArray, QString, int> row("bytes", "summary", "rows");
        row("two bad lines", "Width\t640\nHeight 480\n\t7\n", "is not understood", 2);
        row("two values of one feature", "Width\t640\nHeight\t480\nWidth\t672\n",
            "is not understood", 1);
        row("nothing in it", "# only a comment\n", "no feature", 0);
        row("no file", "", "cannot be read", 0);
    }

    void faultyFilesAreTold()
    {
        const auto [bytes, summary] = fetchRow<QByteArray, QString>();
        if (bytes.isEmpty())
            MessageGuard::expectMessage("cannot be read"_s);
        else
            QVERIFY(storeFile(path(), bytes));
        openWatched();
        m_camera->forget();
        panel()->compareWith(path());
        QVERIFY2(dialog()->summary().contains(summary), qPrintable(dialog()->summary()));
        QTEST(dialog()->table()->rowCount(), "rows");
        QVERIFY(!dialog()->isWorking());
        QVERIFY(m_camera->writes().isEmpty());
        // Nor can a file be written in a folder that is none.
        MessageGuard::expectMessage("cannot be written"_s);
        panel()->saveTo("/proc/no/such.features"_s);
        OBFT_TRY_VERIFY(dialog()->summary().contains("cannot be written"_s));
    }

    // What this camera has is compared, what is chosen is applied, and the rest is named.
    void fileOfAnotherModelIsTold()
    {
        QVERIFY(storeFile(
            path(),
            "# Model: Another 5\nDeviceUserID\tx\nWidth\t640\nHeight\t480\nNoSuchFeature\t1\n"
            "GainAuto\tNoSuchEntry\nTriggerSelector\tNoSuchEntry\nTriggerDelay\t5\n"));
        openWatched();
        const qint64 delay = read("TriggerDelay");
        panel()->compareWith(path());
        OBFT_TRY_COMPARE(dialog()->summary(),
                         "The file is of another model, Another 5. 7 of 7 values differ."_s);
        auto* table = const_cast<FeatureFileTable*>(dialog()->table());
        const QAbstractItemModelTester tester(table);
        QStringList results;
        for (int row = 0; row < table->rowCount(); ++row) {
            const QModelIndex feature = table->index(row, FeatureFileTable::Feature);
            const bool canBeChosen = feature.data(Qt::CheckStateRole).isValid();
            results += feature.siblingAtColumn(FeatureFileTable::Result).data().toString() +
                       (canBeChosen ? "*"_s : QString());
        }
        QCOMPARE(results,
                 QStringList({"Different*"_s, "Different*"_s, "Different*"_s,
                              "Not on this camera"_s, "No value of this feature"_s,
                              "No value of this feature"_s, "The selector cannot be set*"_s}));
        const auto choose = [&](int row, Qt::CheckState state) {
            table->setData(table->index(row, FeatureFileTable::Feature), state, Qt::CheckStateRole);
        };
        choose(2, Qt::Unchecked);
        choose(6, Qt::Checked);
        // What the camera refuses is told, and the others are written all the same.
        m_camera->fail("DeviceUserID", CameraError::Transfer, MeddledCamera::Writes);
        MessageGuard::expectMessage("NodeName : DeviceUserID"_s);
        QTest::mouseClick(dialog()->findChild<QPushButton*>("FeatureFileApply"_s), Qt::LeftButton);
        OBFT_TRY_COMPARE(dialog()->summary(), "1 of 3 values were written and read back."_s);
        const QString refused = table->index(0, FeatureFileTable::Result).data().toString();
        QVERIFY2(refused.startsWith("Refused"_s), qPrintable(refused));
        OBFT_TRY_COMPARE(m_window->shown(kTree, "Width"), "640"_s);
        QCOMPARE(m_window->shown(kTree, "Height"), "1200"_s);
        QCOMPARE(read("TriggerDelay"), delay);
    }

    // The camera is as it was, the rows can be edited, and nobody waits.
    void endsWithTheDialogOrTheWindow_data()
    {
        const Rows<int> row("end");
        row("dialog closed", Dialog);
        row("window closed", Window);
        row("window released", Release);
    }

    void endsWithTheDialogOrTheWindow()
    {
        QFETCH(int, end);
        openWatched();
        const qint64 selector = read("TriggerSelector");
        m_camera->closeGate("TriggerSelector", MeddledCamera::Writes);
        panel()->saveTo(path());
        OBFT_TRY_VERIFY(m_camera->isHolding());
        panel()->compareWith("/no/such.features"_s); // waits for nothing and changes nothing
        QVERIFY(dialog()->isWorking());
        if (end == Release) {
            m_tester.reset();
            // The release waits for the call under way.
            std::thread opens([this] { m_camera->openGate(); });
            m_window.reset();
            opens.join();
        } else {
            if (end == Window)
                QMetaObject::invokeMethod(m_window->widget(), &QWidget::close,
                                          Qt::QueuedConnection);
            else
                dialog()->close();
            QTimer::singleShot(0, m_window->widget(), [this] { m_camera->openGate(); });
            OBFT_TRY_VERIFY(!dialog()->isWorking() && !dialog()->isVisible());
            OBFT_TRY_VERIFY(m_window->item(kTree, "TriggerSelector")->value()->enabled());
        }
        QCOMPARE(read("TriggerSelector"), selector);
        QVERIFY(!QFile::exists(path()));
    }
};

OBFT_TEST_MAIN(TestChangesPanel)
#include "tst_changespanel.moc"
