// SPDX-License-Identifier: Apache-2.0
#include "basetools/ORXInterface.h"
#include "model/CTreeIntergerItemValue.h"
#include "model/IORXFeatureNotify.h"
#include "model/ORXPropertyTreeItem.h"
#include "support/TestMain.h"

#include <atomic>
#include <functional>
#include <memory>
#include <thread>

namespace {

constexpr qint64 kCamera = 7;
using Item = ORXPropertyTreeItem;

// Notes what it is told; may act on it.
class RecordingView : public IORXFeatureNotify
{
public:
    void itemVisibleChanged(qint64 cameraId, Item* item, bool visible) override
    {
        note(QStringLiteral("%1 visible %2").arg(cameraId).arg(visible), item);
    }
    void itemExpanded(qint64, Item* item, bool expanded) override
    {
        note(QStringLiteral("expanded %1").arg(expanded), item);
    }
    void itemValueChanged(qint64, Item* item, int column, bool recreate) override
    {
        note(QStringLiteral("value %1 %2").arg(column).arg(recreate), item);
    }
    void itemSpecialInfoChanged(qint64, Item* item, int info) override
    {
        note(QStringLiteral("special %1").arg(info), item);
    }
    void note(const QString& what, Item* item)
    {
        log.append(what);
        items.append(item);
        if (onNote)
            onNote();
    }
    QStringList log;
    QList<Item*> items;
    std::function<void()> onNote;
};

CTreeIntergerItemValue* integer(Item& item)
{
    return dynamic_cast<CTreeIntergerItemValue*>(item.value());
}

} // namespace

class TestORXPropertyTreeItem : public GuardedTest
{
    Q_OBJECT
private slots:
    void changingTheTagKeepsNames();
    void publishingTellsOnlyOfChanges();
    void representationNeedsANewEditor();
    void mirrorFollows();
    void untiedMirrorIsLeftAlone();
    void visibilityNeedsAllThreeFlags();
    void categoriesFollowTheirChildren();
    void mirrorVisibilityUsesItsOwnGroup();
    void search_data();
    void search();
    void searchCounts();
    void highlighting();
    void oneParentPerPage();
    void rowsStayRightWhenChildrenMove();
    void destroyedItemsLeaveBorrowingPages();
    void aViewMayDestroyTheItem();
    void aRemovedViewIsNotCalledByAWorker();
};

void TestORXPropertyTreeItem::changingTheTagKeepsNames()
{
    Item item(nullptr, Item::FeatureTreePage);
    item.value()->setNodeName(QStringLiteral("Width"));
    item.value()->setDocText(QStringLiteral("doc"));
    item.setTagName(QStringLiteral("IntReg"));
    QVERIFY(integer(item));
    integer(item)->setNumbers({5, 0, 9, 1});
    item.setTagName(QString());
    QCOMPARE(integer(item)->numbers().m_nValue, qint64(5));
    item.setTagName(QStringLiteral("Integer"));
    QCOMPARE(integer(item)->numbers().m_nValue, qint64(-1));
    QCOMPARE(item.value()->nodeName(0), QStringLiteral("Width"));
    QCOMPARE(item.value()->docText(), QStringLiteral("doc"));
}

void TestORXPropertyTreeItem::publishingTellsOnlyOfChanges()
{
    Item item(nullptr, Item::FeatureTreePage);
    item.setTagName(QStringLiteral("Integer"));
    RecordingView view;
    item.registerView(&view);
    QVERIFY(item.endUpdateItem(kCamera));
    QVERIFY(!item.endUpdateItem(kCamera));
    QCOMPARE(view.log, QStringList(QStringLiteral("value -1 0")));
    item.setReadOnly(false);
    QVERIFY(item.endUpdateItem(kCamera));
}

void TestORXPropertyTreeItem::representationNeedsANewEditor()
{
    Item item(nullptr, Item::FeatureTreePage);
    item.setTagName(QStringLiteral("Integer"));
    item.endUpdateItem(kCamera);
    RecordingView view;
    item.registerView(&view);
    integer(item)->setNumber(3);
    item.endUpdateItem(kCamera);
    integer(item)->setRepresentation(QStringLiteral("HexNumber"));
    item.endUpdateItem(kCamera);
    QCOMPARE(view.log, QStringList({QStringLiteral("value -1 0"), QStringLiteral("value -1 1")}));
}

void TestORXPropertyTreeItem::mirrorFollows()
{
    Item item(nullptr, Item::FeatureTreePage);
    item.setTagName(QStringLiteral("Integer"));
    Item mirror(nullptr, Item::CommonPage);
    mirror.copy(&item);
    item.setMappingItem(&mirror);
    QCOMPARE(mirror.mappingItem(), &item);
    RecordingView view;
    mirror.registerView(&view);
    integer(item)->setNumbers({8, 0, 9, 1});
    item.endUpdateItem(kCamera);
    QCOMPARE(integer(mirror)->numbers().m_nValue, qint64(8));
    QCOMPARE(view.log, QStringList(QStringLiteral("value -1 0")));
    QCOMPARE(view.items.first(), &mirror);
    item.setReadOnly(false);
    QVERIFY(!mirror.readOnly());
    // Edits through the mirror come back the same way.
    integer(mirror)->setNumber(2);
    mirror.notifyViewUpdate(kCamera, 2, false);
    QCOMPARE(integer(item)->numbers().m_nValue, qint64(2));
}

