// SPDX-License-Identifier: Apache-2.0
// What the user sees, types and clicks while a worker of the image processing page has a selector
// of the camera elsewhere, and how workers and passes take turns.
#include "cameras/CameraError.h"
#include "changes/ChangesPanel.h"
#include "changes/FeatureFileDialog.h"
#include "main/ORXFeatureGroup.h"
#include "model/ORXPropertyTreeItem.h"
#include "pages/DemoPageTest.h"
#include "pages/ORXImgProcessingFeature.h"
#include "reading/FeatureMutex.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QPushButton>

namespace {

} // namespace

class TestSelectorLocks : public DemoPageTest
{
    Q_OBJECT

protected:
    void prepare() override
    {
        DemoPageTest::prepare();
        QCOMPARE(write("ChunkSelector", "3"), 0);
        QCOMPARE(write("EventSelector", "3"), 0);
    }

private:
    QLineEdit* cell(int index) const
    {
        return imagePage()->findChild<QLineEdit*>("CCMValue%1"_s.arg(index));
    }
    bool cellShows(int index, const char* text) const
    {
        return cell(index) && cell(index)->text() == QLatin1String(text);
    }
    // Names of rows, on the pages and among the favourites, that the user cannot edit now.
    QStringList locked(const QStringList& names) const
    {
        QStringList all;
        for (const QString& name : names) {
            const QByteArray latin = name.toLatin1();
            ORXPropertyTreeItem* item = m_window->item(kTree, latin);
            if (item && !item->value()->enabled())
                all += name;
            if (item && item->mappingItem() && !item->mappingItem()->value()->enabled())
                all += "favourite "_s + name;
        }
        return all;
    }

private slots:
    // Locks ---------------------------------------------------------------------------------------

    void rowsAreLockedMeanwhile_data()
    {
        const Rows<QByteArray, QStringList, QByteArray, QString> row("shown", "locked", "failing",
                                                                     "end");
        for (const QString& end : {"read"_s, "page out of sight"_s, "failure"_s}) {
            row(qPrintable("matrix, "_s + end), "Custom_CCM",
                "ColorTransformationValueSelector ColorTransformationValue",
                "ColorTransformationValue", end);
            row(qPrintable("chunks, "_s + end), "Custom_ChunkSelector_0",
                "ChunkSelector ChunkEnable", "ChunkSelector", end);
            row(qPrintable("events, "_s + end), "Custom_EventSelector_0",
                "EventSelector EventNotification", "EventNotification", end);
        }
    }

    // The favourites as well, also one that is made meanwhile.
    void rowsAreLockedMeanwhile()
    {
        const auto [shown, locked, failing, end] =
            fetchRow<QByteArray, QStringList, QByteArray, QString>();
        const bool fails = end == "failure"_s;
        MessageGuard::expectMessage("Reading the color correction matrix"_s);
        if (fails)
            MessageGuard::expectMessage("Feature Failed"_s);
        write(kTransformation, "0");
        open();
        const QByteArray selector = locked.first().toLatin1();
        const QByteArray value = locked.last().toLatin1();
        m_window->tree()->addFavoriteItem(m_window->item(kTree, value));
        QCOMPARE(this->locked(locked), QStringList());
        m_camera->closeGate(value, MeddledCamera::Reads);
        QVERIFY(m_window->show(kImage, shown));
        OBFT_TRY_VERIFY(m_camera->isHolding());
        QCOMPARE(this->locked(locked), locked + QStringList("favourite "_s + locked.last()));
        m_window->tree()->addFavoriteItem(m_window->item(kTree, selector));
        QCOMPARE(this->locked(locked).filter("favourite "_s).size(), 2);
        if (fails)
            m_camera->fail(failing, CameraError::Timeout);
        // The user goes to edit in the whole tree what is being moved.
        if (end == "page out of sight"_s)
            QVERIFY(!m_window->isEnabled(kTree, value));
        m_camera->openGate();
        OBFT_TRY_COMPARE(this->locked(locked), QStringList());
        if (!fails)
            QVERIFY(m_window->usableEditor(kTree, m_window->item(kTree, value)));
    }

    // Two workers have the same selector elsewhere: its rows wait for both, whoever ends first.
    void rowsWaitForAllWhoMoveThem_data()
    {
        const Rows<bool> row("endsFirst");
        row("boxes end first", true);
        row("feature file ends first", false);
    }

