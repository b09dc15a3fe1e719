// SPDX-License-Identifier: Apache-2.0
#include "basetools/ORXInterface.h"
#include "device/OBDeviceControl.h"
#include "device/ORXListenTools.h"
#include "device/ReentrancyScope.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeModel.h"
#include "styledctl/ZELCustomCheckBox.h"
#include "styledctl/ZELCustomComboBox.h"
#include "styledctl/ZELCustomDockTitleBar.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "styledctl/ZELCustomPushButton.h"
#include "support/GuiThreadReads.h"
#include "tree/FeatureTreeTest.h"
#include "tree/ORXPropertySpinBox.h"
#include "tree/QPropertyLineEdit.h"

#include <QSignalSpy>
#include <QTextEdit>

class TestORXFeatureTree : public FeatureTreeTest
{
    Q_OBJECT

private slots:
    // Reading and writing -------------------------------------------------------------------------
    void firstReadFillsTheEditors()
    {
        QSignalSpy firstRead(m_tree.get(), &ORXFeatureTree::SigFirstEndUpdateFeature);
        QCOMPARE(m_tree->rootItem()->childCount(), 3); // favourites and two categories
        readOnce();
        QCOMPARE(firstRead.size(), 1);
        QCOMPARE(firstRead.first().first().toLongLong(), 1LL);
        QCOMPARE(editor<ORXPropertySpinBox>("Width")->singleStep(), qlonglong(16));
        QTRY_COMPARE(editor<ZELCustomComboBox>("PixelFormat")->currentText(), "Mono16"_s);
        QTRY_COMPARE(editor<QPropertyLineEdit>("Gain")->text(), "1.5000"_s);
        QTRY_VERIFY(editor<ZELCustomCheckBox>("ReverseX")->isChecked());
        QTRY_VERIFY(editor<ZELCustomPushButton>("AcquisitionStart")->isEnabled());
        QVERIFY(m_host.writes().isEmpty());
    }

    void oneEdit()
    {
        readOnce();
        m_tree->PauseUpdateThread(); // no polling: only the edit's own reads are counted
        m_tree->StopThread(false);
        QCoreApplication::processEvents();
        m_host.clearCalls();
        auto* spin = editor<ORXPropertySpinBox>("Width");
        spin->setFocus();
        spin->selectAll();
        QTest::keyClicks(spin, "650"_s);
        QTest::keyClick(spin, Qt::Key_Return);
        QCOMPARE(m_host.writes(), QStringList("set Width 640"_s)); // on the grid
        QVERIFY(MessageGuard::contains("NodeName:Width, NodeValue:640, [CameraID:1]"_s));
        QCOMPARE(overlay(), "Setting features..."_s);
        QTRY_VERIFY(overlay().isEmpty());
        // Exactly what the write invalidates is read again, each once.
        QStringList reads = m_host.calls().filter("get "_s);
        reads.sort();
        QCOMPARE(reads, QStringList({"get Height"_s, "get Width"_s}));
        QCOMPARE(spin->value(), qlonglong(640));
    }

    void writesByTag_data()
    {
        QTest::addColumn<QString>("tag");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("call"); // empty: refused
        const auto row = [](const char* tag, const char* name, const QVariant& value,
                            const char* call) {
            QTest::newRow(*tag ? tag : "empty tag")
                << QString::fromLatin1(tag) << QString::fromLatin1(name) << value
                << QString::fromLatin1(call);
        };
        row("Boolean", "ReverseX", false, "set ReverseX 0");
        row("Command", "AcquisitionStart", QVariant(), "set AcquisitionStart ");
        row("Integer", "Width", qlonglong(INT64_MIN), "set Width -9223372036854775808");
        row("IntReg", "Width", 5, "set Width 5");
        row("Enumeration", "PixelFormat", 4000000000LL, "set PixelFormat 4000000000");
        row("Float", "Gain", 2.5F, "set Gain 2.5");
        row("Converter", "Gain", 2.5, "set Gain 2.5");
        row("StringReg", "Note", "a b"_s, "set Note a b");
        row("String", "Note", "c"_s, "set Note c");
        row("Category", "Image", 1, "");
        row("CustomTagNameDraw", "Width", 1, "");
        row("", "Width", 1, "");
    }

