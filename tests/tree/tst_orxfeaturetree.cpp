// SPDX-License-Identifier: Apache-2.0
#include "basetools/ORXInterface.h"
#include "device/IORXListen.h"
#include "device/OBDeviceControl.h"
#include "device/ORXListenTools.h"
#include "device/ReentrancyScope.h"
#include "reading/FeatureMutex.h"
#include "styledctl/ZELCustomCheckBox.h"
#include "styledctl/ZELCustomComboBox.h"
#include "styledctl/ZELCustomDockTitleBar.h"
#include "styledctl/ZELCustomPushButton.h"
#include "support/GuiThreadReads.h"
#include "support/Patience.h"
#include "tree/FeatureTreeTest.h"
#include "tree/ORXPropertySpinBox.h"
#include "tree/QPropertyLineEdit.h"
#include "tree/SelectorRowsLock.h"

#include <QSemaphore>
#include <QSignalSpy>
#include <QTextEdit>

class TestORXFeatureTree : public FeatureTreeTest, public IORXListen
{
    Q_OBJECT

public:
    int notify(int code, void* key) override
    {
        if (code == ListenCode::kFirstReadEnded)
            m_firstReads.append(*static_cast<qint64*>(key));
        return 0;
    }

private:
    QList<qint64> m_firstReads; // cameras

    void chooseLevel(int level)
    {
        OBDeviceControl::SetUserLevel(level);
        m_tree->OnUserLevelChanged();
    }

    // Those of three features that cannot be edited.
    QStringList locked()
    {
        QStringList names;
        for (const char* name : {"Width", "Height", "Gain"}) {
            if (!item(name)->value()->enabled())
                names.append(QString::fromLatin1(name));
        }
        return names;
    }

private slots:
    // Reading -------------------------------------------------------------------------------------
    void firstReadFillsTheEditors()
    {
        QSignalSpy firstRead(m_tree.get(), &ORXFeatureTree::SigFirstEndUpdateFeature);
        ORXListenTools::instance()->addListener(this, ORXListenTools::PriorityNormal);
        ZELCustomDockTitleBar title;
        m_tree->setDockTitleBar(&title);
        QCOMPARE(m_tree->rootItem()->childCount(), 3); // favourites and two categories
        readOnce();
        QCOMPARE(firstRead.size(), 1);
        QCOMPARE(firstRead.first().first().toLongLong(), 1LL);
        QCOMPARE(m_firstReads, QList<qint64>({1}));
        ORXListenTools::instance()->removeListener(this);
        QCOMPARE(editor<ORXPropertySpinBox>("Width")->singleStep(), qlonglong(16));
        QTRY_COMPARE(editor<ZELCustomComboBox>("PixelFormat")->currentText(), "Mono16"_s);
        QTRY_COMPARE(editor<QPropertyLineEdit>("Gain")->text(), "1.5000"_s);
        QTRY_VERIFY(editor<ZELCustomCheckBox>("ReverseX")->isChecked());
        QTRY_VERIFY(editor<ZELCustomPushButton>("AcquisitionStart")->isEnabled());
        QVERIFY(m_host->writes().isEmpty());
        QTRY_COMPARE(title.cTitleText(), "Bench 3"_s);
        _OB_FT_DEVICEINFO_ info = {};
        qstrncpy(info.deviceName, "Camera 7", sizeof(info.deviceName));
        OBDeviceControl::SetDeviceInfo(&info);
        m_host->set("DeviceUserID"_s, FakeHost::textFeature(""));
        m_tree->RefreshFeatures();
        QTRY_COMPARE(title.cTitleText(), "Camera 7"_s); // the user gave none
        info = {};
        OBDeviceControl::SetDeviceInfo(&info);
    }

