// SPDX-License-Identifier: Apache-2.0
#include "api/ApplicationSetup.h"
#include "basetools/ORXInterface.h"
#include "device/OBDeviceControl.h"
#include "device/ORXListenTools.h"
#include "device/ReentrancyScope.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeModel.h"
#include "styledctl/ZELCustomCheckBox.h"
#include "styledctl/ZELCustomComboBox.h"
#include "styledctl/ZELCustomDockTitleBar.h"
#include "styledctl/ZELCustomLoadingDialog.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "styledctl/ZELCustomPushButton.h"
#include "support/DescriptionBuilder.h"
#include "support/FakeHost.h"
#include "support/TestMain.h"
#include "tree/IFeatureTreeFinder.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXFeatureTreeView.h"
#include "tree/ORXPropertySpinBox.h"
#include "tree/QPropertyLineEdit.h"

#include <QMenu>
#include <QMimeData>
#include <QSignalSpy>
#include <QTextEdit>

using Item = ORXPropertyTreeItem;

namespace {

constexpr int kOverlay = 1; // index of the overlay for devices of type 0

QByteArray description()
{
    using namespace DescriptionBuilder;
    const auto q = [](const char* text) { return QString::fromLatin1(text); };
    const QString expert = child(q("Visibility"), q("Expert"));
    const QString entries = q("<EnumEntry Name=\"Mono8\"><Value>0</Value></EnumEntry>"
                              "<EnumEntry Name=\"Mono16\"><Value>7</Value></EnumEntry>");
    return wrap(
        category(q("Root"), words("Image Control")) +
        category(q("Image"), words("Width Height PixelFormat Gain ReverseX Note Detail")) +
        category(q("Control"), words("AcquisitionStart UserSetLoad DeviceReset TriggerSoftware "
                                     "Counter RegionDisplaySelector DeviceUserID")) +
        node(q("Integer"), q("Width"), child(q("Description"), q("Columns of the image."))) +
        node(q("Integer"), q("Height"), child(q("pValue"), q("HeightReg"))) +
        node(q("MaskedIntReg"), q("HeightReg"), child(q("pInvalidator"), q("Width"))) +
        node(q("Enumeration"), q("PixelFormat"), entries) + node(q("Float"), q("Gain")) +
        node(q("Boolean"), q("ReverseX"), child(q("pIsLocked"), q("TLParamsLocked"))) +
        node(q("StringReg"), q("Note")) + node(q("Integer"), q("Detail"), expert) +
        node(q("Command"), q("AcquisitionStart")) + node(q("Command"), q("UserSetLoad")) +
        node(q("Command"), q("DeviceReset")) + node(q("Command"), q("TriggerSoftware")) +
        node(q("Integer"), q("Counter"), child(q("PollingTime"), q("50"))) +
        node(q("Enumeration"), q("RegionDisplaySelector"), entries) +
        node(q("StringReg"), q("DeviceUserID")) + node(q("Integer"), q("TLParamsLocked")));
}

// Finds the trees that a test made.
class Finder : public IFeatureTreeFinder
{
public:
    ORXFeatureTree* featureTree(qint64 cameraId, bool) override { return trees.value(cameraId); }
    bool hasFeatureTree(qint64 cameraId) const override { return trees.contains(cameraId); }
    QMap<qint64, ORXFeatureTree*> trees;
};

} // namespace

class TestORXFeatureTree : public GuardedTest
{
    Q_OBJECT

protected:
    void prepare() override
    {
        ApplicationSetup::runOnce();
        m_host.serve(description());
        m_host.set("Width"_s, FakeHost::integerFeature(320, 16, 4096, 16));
        m_host.set("PixelFormat"_s, FakeHost::enumFeature(7));
        m_host.set("Gain"_s, FakeHost::floatFeature(1.5F, 0.0F, 24.0F));
        m_host.set("DeviceUserID"_s, FakeHost::textFeature("Bench 3"));
        m_host.install();
        OBDeviceControl::Init(description().constData(), nullptr);
        OBDeviceControl::GetFavoritesFeatureMap()->clear();
        OBDeviceControl::SetUserLevel(0);
        IFeatureTreeFinder::install(&m_finder);
        m_tree = makeTree(1);
        m_tree->activateWindow();
    }
    void finish() override
    {
        m_tree.reset();
        m_finder.trees.clear();
        IFeatureTreeFinder::install(nullptr);
        FakeHost::uninstall();
        m_host.clearCalls();
        for (const char* name : {"Width", "PixelFormat", "Gain", "ReverseX", "Note", "UserSetLoad"})
            m_host.fail(QString::fromLatin1(name), 0);
        OBDeviceControl::GetFavoritesFeatureMap()->clear();
        OBDeviceControl::SetUserLevel(1);
        ORXInterface::setLanguage("ENG"_s);
        ZELCustomLoadingDialog::hideLoading(kOverlay);
    }

private:
    std::unique_ptr<ORXFeatureTree> makeTree(qint64 cameraId)
    {
        auto tree = std::make_unique<ORXFeatureTree>(cameraId);
        tree->CreateFeature();
        tree->resize(500, 900);
        tree->show();
        m_finder.trees.insert(cameraId, tree.get());
        return tree;
    }