    void writesByTag()
    {
        QFETCH(QString, tag);
        QFETCH(QString, name);
        QFETCH(QVariant, value);
        QFETCH(QString, call);
        QCOMPARE(m_tree->setFeatureValue(tag, name, value), !call.isEmpty());
        QCOMPARE(m_host.writes().join(QLatin1Char('|')).trimmed(), call.trimmed());
        QCOMPARE(overlay().isEmpty(), call.isEmpty());
        QVERIFY(!m_tree->setFeatureValue(tag, QString(), value)); // no name
        m_tree->readyForDelete();
        m_host.clearCalls();
        QVERIFY(!m_tree->setFeatureValue(tag, name, value));
        QVERIFY(m_host.writes().isEmpty());
    }

    void refusedWrites_data()
    {
        const Rows<QString, QString, QVariant, QString> row("tag", "name", "value", "quoted");
        row("integer", "Integer", "Width", 640, "640");
        row("float", "Float", "Gain", 2.5F, "2.5");
        row("boolean", "Boolean", "ReverseX", true, "1");
        row("enumeration", "Enumeration", "PixelFormat", 7, "7");
        row("text", "StringReg", "Note", "a<b>"_s, "a&lt;b&gt;");
    }

    void refusedWrites()
    {
        QFETCH(QString, tag);
        QFETCH(QString, name);
        QFETCH(QVariant, value);
        QFETCH(QString, quoted);
        constexpr int kCode = 5;
        m_host.fail(name, kCode);
        MessageGuard::expectMessage(name); // the device layer's own line
        QVERIFY(!m_tree->setFeatureValue(tag, name, value));
        QVERIFY(overlay().isEmpty());
        const ZELCustomMessageBox* box = messageBox();
        QVERIFY(box && box->isVisible());
        QCOMPARE(box->cCaption(), "Prompt"_s);
        QCOMPARE(box->cTextTitle(), "Failed to set the feature value."_s);
        QCOMPARE(box->cContent(), "Node '%1':failed to save value '%2'\r\n"_s.arg(name, quoted) +
                                      ORXInterface::IntCode2DisplayCode(kCode));
        QCOMPARE(box->cHintStyle(), int(ZELCustomMessageBox::Hint_Error));
        QVERIFY(box->cButton(ZELCustomMessageBox::Result_Ok));
        QVERIFY(!box->cButton(ZELCustomMessageBox::Result_Cancel));
        QVERIFY(!MessageGuard::contains("NodeValue:"_s));
    }

    void oneMessageAtATime()
    {
        m_tree->ShowMessage(nullptr, "first"_s, "a"_s, QString(), 3);
        m_tree->ShowMessage(nullptr, "second"_s, "b"_s, QString(), 3);
        QCOMPARE(m_tree->findChildren<ZELCustomMessageBox*>().size(), 1);
        QCOMPARE(messageBox()->cTextTitle(), "first"_s);
        messageBox()->hide();
        m_tree->ShowMessage(nullptr, "third"_s, "c"_s, "Caption"_s, 5);
        QCOMPARE(m_tree->findChildren<ZELCustomMessageBox*>().size(), 1);
        QCOMPARE(messageBox()->cTextTitle(), "third"_s);
        QCOMPARE(messageBox()->cCaption(), "Caption"_s);
    }

    void messagesWithoutText()
    {
        m_tree->ShowMessage(nullptr, "words"_s, QString(), QString(), 5);
        QCOMPARE(messageBox()->cContent(), "words"_s);
        QVERIFY(messageBox()->cTextTitle().isEmpty());
    }