    // However far the window is behind its reading threads: who hears that a pass has ended sees
    // all that the pass has read.
    void endOfAPassIsToldBehindItsValues()
    {
        int shown = 0;
        int shownAtEnd = 0;
        const QObject here;
        connect(view(), &ORXFeatureTreeView::sigUpdateEditorData, &here, [&] { ++shown; });
        connect(m_tree.get(), &ORXFeatureTree::SigPassEnded, &here, [&] { shownAtEnd = shown; });
        QSemaphore ended;
        const auto threads = m_tree->findChildren<QGetFeaturesThread*>();
        for (const QGetFeaturesThread* thread : threads)
            connect(
                thread, &QGetFeaturesThread::sigThreadEnd, &here, [&] { ended.release(); },
                Qt::DirectConnection);
        // The window gets no event until the pass has ended.
        const auto readUnseen = [&](const std::function<void()>& read) {
            shown = shownAtEnd = 0;
            read();
            return ended.tryAcquire(1, kWindowPatienceMs) &&
                   QTest::qWaitFor([&] { return shown > 0; });
        };
        QVERIFY(readUnseen([&] { m_tree->StartUpdateThread(); }));
        QTRY_COMPARE(shownAtEnd, shown);
        m_tree->PauseUpdateThread();
        m_tree->StopThread(false);
        QCoreApplication::processEvents();
        ended.acquire(ended.available());
        m_host->set("Height"_s, FakeHost::integerFeature(480, 16, 4096, 16));
        QVERIFY(readUnseen([&] {
            m_tree->UpdateFeatures(FEATURES_UPDATE_INVALIDATED, "Width"_s,
                                   QGetFeaturesThread::UpdateFlags(13), false, true);
        }));
        QTRY_COMPARE(shownAtEnd, shown);
    }

    void directRead()
    {
        const GuiThreadReads::ReadingHere reading;
        QStringList read;
        for (const char* name : {"Width", "Gain", "PixelFormat", "ReverseX", "DeviceUserID",
                                 "AcquisitionStart", "Image"}) {
            Item* feature = item(name);
            const bool answered = m_tree->rereadFeatureValue(feature, true);
            const CTreeItemValue* value = feature->value();
            const QString before = value->value().toString();
            if (answered && feature->wasRead())
                read += value->displayValue().isEmpty() ? before : value->displayValue();
            m_host->failMode(QString::fromLatin1(name), 3);
            QVERIFY(!m_tree->rereadFeatureValue(feature, false)); // not readable
            QCOMPARE(value->value().toString(), before);
            m_host->failMode(QString::fromLatin1(name), 0);
        }
        // The enumeration without its entries; neither the command nor the category has a value.
        QCOMPARE(read, (QStringList{"320"_s, "1.5000"_s, "7"_s, "True"_s, "Bench 3"_s}));
        QVERIFY(!m_tree->rereadFeatureValue(nullptr, true));
    }

    // Passes --------------------------------------------------------------------------------------
    // Both threads are busy, one of them with the level before, when the level changes again.
    void lastUserLevelWins()
    {
        readOnce();
        m_host->setLatencyMs(3);
        m_tree->RefreshFeatures();
        chooseLevel(1);
        QTRY_VERIFY(m_host->count("mode Detail"_s) >= 2);
        chooseLevel(0);
        m_host->setLatencyMs(0);
        QTRY_VERIFY(!m_tree->isReading());
        QTRY_VERIFY(item("Detail")->visible());
    }

    // A pass that began at the level before comes to a feature after the other thread.
    void runningPassTakesTheNewLevel()
    {
        readOnce();
        const QString first = m_tree->AllTreeItemsMap().firstKey();
        m_host->pace().closeGate(first);
        m_tree->RefreshFeatures();
        QTRY_COMPARE(m_host->pace().waitingAt(first), 1);
        m_tree->setInSight({"Detail"_s});
        chooseLevel(1);
        QTRY_COMPARE(m_tree->GetFeatureMutex()->waiting(), 1);
        m_host->pace().openGate(first);
        QTRY_VERIFY(!m_tree->isReading());
        QVERIFY(!item("Detail")->visible());
        QVERIFY(item("Width")->visible());
        QTRY_VERIFY(!view()->editorOf(item("Detail")));
        chooseLevel(0);
        QTRY_VERIFY(view()->editorOf(item("Detail")));
    }

    void refreshDropsTheHostsCache()
    {
        readOnce();
        m_tree->RefreshFeatures();
        QCOMPARE(m_host->count("invalidate"_s), 0);
        m_tree->OnBtnRefresh();
        QCOMPARE(m_host->count("invalidate"_s), 1);
        m_host->set("Height"_s, FakeHost::integerFeature(99));
        QTRY_COMPARE(item("Height")->value()->value().toInt(), 1); // the refresh was under way
        m_tree->UpdateFeatures(FEATURES_UPDATE_POLLING, QString(), {}, true, false);
        QCOMPARE(m_host->count("invalidate"_s), 2);
        // Some devices do so at every full read.
        _OB_FT_DEVICEINFO_ info = {};
        info.deviceType = 8;
        OBDeviceControl::SetDeviceInfo(&info);
        m_tree->RefreshFeatures();
        m_tree->UpdateFeatures(FEATURES_UPDATE_TL_LOCKED, QString(), {}, false, false);
        info.deviceType = 0;
        OBDeviceControl::SetDeviceInfo(&info);
        QCOMPARE(m_host->count("invalidate"_s), 3);
    }