    // Reads the whole tree, then waits until nothing is under way.
    void readOnce()
    {
        m_tree->StartUpdateThread();
        QTRY_VERIFY(m_tree->HadUpdatedOnce());
        QTRY_VERIFY(editor<ORXPropertySpinBox>("Width"));
        QTRY_COMPARE(editor<ORXPropertySpinBox>("Width")->value(), qlonglong(320));
        m_host.clearCalls();
    }
    Item* item(const char* name) { return m_tree->propertyItemByName(QString::fromLatin1(name)); }
    template <typename Editor>
    Editor* editor(const char* name)
    {
        return qobject_cast<Editor*>(m_tree->treeView()->editorOf(item(name)));
    }
    Item* group() { return m_tree->rootItem()->child(0); }
    QStringList shownFavorites(ORXFeatureTree* tree)
    {
        QStringList shown;
        const QVector<Item*> copies = tree->rootItem()->child(0)->children();
        for (Item* copy : copies)
            shown.append(copy->value()->nodeName(0));
        return shown;
    }
    void setFavorites(const QStringList& list)
    {
        OBDeviceControl::GetFavoritesFeatureMap()->clear();
        for (const QString& name : list)
            OBDeviceControl::GetFavoritesFeatureMap()->append({name, name});
        m_tree->GenerateFavoritesItems();
    }
    QStringList favorites()
    {
        QStringList list;
        for (const FavoriteFeature& each : qAsConst(*OBDeviceControl::GetFavoritesFeatureMap()))
            list.append(each.first);
        return list;
    }
    QString overlay() { return ZELCustomLoadingDialog::text(kOverlay); }
    ZELCustomMessageBox* messageBox() { return m_tree->findChild<ZELCustomMessageBox*>(); }
    QMenu* menuOn(Item* target)
    {
        ORXFeatureTreeView* view = m_tree->treeView();
        view->scrollTo(view->treeModel()->indexFromItem(target, 0));
        const QRect row = view->visualRect(view->treeModel()->indexFromItem(target, 0));
        m_tree->OnTreeFeaturesCustomContextMenuRequested(row.topLeft());
        auto* menu = m_tree->findChild<QMenu*>("FavoritesMenu"_s);
        menu->hide();
        return menu;
    }
    void drop(Item* moved, Item* target)
    {
        ORXFeatureTreeView* view = m_tree->treeView();
        const QScopedPointer<QMimeData> data(
            view->treeModel()->mimeData({view->treeModel()->indexFromItem(moved, 0)}));
        const QPoint at = view->visualRect(view->treeModel()->indexFromItem(target, 0)).center();
        QDragEnterEvent enter(at, Qt::CopyAction, data.data(), Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view->viewport(), &enter);
        QDragMoveEvent move(at, Qt::CopyAction, data.data(), Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view->viewport(), &move);
        const bool allowed = target->parent(Item::FeatureTreePage) == group() || target == group();
        QCOMPARE(move.isAccepted(), allowed);
        QDropEvent dropped(at, Qt::CopyAction, data.data(), Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view->viewport(), &dropped);
    }

    FakeHost m_host;
    Finder m_finder;
    std::unique_ptr<ORXFeatureTree> m_tree;

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

    // Favourites ----------------------------------------------------------------------------------

    void menuOfFavorites_data()
    {
        // actions: of add, remove, remove all: hidden, enabled, disabled
        const Rows<int, bool, QString> row("type", "favorite", "actions");
        row("favourite", Item::FavoriteItem, true, "heh");
        row("group", Item::FavoritesGroup, false, "hhe");
        row("feature", Item::FeatureItem, false, "ehh");
        row("feature that is a favourite", Item::FeatureItem, true, "dhh");
        row("category", Item::CategoryItem, false, "dhh");
        row("own item", Item::CustomItem, false, "hhh");
    }

    void menuOfFavorites()
    {
        QFETCH(int, type);
        QFETCH(bool, favorite);
        QFETCH(QString, actions);
        if (favorite)
            OBDeviceControl::GetFavoritesFeatureMap()->append({"Width"_s, "Another name"_s});
        item("Width")->setItemType(static_cast<Item::ITEM_TYEP>(type));
        QString found;
        const QList<QAction*> shown = menuOn(item("Width"))->actions();
        for (const QAction* action : shown)
            found += QLatin1Char(!action->isVisible() ? 'h' : action->isEnabled() ? 'e' : 'd');
        QCOMPARE(found, actions);
        QCOMPARE(shown.first()->text(), "Add to Favorites"_s);
        QCOMPARE(shown.last()->text(), "Remove All"_s);
    }

