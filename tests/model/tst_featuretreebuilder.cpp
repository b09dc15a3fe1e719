// SPDX-License-Identifier: Apache-2.0
#include "device/OBDeviceControl.h"
#include "device/XmlDocument.h"
#include "model/CTreeItemValue.h"
#include "model/FeatureTreeBuilder.h"
#include "model/ORXPropertyTreeItem.h"
#include "support/DescriptionBuilder.h"
#include "support/TestMain.h"

using namespace DescriptionBuilder;
using Item = ORXPropertyTreeItem;

namespace {

QString cat(const char* name, const char* features)
{
    return category(QString::fromLatin1(name), words(features));
}

QString feature(const char* tag, const char* name)
{
    return node(QString::fromLatin1(tag), QString::fromLatin1(name));
}

// One line an item: indentation, node name, type, tag.
void print(const Item& item, int depth, QStringList& lines)
{
    const QVector<Item*> children = item.children();
    for (const Item* child : children) {
        lines.append(QString(depth * 2, QLatin1Char(' ')) + child->value()->nodeName(0) +
                     " %1 "_s.arg(child->itemType()) + child->tagName());
        print(*child, depth + 1, lines);
    }
}

QString printed(const QString& elements, FeatureTreeBuilder& builder)
{
    XmlDocument document;
    document.setContent(wrap(elements));
    Item root(nullptr, Item::FeatureTreePage);
    builder.createItems(&root, FeatureNodeMap(document.documentElement()), nullptr);
    QStringList lines;
    print(root, 0, lines);
    return lines.join(QLatin1Char('\n'));
}

} // namespace

class TestFeatureTreeBuilder : public GuardedTest
{
    Q_OBJECT

private slots:
    void tree_data()
    {
        const Rows<QString, QString> row("elements", "expected");
        const QString favorites = "ORXCustom_Favorites 1 "_s;
        row("no root", cat("Device", "Width") + feature("Integer", "Width"), favorites);
        row("categories and features",
            cat("Root", "Device Image") + cat("Image", "Width Mode") + cat("Device", "Id Empty") +
                cat("Empty", "") + feature("IntReg", "Width") + feature("StringReg", "Id") +
                feature("Enumeration", "Mode"),
            favorites + "\nDevice 3 \n  Id 2 StringReg\n  Empty 3 \n"
                        "Image 3 \n  Width 2 IntReg\n  Mode 2 Enumeration"_s);
        row("missing nodes keep a row", cat("Root", "Device Ghost") + cat("Device", "Phantom"),
            favorites + "\nDevice 3 \n  Phantom 2 \nGhost 2 "_s);
        row("entries are no items",
            cat("Root", "Mode") +
                "<Enumeration Name=\"Mode\"><EnumEntry Name=\"On\"/></Enumeration>"_s,
            favorites + "\nMode 2 Enumeration"_s);
    }

    void tree()
    {
        QFETCH(QString, elements);
        FeatureTreeBuilder builder;
        QTEST(printed(elements, builder), "expected");
    }

    void theDescriptionAloneDecidesWhatShowsAtFirst_data()
    {
        const Rows<QString, QString, QString, QString> row("tag", "visibility", "word", "levels");
        row("beginner", "Integer", "Beginner", "Beginner", "guru beginner");
        row("nothing said", "Float", "", "Beginner", "guru beginner");
        row("expert", "Integer", "Expert", "Expert", "guru");
        row("guru", "Command", "Guru", "Guru", "guru");
        row("invisible", "String", "Invisible", "Invisible", "");
        row("no feature", "MaskedIntReg", "", "Invisible", "");
    }

    void theDescriptionAloneDecidesWhatShowsAtFirst()
    {
        QFETCH(QString, tag);
        QFETCH(QString, visibility);
        QString inner =
            "<DisplayName>Exposure Time</DisplayName><Description>How long.</Description>"
            "<Unit> us </Unit>"_s;
        if (!visibility.isEmpty())
            inner += child("Visibility"_s, visibility);
        XmlDocument document;
        document.setContent(wrap(cat("Root", "Control") + cat("Control", "Exposure") +
                                 node(tag, "Exposure"_s, inner)));
        QStringList levels;
        for (const int level : {0, 1}) {
            OBDeviceControl::SetUserLevel(level);
            Item root(nullptr, Item::FeatureTreePage);
            FeatureTreeBuilder builder;
            builder.createItems(&root, FeatureNodeMap(document.documentElement()), nullptr);
            const Item* feature = root.child(1)->child(0);
            QCOMPARE(feature->value()->displayName(), "Exposure Time"_s);
            QCOMPARE(feature->value()->unit(), "us"_s);
            QCOMPARE(feature->value()->description(), "How long."_s);
            QTEST(feature->visibilityString(), "word");
            QVERIFY(!feature->wasRead());
            QCOMPARE(root.child(1)->visible(), feature->visible()); // its category
            if (feature->visible())
                levels.append(level == 0 ? "guru"_s : "beginner"_s);
        }
        OBDeviceControl::SetUserLevel(1);
        QTEST(levels.join(QLatin1Char(' ')), "levels");
    }

    void lastMentionWins()
    {
        XmlDocument document;
        document.setContent(wrap(cat("Root", "A B") + cat("A", "Gain") + cat("B", "Gain") +
                                 feature("Float", "Gain")));
        Item root(nullptr, Item::FeatureTreePage);
        FeatureTreeBuilder builder;
        builder.createItems(&root, FeatureNodeMap(document.documentElement()), nullptr);
        const QString gain = "Gain"_s;
        QCOMPARE(builder.categoryOfFeature().value(gain), "B"_s);
        QCOMPARE(builder.AllTreeItemsMap().value(gain), root.child(2)->child(0));
        QCOMPARE(builder.featureList().count(gain), 2);
    }

    void categoriesThatContainThemselves()
    {
        MessageGuard::ignoreMessage(QtCriticalMsg,
                                    "Feature description: category A contains itself");
        FeatureTreeBuilder builder;
        const QString tree = printed(
            cat("Root", "A Z") + cat("A", "B Width") + cat("B", "A") + cat("Z", "Gain"), builder);
        QVERIFY(tree.contains("  Width 2"_s));
        QVERIFY(tree.contains("  Gain 2"_s));
    }

    void deepNestingIsCut()
    {
        MessageGuard::expectMessage("is nested too deep"_s);
        QString elements = category("Root"_s, {"C0"_s});
        for (int i = 0; i < 5000; ++i)
            elements += category("C%1"_s.arg(i), {"C%1"_s.arg(i + 1)});
        FeatureTreeBuilder builder;
        printed(elements, builder);
        QVERIFY(MessageGuard::contains("is nested too deep"_s));
    }

    void explodingDescriptionsAreCut()
    {
        MessageGuard::expectMessage("lists more features than can be shown"_s);
        QString elements = category("Root"_s, {"C0"_s});
        for (int i = 0; i < 40; ++i) {
            const QString next = "C%1"_s.arg(i + 1);
            elements += category("C%1"_s.arg(i), {next, next, next});
        }
        FeatureTreeBuilder builder;
        printed(elements, builder);
        QVERIFY(MessageGuard::contains("lists more features than can be shown"_s));
    }
};

OBFT_TEST_MAIN(TestFeatureTreeBuilder)
#include "tst_featuretreebuilder.moc"