    // The end of a pass that was stopped arrives when the first read is under way again.
    void stoppedPassIsNotTheFirstRead()
    {
        const QString first = m_tree->AllTreeItemsMap().firstKey();
        QSignalSpy fullReads(m_tree.get(), &ORXFeatureTree::SigFullReadEnded);
        for (const bool stopped : {true, false}) {
            m_host->pace().closeGate(first);
            m_tree->StartUpdateThread();
            QTRY_COMPARE(m_host->pace().waitingAt(first), 1);
            QCoreApplication::processEvents();
            QVERIFY(!m_tree->HadUpdatedOnce());
            QVERIFY(fullReads.isEmpty());
            QVERIFY(m_tree->isReading());
            m_host->pace().openGate(first);
            if (stopped)
                m_tree->PauseUpdateThread();
        }
        QTRY_VERIFY(m_tree->HadUpdatedOnce());
        QCOMPARE(fullReads.size(), 1);
    }

    // A full pass that waits for polling to give way is reading already.
    void passBehindPollingIsReading()
    {
        readOnce();
        QSignalSpy fullReads(m_tree.get(), &ORXFeatureTree::SigFullReadEnded);
        m_host->pace().closeGate("Counter"_s);
        m_tree->OnTimerFeatureNoCache();
        QTRY_COMPARE(m_host->pace().waitingAt("Counter"_s), 1);
        QVERIFY(!m_tree->isReading());
        m_tree->RefreshFeatures();
        QVERIFY(m_tree->isReading());
        const QString last = m_tree->AllTreeItemsMap().lastKey();
        m_host->pace().closeGate(last);
        m_host->pace().openGate("Counter"_s);
        QTRY_COMPARE(m_host->pace().waitingAt(last), 1);
        QCoreApplication::processEvents();
        QVERIFY(fullReads.isEmpty());
        m_host->pace().openGate(last);
        QTRY_COMPARE(fullReads.size(), 1);
    }

    void pollingFollowsTheFirstRead()
    {
        readOnce();
        m_tree->OnTimerFeatureNoCache(); // what the polling timer does every two seconds
        m_host->set("Counter"_s, FakeHost::integerFeature(77));
        QTRY_COMPARE(editor<ORXPropertySpinBox>("Counter")->value(), qlonglong(77));
        QCOMPARE(m_host->count("get Width"_s), 0);
        m_tree->EmitPollingFeatureChanged("Width"_s);
        QTRY_COMPARE(m_host->count("get Height"_s), 1); // what a polled change invalidates
        QTRY_VERIFY(!m_tree->isReading());
        QCOMPARE(m_host->count("get Width"_s), 0); // polling has just read it
        m_tree->PauseUpdateThread();
        m_host->clearCalls();
        m_tree->OnTimerFeatureNoCache();
        QVERIFY(m_host->calls().isEmpty());
    }

    void namedFeatureIsReadAgain()
    {
        readOnce();
        m_host->set("Gain"_s, FakeHost::floatFeature(3.0F, 0.0F, 24.0F));
        const auto changed = [](qint64 cameraId, const char* name) {
            NamedFeature feature = {cameraId, name};
            ORXListenTools::instance()->notifyListeners(ListenCode::kFeatureChanged, &feature);
        };
        changed(2, "Gain");
        changed(1, "Width");
        QTRY_VERIFY(m_host->count("get Width"_s) > 0);
        QCOMPARE(m_host->count("get Gain"_s), 0);
        changed(1, "Gain");
        QTRY_COMPARE(editor<QPropertyLineEdit>("Gain")->text(), "3.0000"_s);
    }

    void noOverlayWithoutCamera()
    {
        ORXFeatureTree tree(-1);
        tree.CreateFeature();
        tree.StartUpdateThread();
        QVERIFY(!tree.rootItem());
        tree.ShowLoadingDlg(true, "text"_s);
        tree.ShowLoadingFeatures(true, true);
        QVERIFY(overlay().isEmpty());
        QVERIFY(tree.setFeatureValue("Integer"_s, "Width"_s, 640));
        QVERIFY(overlay().isEmpty());
        tree.OnUserLevelChanged();
        tree.moveFavorteItem(nullptr, nullptr);
        tree.removeAllFavoriteItems();
    }