    void firstStartAfterAStopIsSwallowed()
    {
        readOnce();
        m_tree->OnCameraStopShot();
        const QString start = "AcquisitionStart"_s;
        QVERIFY(m_tree->OnCommandNodeBtnClicked("TriggerSoftware"_s));
        QVERIFY(!m_tree->OnCommandNodeBtnClicked(start));
        QCOMPARE(m_host.writes().filter(start).size(), 0);
        QVERIFY(m_tree->OnCommandNodeBtnClicked(start));
        QCOMPARE(m_host.writes().filter(start).size(), 1);
        QVERIFY(MessageGuard::contains("NodeName:AcquisitionStart, [CameraID:1]"_s));
    }

    void refusedCommand()
    {
        readOnce();
        m_host.fail("UserSetLoad"_s, 5);
        MessageGuard::expectMessage("UserSetLoad"_s);
        QVERIFY(m_tree->setFeatureValue("Command"_s, "UserSetLoad"_s, {}));
        QVERIFY(MessageGuard::contains("Node 'UserSetLoad': Failed to execute Node. 5\r\n"_s +
                                       ORXInterface::IntCode2DisplayCode(5)));
        QVERIFY(!messageBox());
        QVERIFY(!overlay().isEmpty());
        QTRY_VERIFY(overlay().isEmpty()); // the invalidation pass ran all the same
    }

    void deviceReset_data()
    {
        const Rows<bool> row("known");
        row("tree still there", true);
        row("tree gone", false);
    }

    void deviceReset()
    {
        QFETCH(bool, known);
        readOnce();
        if (!known)
            m_finder.trees.clear();
        QCOMPARE(m_tree->setFeatureValue("Command"_s, "DeviceReset"_s, {}), known);
        QVERIFY(overlay().isEmpty());
        QCOMPARE(messageBox()->cContent(),
                 "The camera is about to reboot. Reconnect the\ncamera later."_s);
        QCOMPARE(messageBox()->cHintStyle(), int(ZELCustomMessageBox::Hint_Information));
        QVERIFY(!editor<ORXPropertySpinBox>("Width")->isEnabled());
        QVERIFY(!m_tree->isCanEdit());
    }

    void loadingASetKeepsTheShownRegion()
    {
        m_host.set("RegionDisplaySelector"_s, FakeHost::enumFeature(7));
        readOnce();
        QSignalSpy osd(m_tree.get(), &ORXFeatureTree::SigFeatureChangeOsd);
        QVERIFY(m_tree->OnCommandNodeBtnClicked("UserSetLoad"_s));
        QCOMPARE(m_host.writes().last(), "set RegionDisplaySelector 7"_s);
        QCOMPARE(osd.size(), 1);
        m_host.fail("RegionDisplaySelector"_s, 5);
        MessageGuard::expectMessage("RegionDisplaySelector"_s);
        MessageGuard::ignoreMessage(QtCriticalMsg, "GetOstSettingData failed");
        QVERIFY(m_tree->OnCommandNodeBtnClicked("UserSetLoad"_s));
        m_host.fail("RegionDisplaySelector"_s, 0);
    }

    void itemBasedWrite()
    {
        readOnce();
        QVERIFY(!m_tree->setFeatureValue(nullptr, 5, true));
        QVERIFY(m_tree->setFeatureValue(item("Width"), 640, true));
        QCOMPARE(editor<ORXPropertySpinBox>("Width")->value(), qlonglong(640));
        m_host.fail("Width"_s, 5);
        MessageGuard::expectMessage("Width"_s);
        QVERIFY(!m_tree->setFeatureValue(item("Width"), 800, true)); // shown whatever the outcome
        QCOMPARE(editor<ORXPropertySpinBox>("Width")->value(), qlonglong(800));
    }

    void directRead_data()
    {
        // empty value: nothing is read
        const Rows<QString, QString> row("name", "value");
        row("integer", "Width", "320");
        row("float", "Gain", "1.5000");
        row("enumeration without its entries", "PixelFormat", "7");
        row("boolean", "ReverseX", "True");
        row("text", "DeviceUserID", "Bench 3");
        row("command", "AcquisitionStart", "");
        row("category", "Image", "");
    }

