// SPDX-License-Identifier: Apache-2.0
#include "api/ApplicationSetup.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeModel.h"
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

protected:
    void prepare() override { ApplicationSetup::runOnce(); }

private slots:
    void rootsAreMadeOncePerCamera()
    {
        TestPage page;
        page.resetCamaraID(5);
        QVERIFY(page.isInitialized(5));
        QCOMPARE(page.cameraID(), qint64(-1)); // without a root it shows no camera
        page.removeCameraID(5);
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

    void camerasComeAndGo()
    {
        TestPage page;
        page.makeRoot = [&] {
            Item* root = page.addGroupOfTags({"Integer"_s});
            Item* closed = page.add(root, "Closed"_s);
            page.add(closed, "Hidden"_s, "Integer")->setVisible(false, -1);
            page.add(closed, "Shown"_s, "Integer");
            closed->setDefaultExpanded(false);
            return root;
        };
        page.resetCamaraID(1);
        QCOMPARE(page.log, (QStringList{"resetSpecial"_s, "expanded Group"_s}));
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
        QCOMPARE(page.log, (QStringList{"updateValue"_s, "expanded Group"_s}));
        QCOMPARE(view->rootTreeItem(), first);
        page.resetCamaraID(1); // shown already
        QCOMPARE(page.log.size(), 2);
        page.resetCamaraID(-1);
        QVERIFY(!view->rootTreeItem());
        page.resetCamaraID(2);
        for (const qint64 removed : {1, 2}) { // another one, then the shown one
            const qint64 shown = removed == 1 ? 2 : -1;
            const Item* gone = page.getRootItem(removed, false);
            page.removeCameraID(removed);
            QVERIFY(!Item::isAlive(gone));
            QVERIFY(!page.isInitialized(removed));
            QCOMPARE(page.cameraID(), shown);
            QCOMPARE(view->rootTreeItem() != nullptr, shown != -1);
            QCOMPARE(view->model()->rowCount() > 0, shown != -1);
        }
    }

    void borrowedItemsOutliveThePage()
    {
        Item whole(nullptr, Item::FeatureTreePage);
        Item* width = new Item(&whole, Item::FeatureTreePage);
        Item* height = new Item(&whole, Item::FeatureTreePage);
        auto* page = new TestPage;
        Item* borrowed = width;
        page->makeRoot = [&] {
            Item* root = page->addGroupOfTags({});
            borrowed->setParent(root->child(0), page->pageType());
            borrowed->registerView(page->treeView());
            return root;
        };
        page->resetCamaraID(1);
        page->removeCameraID(1);
        QCOMPARE(whole.childCount(), 2);
        QVERIFY(!width->parent(page->pageType()));
        borrowed = height;
        page->resetCamaraID(1);
        page->log.clear();
        width->notifyViewUpdate(1, -1, false);
        QCOMPARE(page->log, QStringList()); // it is not on the page any more
        delete page;
        QVERIFY(!height->parent(Item::CommonPage));
        height->setVisible(false, 1); // the view is gone
    }

    void itemsAreFoundDepthFirst()
    {
        TestPage page;
        Item* inner = nullptr;
        page.makeRoot = [&] {
            Item* root = page.addGroupOfTags({});
            root->value()->setNodeName("Gain"_s);
            inner = page.add(root->child(0), "Gain"_s, "Integer");
            page.add(root, "Gain"_s, "Integer");
            return root;
        };
        Item* root = page.getRootItem(3, true);
        QCOMPARE(page.getItemByNodeName("Gain"_s, nullptr, 3), inner);
        QVERIFY(!page.getItemByNodeName("gain"_s, nullptr, 3));
        QVERIFY(!page.getItemByNodeName("Gain"_s, inner, 3)); // not the start itself
        QCOMPARE(page.getItemByNodeName("Group"_s, root, -1), root->child(0));
        QVERIFY(!page.getItemByNodeName("Gain"_s, nullptr, 4));
    }

    void translationRenewsOwnItems()
    {
        TestPage page;
        page.makeRoot = [&] { return page.addGroupOfTags({"Command"_s, "Integer"_s}); };
        page.translations.insert("Integer"_s, "Number"_s);
        page.resetCamaraID(1);
        QCOMPARE(page.item("Integer"_s)->value()->displayName(), "Number"_s);
        page.log.clear();
        page.translations.insert("Integer"_s, "Whole number"_s);
        page.item("Command"_s)->setIsFeatureTreeItem(true);
        page.translations.insert("Command"_s, "not taken"_s);
        page.translate();
        QCOMPARE(page.item("Integer"_s)->value()->displayName(), "Whole number"_s);
        QCOMPARE(page.item("Command"_s)->value()->displayName(), "Command"_s);
        QCOMPARE(page.log, QStringList("value Command"_s)); // its editor is translated
    }

    void makingAndBorrowingItems()
    {
        const QByteArray description = DescriptionBuilder::wrap(
            DescriptionBuilder::elements("Category Root pFeature=Width; Integer Width"));
        OBDeviceControl::Init(description.constData(), nullptr);
        ORXFeatureTree tree(1);
        tree.CreateFeature();
        TestPage page;
        Item root(nullptr, page.pageType());
        Item* group = page.createOneItem(true, &root, "Custom_Group"_s, &tree, true, true);
        QCOMPARE(group->itemType(), Item::CategoryItem);
        QVERIFY(!group->isFeatureTreeItem());
        Item* own = page.createOneItem(true, group, "Custom_Own"_s, nullptr, false, false);
        QCOMPARE(own->itemType(), Item::FeatureItem);
        QVERIFY(!own->visible());
        Item* width = page.createOneItem(false, group, "Width"_s, &tree, false, true);
        QCOMPARE(width, tree.propertyItemByName("Width"_s));
        QCOMPARE(width->parent(page.pageType()), group);
        QVERIFY(width->parent(Item::FeatureTreePage));
        QVERIFY(!page.createOneItem(false, group, "Nothing"_s, &tree, false, true));
        QVERIFY(!page.createOneItem(false, group, "Width"_s, nullptr, false, true));
        QCOMPARE(group->childCount(), 2);
        width->setParent(nullptr, page.pageType());
        width->removeView(page.treeView());
    }
};

OBFT_TEST_MAIN(TestIORXFeatureWidget)
#include "tst_iorxfeaturewidget.moc"
