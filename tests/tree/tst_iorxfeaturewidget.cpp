// SPDX-License-Identifier: Apache-2.0
#include "api/ApplicationSetup.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeModel.h"
#include "support/FakeHost.h"
#include "support/TestMain.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXFeatureTreeView.h"
#include "tree/TestPage.h"

#include "device/OBDeviceControl.h"
#include "support/DescriptionBuilder.h"

using Item = ORXPropertyTreeItem;

class TestIORXFeatureWidget : public GuardedTest
{
    Q_OBJECT
private slots:
    void rootsAreMadeOncePerCamera();
    void aPageWithoutRootShowsNoCamera();
    void switchingCameras();
    void removingACamera_data();
    void removingACamera();
    void borrowedItemsOutliveThePage();
    void itemsAreFoundDepthFirst();
    void translationRenewsOwnItems();
    void makingAndBorrowingItems();

protected:
    void prepare() override { ApplicationSetup::runOnce(); }
};

void TestIORXFeatureWidget::rootsAreMadeOncePerCamera()
{
    TestPage page;
    int made = 0;
    page.makeRoot = [&] {
        ++made;
        return new Item(nullptr, page.pageType());
    };
    QVERIFY(!page.getRootItem(-1, true)); // no current camera
    QCOMPARE(made, 0);
    QVERIFY(!page.getRootItem(5, false));
    QVERIFY(!page.isInitialized(5));
    Item* root = page.getRootItem(5, true);
    QVERIFY(root);
    QCOMPARE(page.getRootItem(5, true), root);
    QCOMPARE(made, 1);
    QVERIFY(page.getRootItem(6, true) != root);
}

void TestIORXFeatureWidget::aPageWithoutRootShowsNoCamera()
{
    TestPage page;
    page.resetCamaraID(5);
    QVERIFY(page.isInitialized(5));
    QVERIFY(!page.getRootItem(5, false));
    QCOMPARE(page.cameraID(), qint64(-1));
    page.removeCameraID(5);
    QVERIFY(!page.isInitialized(5));
}

void TestIORXFeatureWidget::switchingCameras()
{
    TestPage page;
    page.makeRoot = [&] {
        Item* root = page.addGroupOfTags({QStringLiteral("Integer")});
        Item* closed = page.add(root, QStringLiteral("Closed"));
        page.add(closed, QStringLiteral("Hidden"), "Integer")->setVisible(false, -1);
        page.add(closed, QStringLiteral("Shown"), "Integer");
        closed->setDefaultExpanded(false);
        return root;
    };
    page.resetCamaraID(1);
    QCOMPARE(page.log, QStringList(QStringLiteral("resetSpecial")));
    ORXFeatureTreeView* view = page.treeView();
    QCOMPARE(view->rootTreeItem(), page.getRootItem(1, false));
    const auto index = [&](const char* name) {
        return view->treeModel()->indexFromItem(page.item(QString::fromLatin1(name)), 0);
    };
    QVERIFY(view->isExpanded(index("Group")));
    QVERIFY(!view->isExpanded(index("Closed")));
    QVERIFY(view->isRowHidden(0, index("Closed")));
    QVERIFY(!view->isRowHidden(1, index("Closed")));

    page.resetCamaraID(2);
    Item* first = page.getRootItem(1, false);
    QVERIFY(first != view->rootTreeItem()); // the first root is kept
    page.log.clear();
    page.resetCamaraID(1);
    QCOMPARE(page.log, QStringList(QStringLiteral("updateValue")));
    QCOMPARE(view->rootTreeItem(), first);
    page.resetCamaraID(1); // shown already
    QCOMPARE(page.log.size(), 1);
    page.resetCamaraID(-1);
    QVERIFY(!view->rootTreeItem());
}

void TestIORXFeatureWidget::removingACamera_data()
{
    QTest::addColumn<qint64>("removed");
    QTest::addColumn<qint64>("shown");
    QTest::newRow("the shown one") << qint64(2) << qint64(-1);
    QTest::newRow("another one") << qint64(1) << qint64(2);
}

void TestIORXFeatureWidget::removingACamera()
{
    QFETCH(qint64, removed);
    QFETCH(qint64, shown);
    TestPage page;
    page.makeRoot = [&] { return page.addGroupOfTags({QStringLiteral("Integer")}); };
    page.resetCamaraID(1);
    page.resetCamaraID(2);
    const Item* gone = page.getRootItem(removed, false);
    page.removeCameraID(removed);
    QVERIFY(!Item::isAlive(gone));
    QVERIFY(!page.isInitialized(removed));
    QCOMPARE(page.cameraID(), shown);
    QCOMPARE(page.treeView()->rootTreeItem() != nullptr, shown != -1);
    QCOMPARE(page.treeView()->model()->rowCount() > 0, shown != -1);
}