    void rowsWaitForAllWhoMoveThem()
    {
        QFETCH(bool, endsFirst);
        const QStringList both = words("ChunkSelector ChunkEnable");
        open();
        m_camera->hold("get ChunkEnable"_s);
        QVERIFY(m_window->show(kImage, "Custom_ChunkSelector_0"));
        OBFT_TRY_COMPARE(m_camera->held(), 1);
        auto* changes = m_window->tree()->findChild<ChangesPanel*>();
        changes->saveTo(m_folder->filePath("a.features"_s));
        auto* file = m_window->widget()->findChild<FeatureFileDialog*>();
        QCOMPARE(locked(both + words("LineInverter")), both + words("LineInverter"));
        if (endsFirst) {
            // Far behind in the file, and read by nobody else now.
            m_camera->hold("get TestLongString"_s);
            m_camera->release("get ChunkEnable"_s);
            OBFT_TRY_VERIFY(m_camera->calls().contains("get TestLongString"_s));
            OBFT_TRY_VERIFY(box("ChunkSelector", 2) && box("ChunkSelector", 2)->isChecked());
            QVERIFY(file->isWorking());
        } else {
            // It waits for its turn.
            QTest::mouseClick(file->findChild<QPushButton*>("FeatureFileClose"_s), Qt::LeftButton);
            OBFT_TRY_VERIFY(!file->isWorking());
            OBFT_TRY_COMPARE(locked(words("LineInverter")), QStringList());
        }
        QCOMPARE(locked(both), both);
        QVERIFY(!m_window->isEnabled(kTree, "ChunkEnable"));
        m_camera->openGate();
        OBFT_TRY_COMPARE(locked(both), QStringList());
        QVERIFY(m_window->usableEditor(kTree, m_window->item(kTree, "ChunkEnable")));
    }

    // After several refused clicks the box shows what the camera has.
    void refusedClicksInARow_data()
    {
        const Rows<int, int> row("entry", "clicks");
        row("off, two clicks", 6, 2);
        row("off, three clicks", 6, 3);
        row("on, two clicks", 2, 2);
    }

    void refusedClicksInARow()
    {
        const auto [entry, clicks] = fetchRow<int, int>();
        MessageGuard::expectMessage("Feature Failed"_s);
        open();
        QVERIFY(m_window->show(kImage, "Custom_ChunkSelector_0"));
        OBFT_TRY_VERIFY(box("ChunkSelector", 2) && box("ChunkSelector", 2)->isChecked());
        QAbstractButton* clicked = box("ChunkSelector", entry);
        const bool before = clicked->isChecked();
        m_camera->closeGate("ChunkEnable");
        m_camera->fail("ChunkEnable", CameraError::NotWritable, MeddledCamera::Writes);
        m_camera->forget();
        for (int click = 0; click < clicks; ++click)
            PageWindow::press(clicked);
        OBFT_TRY_VERIFY(m_camera->isHolding());
        m_camera->openGate();
        OBFT_TRY_COMPARE(m_camera->writesOf("ChunkEnable"), clicks);
        OBFT_TRY_COMPARE(locked(words("ChunkEnable")), QStringList());
        QCOMPARE(box("ChunkSelector", entry)->isChecked(), before);
    }

    // Turns ---------------------------------------------------------------------------------------

    void waitingPassHasItsTurnBetweenTwoEntries_data()
    {
        const Rows<QByteArray, QString, QString, QString> row("shown", "held", "back", "next");
        row("boxes", "Custom_ChunkSelector_0", "get ChunkEnable", "set ChunkSelector=3",
            "set ChunkSelector=1");
        row("matrix", "Custom_CCM", "get ColorTransformationValue",
            "set ColorTransformationValueSelector=6", "set ColorTransformationValueSelector=1");
    }

    void waitingPassHasItsTurnBetweenTwoEntries()
    {
        const auto [shown, held, back, next] = fetchRow<QByteArray, QString, QString, QString>();
        write(kTransformation, "0");
        write("ColorTransformationValueSelector", "6");
        open();
        m_camera->forget();
        m_camera->hold(held);
        QVERIFY(m_window->show(kImage, shown));
        OBFT_TRY_COMPARE(m_camera->held(), 1);
        m_window->tree()->rereadInvalidated("GammaEnable"_s);
        OBFT_TRY_VERIFY(m_window->tree()->GetFeatureMutex()->waiting() > 0);
        m_camera->openGate();
        OBFT_TRY_VERIFY(m_camera->calls().contains(next));
        const QStringList calls = m_camera->calls();
        const int put = int(calls.indexOf(back));
        const int on = int(calls.indexOf(next));
        // The pass that was asked for, or polling: whoever waited first.
        const QStringList turn = calls.mid(put + 1, on - put - 1).filter("mode "_s);
        QVERIFY2(put >= 0 && put < on && !turn.isEmpty(),
                 qPrintable(calls.join(QLatin1Char('\n'))));
    }