    void directRead()
    {
        QFETCH(QString, name);
        QFETCH(QString, value);
        const GuiThreadReads::ReadingHere reading;
        Item* feature = m_tree->propertyItemByName(name);
        QCOMPARE(m_tree->rereadFeatureValue(feature, true), !value.isEmpty());
        const CTreeItemValue* read = feature->value();
        if (!value.isEmpty())
            QCOMPARE(read->displayValue().isEmpty() ? read->value().toString()
                                                    : read->displayValue(),
                     value);
        m_host.failMode(name, 3);
        const QString before = read->value().toString();
        QVERIFY(!m_tree->rereadFeatureValue(feature, false)); // not readable
        QCOMPARE(read->value().toString(), before);
        m_host.failMode(name, 0);
        QVERIFY(!m_tree->rereadFeatureValue(nullptr, true));
    }

    // Passes --------------------------------------------------------------------------------------
    void userLevel()
    {
        readOnce();
        QVERIFY(item("Detail")->visible());
        OBDeviceControl::SetUserLevel(1);
        m_tree->OnUserLevelChanged();
        QTRY_VERIFY(!item("Detail")->visible());
        QTRY_VERIFY(!m_tree->treeView()->editorOf(item("Detail")));
        QVERIFY(item("Width")->visible());
        OBDeviceControl::SetUserLevel(0);
        m_tree->OnUserLevelChanged();
        QTRY_VERIFY(m_tree->treeView()->editorOf(item("Detail")));
    }

    // Both threads are busy, one of them with the level before, when the level changes again.
    void lastUserLevelWins()
    {
        readOnce();
        m_host.setLatencyMs(3);
        m_tree->RefreshFeatures();
        OBDeviceControl::SetUserLevel(1);
        m_tree->OnUserLevelChanged();
        QTRY_VERIFY(m_host.count("mode Detail"_s) >= 2);
        OBDeviceControl::SetUserLevel(0);
        m_tree->OnUserLevelChanged();
        m_host.setLatencyMs(0);
        QTRY_VERIFY(!m_tree->isReading());
        QTRY_VERIFY(item("Detail")->visible());
    }

    void refreshDropsTheHostsCache()
    {
        readOnce();
        m_tree->RefreshFeatures();
        QCOMPARE(m_host.count("invalidate"_s), 0);
        m_tree->OnBtnRefresh();
        QCOMPARE(m_host.count("invalidate"_s), 1);
        m_host.set("Height"_s, FakeHost::integerFeature(99));
        QTRY_COMPARE(item("Height")->value()->value().toInt(), 1); // the refresh was under way
        m_tree->UpdateFeatures(FEATURES_UPDATE_POLLING, QString(), {}, true, false);
        QCOMPARE(m_host.count("invalidate"_s), 2);
    }

    void pollingFollowsTheFirstRead()
    {
        readOnce();
        m_tree->OnTimerFeatureNoCache(); // what the polling timer does every two seconds
        m_host.set("Counter"_s, FakeHost::integerFeature(77));
        QTRY_COMPARE(editor<ORXPropertySpinBox>("Counter")->value(), qlonglong(77));
        QCOMPARE(m_host.count("get Width"_s), 0);
        m_tree->PauseUpdateThread();
        m_host.clearCalls();
        m_tree->OnTimerFeatureNoCache();
        QVERIFY(m_host.calls().isEmpty());
    }

    void acquisitionReadsLockableFeatures()
    {
        readOnce();
        QVERIFY(editor<ZELCustomCheckBox>("ReverseX")->isEnabled());
        m_host.set("TLParamsLocked"_s, FakeHost::integerFeature(1));
        m_tree->OnCameraStartShot();
        QTRY_VERIFY(!editor<ZELCustomCheckBox>("ReverseX")->isEnabled());
        QCOMPARE(m_host.count("get Gain"_s), 0);
        m_host.set("TLParamsLocked"_s, FakeHost::integerFeature(0));
        m_tree->OnCameraStopShot();
        QTRY_VERIFY(editor<ZELCustomCheckBox>("ReverseX")->isEnabled());
    }