void TestIORXFeatureWidget::borrowedItemsOutliveThePage()
{
    Item whole(nullptr, Item::FeatureTreePage);
    Item* width = new Item(&whole, Item::FeatureTreePage);
    Item* height = new Item(&whole, Item::FeatureTreePage);
    auto* page = new TestPage;
    page->makeRoot = [&] {
        Item* root = page->addGroupOfTags({});
        width->setParent(root->child(0), page->pageType());
        height->setParent(root->child(0), page->pageType());
        width->registerView(page->treeView());
        height->registerView(page->treeView());
        return root;
    };
    page->resetCamaraID(1);
    page->removeCameraID(1);
    QCOMPARE(whole.childCount(), 2);
    QVERIFY(!width->parent(page->pageType()));
    page->resetCamaraID(1);
    delete page;
    QVERIFY(!height->parent(Item::CommonPage));
    width->notifyViewUpdate(1, -1, false); // the view is gone
    height->setVisible(false, 1);
}

void TestIORXFeatureWidget::itemsAreFoundDepthFirst()
{
    TestPage page;
    Item* inner = nullptr;
    page.makeRoot = [&] {
        Item* root = page.addGroupOfTags({});
        root->value()->setNodeName(QStringLiteral("Gain"));
        inner = page.add(root->child(0), QStringLiteral("Gain"), "Integer");
        page.add(root, QStringLiteral("Gain"), "Integer");
        return root;
    };
    Item* root = page.getRootItem(3, true);
    QCOMPARE(page.getItemByNodeName(QStringLiteral("Gain"), nullptr, 3), inner);
    QVERIFY(!page.getItemByNodeName(QStringLiteral("gain"), nullptr, 3));
    QVERIFY(!page.getItemByNodeName(QStringLiteral("Gain"), inner, 3)); // not the start itself
    QCOMPARE(page.getItemByNodeName(QStringLiteral("Group"), root, -1), root->child(0));
    QVERIFY(!page.getItemByNodeName(QStringLiteral("Gain"), nullptr, 4));
}

void TestIORXFeatureWidget::translationRenewsOwnItems()
{
    TestPage page;
    page.makeRoot = [&] {
        return page.addGroupOfTags({QStringLiteral("Command"), QStringLiteral("Integer")});
    };
    page.resetCamaraID(1);
    page.log.clear();
    page.translations.insert(QStringLiteral("Integer"), QStringLiteral("Whole number"));
    page.item(QStringLiteral("Command"))->setIsFeatureTreeItem(true);
    page.translations.insert(QStringLiteral("Command"), QStringLiteral("not taken"));
    page.translate();
    QCOMPARE(page.item(QStringLiteral("Integer"))->value()->displayName(),
             QStringLiteral("Whole number"));
    QCOMPARE(page.item(QStringLiteral("Command"))->value()->displayName(),
             QStringLiteral("Command"));
    QCOMPARE(page.log, QStringList(QStringLiteral("value Command"))); // its editor is translated
}

void TestIORXFeatureWidget::makingAndBorrowingItems()
{
    const QByteArray description = DescriptionBuilder::wrap(
        DescriptionBuilder::category(QStringLiteral("Root"), {QStringLiteral("Width")})
        + DescriptionBuilder::node(QStringLiteral("Integer"), QStringLiteral("Width")));
    OBDeviceControl::Init(description.constData(), nullptr);
    ORXFeatureTree tree(1);
    tree.CreateFeature();
    TestPage page;
    Item root(nullptr, page.pageType());
    Item* group =
        page.createOneItem(true, &root, QStringLiteral("Custom_Group"), &tree, true, true);
    QCOMPARE(group->itemType(), Item::CategoryItem);
    QVERIFY(!group->isFeatureTreeItem());
    Item* own = page.createOneItem(true, group, QStringLiteral("Custom_Own"), nullptr, false, false);
    QCOMPARE(own->itemType(), Item::FeatureItem);
    QVERIFY(!own->visible());
    Item* width = page.createOneItem(false, group, QStringLiteral("Width"), &tree, false, true);
    QCOMPARE(width, tree.propertyItemByName(QStringLiteral("Width")));
    QCOMPARE(width->parent(page.pageType()), group);
    QVERIFY(width->parent(Item::FeatureTreePage));
    QVERIFY(!page.createOneItem(false, group, QStringLiteral("Nothing"), &tree, false, true));
    QVERIFY(!page.createOneItem(false, group, QStringLiteral("Width"), nullptr, false, true));
    QCOMPARE(group->childCount(), 2);
    width->setParent(nullptr, page.pageType());
    width->removeView(page.treeView());
}

OBFT_TEST_MAIN(TestIORXFeatureWidget)
#include "tst_iorxfeaturewidget.moc"