    void closingTheCamera()
    {
        readOnce();
        emit view()->pressed(index(item("Width")));
        QVERIFY(!m_tree->findChild<QTextEdit*>()->toPlainText().isEmpty());
        QVERIFY(m_tree->setFeatureValue("Integer"_s, "Width"_s, 640));
        m_tree->OnCameraClose();
        QVERIFY(overlay().isEmpty()); // nothing would hide it later
        QCOMPARE(m_tree->cameraID(), qint64(-1));
        QVERIFY(m_tree->findChild<QTextEdit*>()->toPlainText().isEmpty());
        QCOMPARE(view()->model()->rowCount(), 0);
        m_host->clearCalls();
        m_tree->OnTimeInvalidaterFeaturesUpdate();
        m_tree->OnTimerFeatureNoCache();
        QCoreApplication::processEvents();
        QVERIFY(m_host->calls().isEmpty());
        m_tree->removeCameraID(1);
        QVERIFY(m_tree->AllTreeItemsMap().isEmpty());
    }

    // The host may ask for the release from inside its callback; that is put off until the write
    // ends.
    void releasedDuringAWrite()
    {
        readOnce();
        bool during = false;
        m_host->beforeGet = [&](const QString& name) {
            if (name != QLatin1String("Width") || !ReentrancyScope::isActive())
                return;
            during = true;
            ReentrancyScope::runWhenInactive([this] { m_tree.reset(); });
        };
        {
            const GuiThreadReads::ReadingHere reading;
            const ReentrancyScope write;
            QVERIFY(m_tree->rereadFeatureValue(item("Width"), true));
            QVERIFY(during);
            QVERIFY(m_tree);
        }
        QTRY_VERIFY(!m_tree);
    }

    void descriptionFollowsRowAndLanguage()
    {
        auto* panel = m_tree->findChild<QTextEdit*>();
        emit view()->pressed(index(item("Width")));
        QVERIFY(panel->toPlainText().contains("Columns of the image."_s));
        const QString last = m_tree->AllTreeItemsMap().firstKey();
        m_host->pace().closeGate(last);
        m_tree->setInSight(words("Width"));
        m_tree->StartUpdateThread();
        QTRY_VERIFY(panel->toPlainText().contains("4096"_s)); // as soon as it is read
        m_host->pace().openGate(last);
        QTRY_VERIFY(m_tree->HadUpdatedOnce());
        const QString english = panel->toPlainText();
        QCOMPARE(panel->textCursor().position(), 0);
        panel->selectAll();
        m_tree->notifyEditorUpdate();
        QVERIFY(panel->textCursor().hasSelection()); // the text has not changed
        ORXInterface::setLanguage("CH"_s);
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(m_tree.get(), &change);
        QVERIFY(!panel->toPlainText().isEmpty() && panel->toPlainText() != english);
        editor<QPropertyLineEdit>("Gain")->setFocus(); // the row being edited is explained
        QTRY_VERIFY(panel->toPlainText().contains("Gain"_s));
    }

    // Rows that several workers lock --------------------------------------------------------------
    void rowsAreFreeWhenTheLastEnds()
    {
        readOnce();
        SelectorRowsLock first;
        {
            SelectorRowsLock second;
            first.lock(m_tree.get(), words("Width Height NoSuchFeature"));
            second.lock(m_tree.get(), words("Width Height"));
            first.lock(m_tree.get(), words("Height Gain")); // turns to other rows
            first.lock(m_tree.get(), words("Height Gain")); // still the one lock
            QCOMPARE(locked(), words("Width Height Gain"));
            second.unlock();
            second.unlock(); // it has none any more
            QCOMPARE(locked(), words("Height Gain"));
            second.lock(m_tree.get(), words("Width"));
        }
        QCOMPARE(locked(), words("Height Gain"));
        first.lock(nullptr, words("Width"));
        QCOMPARE(locked(), QStringList());
        QVERIFY(!first.isLocked());
    }

    void locksOutliveTheTree()
    {
        SelectorRowsLock first;
        SelectorRowsLock second;
        first.lock(m_tree.get(), words("Width"));
        second.lock(m_tree.get(), words("Width"));
        m_tree.reset();
        first.unlock();
        m_tree = makeTree(1);
        readOnce();
        first.lock(m_tree.get(), words("Width"));
        second.unlock(); // of the tree that is gone
        QCOMPARE(locked(), words("Width"));
        first.unlock();
        QCOMPARE(locked(), QStringList());
    }
};

OBFT_TEST_MAIN(TestORXFeatureTree)
#include "tst_orxfeaturetree.moc"
