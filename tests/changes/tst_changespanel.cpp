// SPDX-License-Identifier: Apache-2.0
// The list of changes, feature files and copying, as the user meets them in the window.
#include "basetools/ORXInterface.h"
#include "cameras/CameraError.h"
#include "changes/ChangesPanel.h"
#include "changes/FeatureFileDialog.h"
#include "changes/FeatureFileTable.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "model/ORXPropertyTreeModel.h"
#include "pages/DemoPageTest.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>

class TestChangesPanel : public DemoPageTest
{
    Q_OBJECT

private:
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
        for (int row = 0; row < panel()->journal()->rowCount(); ++row) {
            if (panel()->journal()->change(row).name == feature)
                return row;
        }
        return -1;
    }
    QString copied(const char* action, const QModelIndex& row) const
    {
        QGuiApplication::clipboard()->clear();
        m_window->tree()->OnTreeFeaturesCustomContextMenuRequested(
            m_window->tree()->treeView()->visualRect(row).center());
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            return "no menu"_s;
        for (QAction* each : menu->actions()) {
            if (each->text() == QLatin1String(action) && each->isEnabled())
                each->trigger();
        }
        menu->close();
        return QGuiApplication::clipboard()->text();
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
            const int before = lines("Timestamp"_s).size();
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
        QTest::mouseClick(button("ChangesRevert"), Qt::LeftButton);
        OBFT_TRY_COMPARE(read("Width"), 1920);
        OBFT_TRY_COMPARE(m_window->shown(kTree, "Width"), "1920"_s);
        OBFT_TRY_COMPARE(lines("Width"_s).size(), 2);

        QVERIFY(m_window->show(kTree, "ExposureTime"));
        list()->setCurrentIndex(panel()->journal()->index(rowOf("Width"_s), 0));
        QTest::keyClick(list(), Qt::Key_Return);
        const ORXFeatureTreeView* view = m_window->tree()->treeView();
        QCOMPARE(ORXPropertyTreeModel::itemFromIndex(view->currentIndex()),
                 m_window->item(kTree, "Width"));
        QVERIFY(m_window->isRowShown(kTree, "Width"));
    }

    void savesComparesAndApplies()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("settings.features"_s);
        ORXInterface::setFileDialogHook(
            [&](ORXInterface::FileDialogKind, const QString&, const QString&) { return path; });
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
        write("TriggerDelay", "5");
        QTest::mouseClick(button("ChangesCompare"), Qt::LeftButton);
        OBFT_TRY_VERIFY(dialog()->summary().contains("values differ"_s));
        const FeatureFileTable* table = dialog()->table();
        QVERIFY(table->chosenCount() >= 2);
        const QAbstractItemModelTester tester(const_cast<FeatureFileTable*>(table));
        QTest::mouseClick(dialog()->findChild<QPushButton*>("FeatureFileApply"_s), Qt::LeftButton);
        OBFT_TRY_VERIFY(dialog()->summary().contains("read back"_s));
        QCOMPARE(read("Width"), 1920);
        OBFT_TRY_COMPARE(m_window->shown(kTree, "Width"), "1920"_s);
        panel()->compareWith(path);
        OBFT_TRY_VERIFY(dialog()->summary().startsWith("None of"_s));
    }

    void faultyFilesAreTold_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("summary");
        QTest::addColumn<int>("rows");
        QTest::newRow("two bad lines")
            << QByteArray("Width\t640\nHeight 480\n\t7\n") << "is not understood"_s << 2;
        QTest::newRow("two values of one feature")
            << QByteArray("Width\t640\nHeight\t480\nWidth\t672\n") << "is not understood"_s << 1;
        QTest::newRow("nothing in it") << QByteArray("# only a comment\n") << "no feature"_s << 0;
        QTest::newRow("no file") << QByteArray() << "cannot be read"_s << 0;
    }

    void faultyFilesAreTold()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, summary);
        QFETCH(int, rows);
        const QTemporaryDir folder;
        QFile file(folder.filePath("a.features"_s));
        if (!bytes.isEmpty()) {
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(bytes);
            file.close();
        } else {
            MessageGuard::expectMessage("cannot be read"_s);
        }
        openWatched();
        m_camera->forget();
        panel()->compareWith(file.fileName());
        QVERIFY2(dialog()->summary().contains(summary), qPrintable(dialog()->summary()));
        QCOMPARE(dialog()->table()->rowCount(), rows);
        QVERIFY(!dialog()->isWorking());
        QVERIFY(m_camera->writes().isEmpty());
    }

    // What this camera has is compared and applied, and the rest is named.
    void fileOfAnotherModelIsTold()
    {
        const QTemporaryDir folder;
        QFile file(folder.filePath("a.features"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("# Model: Another 5\nWidth\t640\nNoSuchFeature\t1\nGainAuto\tNoSuchEntry\n");
        file.close();
        openWatched();
        panel()->compareWith(file.fileName());
        OBFT_TRY_COMPARE(dialog()->summary(),
                         "The file is of another model, Another 5. 3 of 3 values differ."_s);
        const FeatureFileTable* table = dialog()->table();
        const QStringList results = {"Different"_s, "Not on this camera"_s,
                                     "No value of this feature"_s};
        for (int row = 0; row < results.size(); ++row) {
            const QModelIndex feature = table->index(row, FeatureFileTable::Feature);
            QCOMPARE(feature.siblingAtColumn(FeatureFileTable::Result).data(), results.at(row));
            QCOMPARE(feature.data(Qt::CheckStateRole).isValid(), row == 0);
        }
        QTest::mouseClick(dialog()->findChild<QPushButton*>("FeatureFileApply"_s), Qt::LeftButton);
        OBFT_TRY_COMPARE(dialog()->summary(), "1 of 1 values were written and read back."_s);
        QCOMPARE(read("Width"), 640);
    }

    // A folder in which nothing can be written.
    void fullDiskIsTold()
    {
        openWatched();
        MessageGuard::expectMessage("cannot be written"_s);
        panel()->saveTo("/proc/no/such.features"_s);
        OBFT_TRY_VERIFY(dialog()->summary().contains("cannot be written"_s));
    }

    // The camera is as it was, the rows can be edited, and nobody waits.
    void endsWithTheDialogOrTheWindow_data()
    {
        QTest::addColumn<bool>("window");
        QTest::newRow("dialog closed") << false;
        QTest::newRow("window closed") << true;
    }

    void endsWithTheDialogOrTheWindow()
    {
        QFETCH(bool, window);
        const QTemporaryDir folder;
        openWatched();
        const qint64 selector = read("TriggerSelector");
        m_camera->closeGate("TriggerSelector", MeddledCamera::Writes);
        panel()->saveTo(folder.filePath("a.features"_s));
        OBFT_TRY_VERIFY(m_camera->isHolding());
        panel()->compareWith("/no/such.features"_s); // waits for nothing and changes nothing
        QVERIFY(dialog()->isWorking());
        if (window)
            QMetaObject::invokeMethod(m_window->widget(), &QWidget::close, Qt::QueuedConnection);
        else
            dialog()->close();
        QTimer::singleShot(0, m_window->widget(), [this] { m_camera->openGate(); });
        OBFT_TRY_VERIFY(!dialog()->isWorking() && !dialog()->isVisible());
        OBFT_TRY_VERIFY(m_window->item(kTree, "TriggerSelector")->value()->enabled());
        QCOMPARE(read("TriggerSelector"), selector);
        QVERIFY(!QFile::exists(folder.filePath("a.features"_s)));
    }

    void endsWithTheTree()
    {
        openWatched();
        m_camera->closeGate("TriggerSelector", MeddledCamera::Writes);
        panel()->saveTo("/proc/no/such.features"_s);
        OBFT_TRY_VERIFY(m_camera->isHolding());
        m_tester.reset();
        // The release waits for the call under way.
        std::thread opens([this] { m_camera->openGate(); });
        m_window.reset();
        opens.join();
    }

    void rowsAreCopied()
    {
        openWatched();
        QVERIFY(m_window->show(kTree, "ExposureTime"));
        ORXFeatureTreeView* view = m_window->tree()->treeView();
        const QModelIndex row =
            view->treeModel()->indexFromItem(m_window->item(kTree, "ExposureTime"), 0);
        const QString value = m_window->shown(kTree, "ExposureTime");
        QCOMPARE(copied("Copy Value", row), value);
        QCOMPARE(copied("Copy Name", row), "ExposureTime"_s);
        QCOMPARE(copied("Copy as Text", row), "ExposureTime = %1 us"_s.arg(value));
        QGuiApplication::clipboard()->clear();
        view->setCurrentIndex(row);
        view->setFocus();
        QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), "ExposureTime = %1 us"_s.arg(value));
    }
};

OBFT_TEST_MAIN(TestChangesPanel)
#include "tst_changespanel.moc"