void TestORXPropertyTreeItem::untiedMirrorIsLeftAlone()
{
    Item item(nullptr, Item::FeatureTreePage);
    auto mirror = std::make_unique<Item>(nullptr, Item::CommonPage);
    item.setMappingItem(mirror.get());
    Item second(nullptr, Item::CommonPage);
    item.setMappingItem(&second);
    QVERIFY(!mirror->mappingItem());
    item.setMappingItem(mirror.get());
    QVERIFY(!second.mappingItem());
    mirror.reset();
    QVERIFY(!item.mappingItem());
    item.notifyViewUpdate(kCamera, -1, false);
}

void TestORXPropertyTreeItem::visibilityNeedsAllThreeFlags()
{
    Item item(nullptr, Item::FeatureTreePage);
    RecordingView view;
    item.registerView(&view);
    item.setVisible(true, kCamera); // unchanged
    item.setVisible(false, kCamera);
    item.setGroupVisible(false, kCamera);
    item.setVisible(true, kCamera);
    item.setGroupVisible(true, kCamera);
    QCOMPARE(view.log, QStringList({QStringLiteral("7 visible 0"), QStringLiteral("7 visible 0"),
                                    QStringLiteral("7 visible 0"), QStringLiteral("7 visible 1")}));
}

void TestORXPropertyTreeItem::categoriesFollowTheirChildren()
{
    Item category(nullptr, Item::FeatureTreePage);
    auto* a = new Item(&category, Item::FeatureTreePage);
    auto* b = new Item(&category, Item::FeatureTreePage);
    category.setVisible(false, kCamera);
    QVERIFY(category.visible());
    a->setVisible(false, kCamera);
    QVERIFY(category.visible());
    b->setVisible(false, kCamera);
    QVERIFY(!category.visible());
}

void TestORXPropertyTreeItem::mirrorVisibilityUsesItsOwnGroup()
{
    Item item(nullptr, Item::FeatureTreePage);
    Item mirror(nullptr, Item::CommonPage);
    item.setMappingItem(&mirror);
    item.setVisible(false, kCamera);
    mirror.setGroupVisible(false, kCamera);
    RecordingView view;
    mirror.registerView(&view);
    item.setVisible(true, kCamera);
    QCOMPARE(view.log, QStringList(QStringLiteral("7 visible 0")));
    QVERIFY(mirror.visible());
}

void TestORXPropertyTreeItem::search_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("match");
    const QString english = QStringLiteral("ENG");
    const QString chinese = QStringLiteral("CH");
    QTest::newRow("part of the node name") << english << QStringLiteral("timeABS") << true;
    QTest::newRow("blanks around it") << english << QStringLiteral("  exposure ") << true;
    QTest::newRow("English name") << english << QStringLiteral("exposure t") << true;
    QTest::newRow("Chinese name in English") << english << QString::fromUtf8("\u66dd\u5149")
                                             << false;
    QTest::newRow("Chinese name in Chinese") << chinese << QString::fromUtf8("\u66dd\u5149")
                                             << true;
    QTest::newRow("something else") << english << QStringLiteral("gain") << false;
    QTest::newRow("nothing") << english << QStringLiteral("   ") << true;
}

void TestORXPropertyTreeItem::search()
{
    QFETCH(QString, language);
    QFETCH(QString, text);
    QFETCH(bool, match);
    ORXInterface::setLanguage(language);
    Item item(nullptr, Item::FeatureTreePage);
    item.value()->setNodeName(QStringLiteral("ExposureTimeAbs"));
    item.value()->setDisplayName(QStringLiteral("Exposure Time"));
    item.value()->setTranslateName(QString::fromUtf8("\u66dd\u5149\u65f6\u95f4"));
    RecordingView view;
    item.registerView(&view);
    item.setSearchText(text, kCamera);
    ORXInterface::setLanguage(QStringLiteral("ENG"));
    QCOMPARE(item.searchMatch(), match);
    QCOMPARE(view.log, QStringList(QStringLiteral("7 visible %1").arg(match)));
    QCOMPARE(item.getHighlightSerachText().isEmpty(), !match || text.trimmed().isEmpty());
}

void TestORXPropertyTreeItem::searchCounts()
{
    Item root(nullptr, Item::FeatureTreePage);
    root.setItemType(Item::CustomItem);
    auto* group = new Item(&root, Item::FeatureTreePage);
    group->value()->setNodeName(QStringLiteral("GainControl"));
    for (const char* name : {"Gain", "GainAuto", "Width"}) {
        auto* item = new Item(group, Item::FeatureTreePage);
        item->value()->setNodeName(QString::fromLatin1(name));
        item->setSearchText(QStringLiteral("gain"), kCamera);
    }
    group->setSearchText(QStringLiteral("gain"), kCamera);
    // The group matches, but stands directly below the root.
    QCOMPARE(root.searchChildCount(), 2);
    group->child(1)->setVisible(false, kCamera);
    QCOMPARE(group->searchChildCount(), 1);
}