    void namedFeatureIsReadAgain()
    {
        readOnce();
        m_host.set("Gain"_s, FakeHost::floatFeature(3.0F, 0.0F, 24.0F));
        NamedFeature other = {2, "Gain"};
        ORXListenTools::instance()->notifyListeners(ListenCode::kFeatureChanged, &other);
        NamedFeature own = {1, "Width"};
        ORXListenTools::instance()->notifyListeners(ListenCode::kFeatureChanged, &own);
        QTRY_VERIFY(m_host.count("get Width"_s) > 0);
        QCOMPARE(m_host.count("get Gain"_s), 0);
        own.pName = "Gain";
        ORXListenTools::instance()->notifyListeners(ListenCode::kFeatureChanged, &own);
        QTRY_COMPARE(editor<QPropertyLineEdit>("Gain")->text(), "3.0000"_s);
    }

    void overlayIndex()
    {
        QCOMPARE(getLoadingIndex(0, 5), 1);
        QCOMPARE(getLoadingIndex(8, 5), 8);
        m_tree->ShowLoadingFeatures(true, false); // only device type 8 shows updates
        QVERIFY(overlay().isEmpty());
        m_tree->ShowLoadingFeatures(true, true);
        QCOMPARE(overlay(), "Setting features..."_s);
        m_tree->ShowLoadingFeatures(false, true);
        QVERIFY(overlay().isEmpty());
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
        m_tree->treeView()->setCurrentIndex(
            m_tree->treeView()->treeModel()->indexFromItem(item("Width"), 0));
        QVERIFY(!m_tree->findChild<QTextEdit*>()->toPlainText().isEmpty());
        QVERIFY(m_tree->setFeatureValue("Integer"_s, "Width"_s, 640));
        m_tree->OnCameraClose();
        QVERIFY(overlay().isEmpty()); // nothing would hide it later
        QCOMPARE(m_tree->cameraID(), qint64(-1));
        QVERIFY(m_tree->findChild<QTextEdit*>()->toPlainText().isEmpty());
        QCOMPARE(m_tree->treeView()->model()->rowCount(), 0);
        m_host.clearCalls();
        m_tree->OnTimeInvalidaterFeaturesUpdate();
        m_tree->OnTimerFeatureNoCache();
        QCoreApplication::processEvents();
        QVERIFY(m_host.calls().isEmpty());
        m_tree->removeCameraID(1);
        QVERIFY(m_tree->AllTreeItemsMap().isEmpty());
    }

    void pausedTreeStillHidesTheOverlay()
    {
        readOnce();
        m_tree->PauseUpdateThread();
        QVERIFY(m_tree->setFeatureValue("Integer"_s, "Width"_s, 640));
        QVERIFY(!overlay().isEmpty());
        QTRY_VERIFY(overlay().isEmpty());
    }

    // The host may ask for the release from inside its callback; that is put off until the write
    // ends.
    void releasedDuringAWrite()
    {
        readOnce();
        bool during = false;
        m_host.beforeGet = [&](const QString& name) {
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
        m_host.beforeGet = nullptr;
        QTRY_VERIFY(!m_tree);
    }

    void descriptionFollowsRowAndLanguage()
    {
        readOnce();
        const auto* panel = m_tree->findChild<QTextEdit*>();
        ORXFeatureTreeView* view = m_tree->treeView();
        emit view->pressed(view->treeModel()->indexFromItem(item("Width"), 0));
        QVERIFY(panel->toPlainText().contains("Columns of the image."_s));
        const QString english = panel->toPlainText();
        ORXInterface::setLanguage("CH"_s);
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(m_tree.get(), &change);
        QVERIFY(panel->toPlainText() != english);
        QVERIFY(!panel->toPlainText().isEmpty());
        editor<QPropertyLineEdit>("Gain")->setFocus(); // the row being edited is explained
        QVERIFY(panel->toPlainText().contains("Gain"_s));
    }

    void titleShowsTheUsersName()
    {
        ZELCustomDockTitleBar title;
        m_tree->setDockTitleBar(&title);
        readOnce();
        QTRY_COMPARE(title.cTitleText(), "Bench 3"_s);
    }
};

OBFT_TEST_MAIN(TestORXFeatureTree)
#include "tst_orxfeaturetree.moc"