    void favoritesComeAndGo()
    {
        readOnce();
        menuOn(item("Width"))->actions().first()->trigger();
        menuOn(item("Gain"))->actions().first()->trigger();
        QCOMPARE(shownFavorites(m_tree.get()), words("Width Gain"));
        QCOMPARE(favorites(), words("Width Gain"));
        QVERIFY(m_tree->IsFavoritesItem("Gain"_s));
        Item* copy = group()->child(0);
        QCOMPARE(copy->itemType(), Item::FavoriteItem);
        QCOMPARE(item("Width")->mappingItem(), copy);
        QTRY_VERIFY(m_tree->treeView()->editorOf(copy));

        m_tree->removeFavoriteItem(item("Width")); // the feature is no copy and stays
        QVERIFY(Item::isAlive(item("Width")));
        menuOn(copy)->actions().at(1)->trigger();
        QVERIFY(!Item::isAlive(copy));
        QVERIFY(!item("Width")->mappingItem());
        QCOMPARE(favorites(), words("Gain"));
        m_tree->OnActionFavoriteRemove(); // its item has gone
        QCOMPARE(favorites(), words("Gain"));

        menuOn(group())->actions().last()->trigger();
        QCOMPARE(group()->childCount(), 0);
        QVERIFY(favorites().isEmpty());
        setFavorites({"Width"_s, "NotOfThisCamera"_s, "Width"_s});
        QCOMPARE(shownFavorites(m_tree.get()), words("Width"));
        QCOMPARE(favorites().size(), 3); // those of other cameras are kept
    }

    void favoriteAndFeatureStayInStep()
    {
        readOnce();
        setFavorites({"Width"_s});
        Item* copy = group()->child(0);
        QTRY_VERIFY(m_tree->treeView()->editorOf(copy));
        auto* spin = qobject_cast<ORXPropertySpinBox*>(m_tree->treeView()->editorOf(copy));
        QCOMPARE(spin->value(), qlonglong(320));
        spin->setFocus();
        QTest::keyClick(spin, Qt::Key_Up);
        QCOMPARE(m_host.writes(), QStringList("set Width 336"_s));
        QCOMPARE(editor<ORXPropertySpinBox>("Width")->value(), qlonglong(336));
        m_host.set("Width"_s, FakeHost::integerFeature(320, 16, 4096, 16));
        QTRY_COMPARE(spin->value(), qlonglong(320)); // the camera took it back
        QTRY_COMPARE(editor<ORXPropertySpinBox>("Width")->value(), qlonglong(320));
    }

    void favoritesFollowSearchAndGroup()
    {
        readOnce();
        ORXFeatureTreeView* view = m_tree->treeView();
        const auto hidden = [&](Item* each) {
            const QModelIndex index = view->treeModel()->indexFromItem(each, 0);
            return view->isRowHidden(index.row(), index.parent());
        };
        item("Width")->setSearchText("gain"_s, 1);
        item("Gain")->setSearchText("gain"_s, 1);
        setFavorites({"Width"_s, "Gain"_s});
        QVERIFY(hidden(group()->child(0)));
        QVERIFY(!hidden(group()->child(1)));
        // While another group is shown, a new favourite does not show.
        group()->setGroupVisible(false, 1);
        setFavorites({"Gain"_s});
        QVERIFY(hidden(group()->child(0)));
    }

    void movingFavorites_data()
    {
        const Rows<QString, QString, QStringList, QStringList> row("moved", "target", "list",
                                                                   "shown");
        row("before another one", "Gain", "Height", "Width Gain Height Gain", "Width Gain Height");
        row("to the end", "Width", "", "Height Gain Width", "Height Gain Width");
        row("onto itself", "Width", "Width", "Width Height Gain", "Width Height Gain");
    }

    void movingFavorites()
    {
        QFETCH(QString, moved);
        QFETCH(QString, target);
        QFETCH(QStringList, list);
        QFETCH(QStringList, shown);
        const auto copyOf = [this](const QString& name) { return group()->findChild(name); };
        setFavorites(words("Width Height Gain"));
        for (int i = 0; i < 2; ++i) { // moving it again changes nothing more
            m_tree->moveFavorteItem(copyOf(moved), copyOf(target));
            QCOMPARE(favorites(), list);
            QCOMPARE(shownFavorites(m_tree.get()), shown);
        }
    }

    void draggingFavorites()
    {
        setFavorites(words("Width Height Gain"));
        QCoreApplication::processEvents();
        drop(group()->child(2), group()->child(0));
        QCOMPARE(shownFavorites(m_tree.get()), words("Gain Width Height"));
        const QStringList before = favorites();
        QCoreApplication::processEvents();
        drop(group()->child(0), item("ReverseX"));
        QCOMPARE(favorites(), before);
    }

    void favoritesOfAnotherTree()
    {
        const std::unique_ptr<ORXFeatureTree> other = makeTree(2);
        setFavorites(words("Width Gain"));
        m_tree->notifyFavoriteFeatureChange();
        QCOMPARE(shownFavorites(other.get()), words("Width Gain"));
        QTRY_VERIFY(other->treeView()->editorOf(other->rootItem()->child(0)->child(0)));
        m_tree->OnActionFavoriteRemoveAll();
        QCOMPARE(shownFavorites(other.get()), QStringList());
    }
};

OBFT_TEST_MAIN(TestORXFeatureTree)
#include "tst_orxfeaturetree.moc"