void TestORXPropertyTreeItem::highlighting()
{
    Item item(nullptr, Item::FeatureTreePage);
    item.value()->setDisplayName(QStringLiteral("<Gain> of Gain"));
    item.setSearchText(QStringLiteral("gain"), kCamera);
    const QString html = item.getHighlightSerachText();
    QCOMPARE(html.count(QStringLiteral("<span")), 4);
    QVERIFY(html.contains(QStringLiteral(">&lt;</span>")));
    QVERIFY(html.contains(QStringLiteral(">Gain</span>")));
}

void TestORXPropertyTreeItem::oneParentPerPage()
{
    Item tree(nullptr, Item::FeatureTreePage);
    Item page(nullptr, Item::TriggerPage);
    auto* item = new Item(&tree, Item::FeatureTreePage);
    item->setParent(&page, Item::TriggerPage);
    QCOMPARE(item->parent(Item::AnyParent), &tree);
    QCOMPARE(page.child(0), item);
    item->setParent(nullptr, Item::TriggerPage);
    QCOMPARE(page.childCount(), 0);
    QCOMPARE(item->parent(Item::FeatureTreePage), &tree);
    item->setParent(nullptr, Item::FeatureTreePage);
    QVERIFY(!item->parent(Item::AnyParent));
    QCOMPARE(item->indexInParent(Item::AnyParent), -1);
    delete item;
}

void TestORXPropertyTreeItem::rowsStayRightWhenChildrenMove()
{
    Item tree(nullptr, Item::FeatureTreePage);
    QList<Item*> items;
    for (int i = 0; i < 4; ++i)
        items.append(new Item(&tree, Item::FeatureTreePage));
    tree.swapChild(items.at(0), items.at(3));
    QCOMPARE(items.at(0)->indexInParent(Item::FeatureTreePage), 3);
    QCOMPARE(items.at(3)->indexInParent(Item::FeatureTreePage), 0);
    delete items.takeAt(3);
    QCOMPARE(items.at(0)->indexInParent(Item::FeatureTreePage), 2);
    tree.addChild(items.at(0));
    QCOMPARE(tree.childCount(), 3);
}

void TestORXPropertyTreeItem::destroyedItemsLeaveBorrowingPages()
{
    Item page(nullptr, Item::CommonPage);
    auto tree = std::make_unique<Item>(nullptr, Item::FeatureTreePage);
    auto* item = new Item(tree.get(), Item::FeatureTreePage);
    item->setParent(&page, Item::CommonPage);
    QVERIFY(Item::isAlive(item));
    tree.reset();
    QVERIFY(!Item::isAlive(item));
    QCOMPARE(page.childCount(), 0);
}

void TestORXPropertyTreeItem::aViewMayDestroyTheItem()
{
    auto* item = new Item(nullptr, Item::FeatureTreePage);
    RecordingView first;
    RecordingView second;
    item->registerView(&first);
    item->registerView(&second);
    first.onNote = second.onNote = [item] {
        if (Item::isAlive(item))
            delete item;
    };
    item->notifyViewUpdate(kCamera, -1, false);
    QCOMPARE(first.log.size() + second.log.size(), 1);
}

// A worker publishes without pause while views come and go on this thread. The view's own flag says
// whether it may be called.
void TestORXPropertyTreeItem::aRemovedViewIsNotCalledByAWorker()
{
    class GuardedView : public IORXFeatureNotify
    {
    public:
        void itemValueChanged(qint64, Item*, int, bool) override
        {
            if (!allowed)
                ++violations;
            ++calls;
        }
        std::atomic<bool> allowed{false};
        std::atomic<int> violations{0};
        std::atomic<int> calls{0};
    };
    Item item(nullptr, Item::FeatureTreePage);
    item.setTagName(QStringLiteral("Integer"));
    GuardedView view;
    std::atomic<bool> stop{false};
    std::thread worker([&] {
        qint64 number = 0;
        while (!stop) {
            integer(item)->setNumber(++number);
            item.endUpdateItem(kCamera);
        }
    });
    for (int round = 0; round < 300 || view.calls == 0; ++round) {
        view.allowed = true;
        item.registerView(&view);
        auto mirror = std::make_unique<Item>(nullptr, Item::CommonPage);
        mirror->copy(&item);
        item.setMappingItem(mirror.get());
        mirror.reset();
        item.removeView(&view);
        view.allowed = false;
    }
    stop = true;
    worker.join();
    QCOMPARE(view.violations.load(), 0);
}

OBFT_TEST_MAIN(TestORXPropertyTreeItem)
#include "tst_orxpropertytreeitem.moc"
