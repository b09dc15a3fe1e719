// SPDX-License-Identifier: Apache-2.0
#include "model/CTreeBooleanItemValue.h"
#include "model/CTreeEnumationItemValue.h"
#include "model/CTreeFloatItemValue.h"
#include "model/CTreeIntergerItemValue.h"
#include "model/FeatureDocHtml.h"
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
        note("%1 visible %2"_s.arg(cameraId).arg(visible), item);
    }
    void itemValueChanged(qint64, Item* item, int column, bool recreate) override
    {
        note("value %1 %2"_s.arg(column).arg(recreate), item);
        if (onValue)
            onValue();
    }
    QStringList log;
    QList<Item*> items;
    std::function<void()> onValue;

private:
    void note(const QString& what, Item* item)
    {
        log.append(what);
        items.append(item);
    }
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
    void changingTheTagKeepsNames()
    {
        Item item(nullptr, Item::FeatureTreePage);
        item.value()->setNodeName("Width"_s);
        FeatureDocInputs doc;
        doc.node = std::make_shared<FeatureNode>();
        doc.visibility = "doc"_s;
        item.value()->setDocInputs(doc);
        item.setTagName("IntReg"_s);
        QVERIFY(integer(item));
        integer(item)->setNumbers({5, 0, 9, 1});
        item.setTagName(QString());
        QCOMPARE(integer(item)->numbers().m_nValue, qint64(5));
        item.setTagName("Integer"_s);
        QCOMPARE(integer(item)->numbers().m_nValue, qint64(-1));
        QCOMPARE(item.value()->nodeName(0), "Width"_s);
        QVERIFY(FeatureDocHtml::whole(*item.value(), false).contains("doc"_s));
    }

    void publishingTellsOnlyOfChanges()
    {
        Item item(nullptr, Item::FeatureTreePage);
        item.setTagName("Integer"_s);
        RecordingView view;
        item.registerView(&view);
        QVERIFY(item.endUpdateItem(kCamera));
        QVERIFY(!item.endUpdateItem(kCamera));
        QCOMPARE(view.log, QStringList("value -1 0"_s));
        item.setReadOnly(false);
        QVERIFY(item.endUpdateItem(kCamera));
        // The row looks the same, but says another reason.
        item.setReadOnly(true, ReadOnlyCause::Locked);
        QVERIFY(item.endUpdateItem(kCamera));
        item.setReadOnly(true, ReadOnlyCause::NotAvailable);
        QVERIFY(item.endUpdateItem(kCamera));
        item.setReadOnly(true, ReadOnlyCause::NotAvailable);
        QVERIFY(!item.endUpdateItem(kCamera));
    }

    void mirrorFollows()
    {
        Item item(nullptr, Item::FeatureTreePage);
        item.setTagName("Integer"_s);
        Item mirror(nullptr, Item::CommonPage);
        mirror.copy(&item);
        item.setMappingItem(&mirror);
        QCOMPARE(mirror.mappingItem(), &item);
        RecordingView view;
        mirror.registerView(&view);
        integer(item)->setNumbers({8, 0, 9, 1});
        item.endUpdateItem(kCamera);
        QCOMPARE(integer(mirror)->numbers().m_nValue, qint64(8));
        QCOMPARE(view.log, QStringList("value -1 0"_s));
        QCOMPARE(view.items.first(), &mirror);
        item.setReadOnly(true, ReadOnlyCause::Locked);
        QCOMPARE(mirror.value()->readOnlyCause(), ReadOnlyCause::Locked);
        item.setReadOnly(false);
        QVERIFY(!mirror.readOnly());
        // Edits through the mirror come back the same way.
        integer(mirror)->setNumber(2);
        mirror.notifyViewUpdate(kCamera, 2, false);
        QCOMPARE(integer(item)->numbers().m_nValue, qint64(2));
        // Its visibility is the item's, but it stands in a group of its own.
        item.setVisible(false, kCamera);
        QVERIFY(!mirror.visible());
        mirror.setGroupVisible(false, kCamera);
        view.log.clear();
        item.setVisible(true, kCamera);
        QCOMPARE(view.log, QStringList("7 visible 0"_s));
        QVERIFY(mirror.visible());
    }

    void visibilityNeedsAllThreeFlags()
    {
        Item item(nullptr, Item::FeatureTreePage);
        RecordingView view;
        item.registerView(&view);
        item.setVisible(true, kCamera); // unchanged
        item.setVisible(false, kCamera);
        item.setGroupVisible(false, kCamera);
        item.setVisible(true, kCamera);
        item.setGroupVisible(true, kCamera);
        QCOMPARE(view.log,
                 QStringList({"7 visible 0"_s, "7 visible 0"_s, "7 visible 0"_s, "7 visible 1"_s}));
    }

    void searchCounts()
    {
        Item root(nullptr, Item::FeatureTreePage);
        root.setItemType(Item::CustomItem);
        auto* group = new Item(&root, Item::FeatureTreePage);
        group->value()->setNodeName("GainControl"_s);
        for (const char* name : {"Gain", "GainAuto", "Width"}) {
            auto* item = new Item(group, Item::FeatureTreePage);
            item->value()->setNodeName(QString::fromLatin1(name));
            item->setSearchText("gain"_s, kCamera);
        }
        group->setSearchText("gain"_s, kCamera);
        // The group matches, but stands directly below the root.
        QCOMPARE(root.searchChildCount(), 2);
        group->child(1)->setVisible(false, kCamera);
        QCOMPARE(group->searchChildCount(), 1);
    }

    void highlighting()
    {
        Item item(nullptr, Item::FeatureTreePage);
        item.value()->setDisplayName("<Gain> of Gain"_s);
        item.setSearchText("  gain "_s, kCamera);
        const QString html = item.getHighlightSerachText();
        QCOMPARE(html.count("<span"_s), 4);
        QVERIFY(html.contains(">&lt;</span>"_s));
        QVERIFY(html.contains(">Gain</span>"_s));
    }

    void rowsStayRightWhenChildrenMove()
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

    void destroyedItemsLeaveMirrorsAndBorrowingPages()
    {
        Item page(nullptr, Item::CommonPage);
        auto tree = std::make_unique<Item>(nullptr, Item::FeatureTreePage);
        auto* item = new Item(tree.get(), Item::FeatureTreePage);
        item->setParent(&page, Item::CommonPage);
        Item mirror(nullptr, Item::CommonPage);
        Item second(nullptr, Item::CommonPage);
        mirror.setMappingItem(item);
        second.setMappingItem(item);
        QVERIFY(!mirror.mappingItem());
        QVERIFY(Item::isAlive(item));
        tree.reset();
        QVERIFY(!Item::isAlive(item));
        QVERIFY(!second.mappingItem());
        QCOMPARE(page.childCount(), 0);
        second.notifyViewUpdate(kCamera, -1, false);
    }

    void aViewMayDestroyTheItem()
    {
        auto* item = new Item(nullptr, Item::FeatureTreePage);
        RecordingView first;
        RecordingView second;
        item->registerView(&first);
        item->registerView(&second);
        first.onValue = second.onValue = [item] {
            if (Item::isAlive(item))
                delete item;
        };
        item->notifyViewUpdate(kCamera, -1, false);
        QCOMPARE(first.log.size() + second.log.size(), 1);
    }

    // A worker publishes without pause while views come and go on this thread. The view's own flag
    // says whether it may be called.
    void aRemovedViewIsNotCalledByAWorker()
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
        item.setTagName("Integer"_s);
        GuardedView view;
        std::atomic<bool> stop{false};
        std::atomic<qint64> published{0};
        std::thread worker([&] {
            for (; !stop; ++published) {
                integer(item)->setNumber(published);
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
        const qint64 before = published;
        QTRY_VERIFY(published > before + 100);
        stop = true;
        worker.join();
        QCOMPARE(view.violations.load(), 0);
    }

    // Values --------------------------------------------------------------------------------------
    void integerType()
    {
        // Name and representation, and the type that they make.
        const QStringList all = words(
            "Width:=2 Width:Linear=2 Width:PureNumber=2 Width:HexNumber=3 Width:IPV4Address=4 "
            "Width:MACAddress=6 GevCurrentIPAddress:HexNumber=4 GevSCDA:HexNumber=4 "
            "GevSCDA:Linear=2 GevCurrentSubnetMask:HexNumber=5 "
            "GevPersistentSubnetMask:IPV4Address=5 GevMACAddress:HexNumber=6 "
            "GevMACAddress:IPV4Address=4");
        QStringList made;
        for (const QString& each : all) {
            const QString given = each.section(QLatin1Char('='), 0, 0);
            CTreeIntergerItemValue value;
            value.setNodeName(given.section(QLatin1Char(':'), 0, 0));
            value.setRepresentation(given.section(QLatin1Char(':'), 1));
            made += "%1=%2"_s.arg(given).arg(static_cast<int>(value.type()));
        }
        QCOMPARE(made, all);
    }

    void integerText_data()
    {
        const Rows<QString, qint64, qint64, qint64, QString> row("representation", "number",
                                                                 "minimum", "maximum", "text");
        row("below", "", 5, 10, 20, "10");
        row("above", "", 30, 10, 20, "20");
        row("range upside down", "", 5, 10, 3, "10");
        row("smallest", "", INT64_MIN, INT64_MIN, INT64_MAX, "-9223372036854775808");
        row("address", "IPV4Address", 0xC0A80001, 0, 0xFFFFFFFF, "192.168.0.1");
        row("card address", "MACAddress", 0x0011223344FF, 0, 0xFFFFFFFFFFFF, "00:11:22:33:44:FF");
        row("hexadecimal", "HexNumber", 255, 0, 1000, "0xFF");
        row("hexadecimal of a large range", "HexNumber", 255, 0, INT64_MAX, "0xFF");
    }

    void integerText()
    {
        const auto [representation, number, minimum, maximum, text] =
            fetchRow<QString, qint64, qint64, qint64, QString>();
        CTreeIntergerItemValue value;
        value.setNumbers({number, minimum, maximum, 1});
        value.setRepresentation(representation);
        QCOMPARE(value.displayValue(), text);
    }

    void statusTexts()
    {
        CTreeIntergerItemValue integer;
        integer.setNumbers({5, 1, 9, 2});
        integer.setRepresentation("HexNumber"_s);
        QCOMPARE(
            integer.createCurrentStauts(true),
            "ReadOnly:true;m_nValue:5; m_nMinValue:1; m_nMaxValue:9; m_nIncrement:2; NeedRecreateEditor:HexNumber"_s);
        CTreeFloatItemValue number;
        number.setNumbers({1.5F, 0.0F, 2.25F});
        QCOMPARE(number.createCurrentStauts(false),
                 "ReadOnly:false;m_fValue:1.500; m_fMinValue:0.000; m_fMaxValue:2.250"_s);
        CTreeEnumationItemValue entry;
        entry.setNumber(3);
        entry.replaceEnumList({"On"_s, "Off"_s}, {}, {}, {});
        QCOMPARE(entry.createCurrentStauts(false), "ReadOnly:false;m_nValue:3;On;Off;"_s);
    }

    void namesFallBackOnEachOther()
    {
        CTreeItemValue value;
        value.setDisplayName("Gain"_s);
        QCOMPARE(value.translateName(), "Gain"_s);
        value.setTranslateName("\u589e\u76ca"_s);
        value.setDisplayName(QString());
        QCOMPARE(value.displayName(), "\u589e\u76ca"_s);
    }

    void copyingValuesOnlyKeepsNames()
    {
        CTreeEnumationItemValue from;
        from.setNodeName("From"_s);
        from.setNumber(2);
        from.replaceEnumList({"A"_s}, {"a"_s}, {{2, "A"_s}}, {{"a"_s, "A"_s}});
        CTreeEnumationItemValue to;
        to.setNodeName("To"_s);
        to.copy(&from, false);
        QCOMPARE(to.nodeName(0), "To"_s);
        QCOMPARE(to.displayValue(), "A"_s);
        QVERIFY(to.nameMap().isEmpty());
        CTreeBooleanItemValue other;
        to.copy(&other, false);
        QCOMPARE(to.number(), qint64(2));
        to.copy(&from, true);
        QCOMPARE(to.nodeName(0), "From"_s);
        to.copy(nullptr, true);
    }
};

OBFT_TEST_MAIN(TestORXPropertyTreeItem)
#include "tst_orxpropertytreeitem.moc"