    // The matrix ----------------------------------------------------------------------------------

    // The page switches it, whether or not the rows of its cells are shown.
    void switchWorksWithoutItsEditor()
    {
        write(kTransformation, "1");
        open();
        QVERIFY(m_window->show(kImage, "Custom_CCM"));
        auto* search = m_window->widget()->featureGroup(1)->findChild<QLineEdit*>();
        QVERIFY(search);
        search->setText("enable"_s);
        ORXPropertyTreeItem* item = m_window->item(kImage, "Custom_CCMEnable");
        OBFT_TRY_VERIFY(m_window->isRowShown(kImage, item) &&
                        !m_window->isRowShown(kImage, "Custom_CCM"));
        const ORXFeatureTreeView* view = m_window->page(kImage)->treeView();
        const auto enable = [&] { return qobject_cast<QAbstractButton*>(view->editorOf(item)); };
        OBFT_TRY_VERIFY(enable() && enable()->isEnabled());
        m_camera->forget();
        PageWindow::press(enable());
        OBFT_TRY_COMPARE(read("CCMEnable"), 1);
        OBFT_TRY_COMPARE(read(kTransformation), 0);
        OBFT_TRY_VERIFY(enable() && enable()->isChecked());
    }

    void refreshReadsTheMatrixAgain()
    {
        write(kTransformation, "0");
        write("CCMEnable", "1");
        open();
        QVERIFY(m_window->show(kImage, "Custom_CCM"));
        OBFT_TRY_VERIFY(cellShows(0, "1.0000"));
        // The camera changes by itself, while nobody has the selector elsewhere.
        const auto cameraChanges = [this](const char* value) {
            const FeatureLock untouched(m_window->tree()->GetFeatureMutex());
            write("ColorTransformationValueSelector", "0");
            write(kMatrixValue, value);
        };
        cameraChanges("0.5");
        m_window->tree()->OnBtnRefresh();
        OBFT_TRY_VERIFY(cellShows(0, "0.5000"));
        QVERIFY(m_window->refresh());
        cameraChanges("0.25");
        OB_FT_UpdateFeatures();
        OBFT_TRY_VERIFY(cellShows(0, "0.2500"));
    }

    // The reading after an interrupted or failed one shows the cells again.
    void cellsComeBack_data()
    {
        const Rows<QString> row("end");
        row.of("page out of sight");
        row.of("window closed");
        row.of("camera failed");
    }

    void cellsComeBack()
    {
        QFETCH(QString, end);
        MessageGuard::expectMessage("Reading the color correction matrix"_s);
        write(kTransformation, "0");
        write("CCMEnable", "1");
        open();
        m_camera->closeGate(kMatrixValue, MeddledCamera::Reads);
        QVERIFY(m_window->show(kImage, "Custom_CCM"));
        OBFT_TRY_VERIFY(m_camera->isHolding());
        OBFT_TRY_VERIFY(cell(0) && !cell(0)->isEnabled());
        if (end == QLatin1String("camera failed")) {
            m_camera->fail(kMatrixValue, CameraError::Timeout, MeddledCamera::Reads);
            m_camera->openGate();
            OBFT_TRY_VERIFY(MessageGuard::contains("cannot be read"_s));
            // Switching enables no cells that nobody knows.
            QVERIFY(m_window->click(kImage, "Custom_CCMEnable"));
            OBFT_TRY_COMPARE(locked({"ColorTransformationValue"_s}), QStringList());
            QVERIFY(!cell(0)->isEnabled());
            m_camera->fail(kMatrixValue, 0);
            write("CCMEnable", "1");
            write(kTransformation, "0");
            OB_FT_UpdateFeatures();
        } else if (end == QLatin1String("window closed")) {
            std::thread host([this] { m_camera->openGate(); });
            OB_FT_Close();
            host.join();
            OB_FT_Start(nullptr, 0);
        } else {
            QVERIFY(m_window->show(kTree, "Width"));
            m_camera->openGate();
            OBFT_TRY_COMPARE(locked({"ColorTransformationValue"_s}), QStringList());
            QVERIFY(m_window->show(kImage, "Custom_CCM"));
        }
        OBFT_TRY_VERIFY(cellShows(4, "1.0000") && cell(4)->isEnabled());
    }
};

OBFT_TEST_MAIN(TestSelectorLocks)
#include "tst_selectorlocks.moc"
