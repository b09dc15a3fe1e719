// SPDX-License-Identifier: Apache-2.0
#include "device/OBDeviceControl.h"
#include "model/CTreeItemValue.h"
#include "support/DescriptionBuilder.h"
#include "support/LoadedDescription.h"
#include "support/TestMain.h"

using namespace DescriptionBuilder;
using Item = ORXPropertyTreeItem;

namespace {

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

QString printed(const Item& root)
{
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
        const Rows<QString, QString> row("description", "expected");
        const QString favorites = "ORXCustom_Favorites 1 "_s;
        row("no root", elements("Category Device pFeature=Width; Integer Width"), favorites);
        row("categories and features",
            elements("Category Root pFeature=Device,Image; Category Image pFeature=Width,Mode;"
                     "Category Device pFeature=Id,Empty; Category Empty; IntReg Width;"
                     "StringReg Id; Enumeration Mode"),
            favorites + "\nDevice 3 \n  Id 2 StringReg\n  Empty 3 \n"
                        "Image 3 \n  Width 2 IntReg\n  Mode 2 Enumeration"_s);
        row("missing nodes keep a row",
            elements("Category Root pFeature=Device,Ghost; Category Device pFeature=Phantom"),
            favorites + "\nDevice 3 \n  Phantom 2 \nGhost 2 "_s);
        row("entries are no items",
            elements("Category Root pFeature=Mode") +
                "<Enumeration Name=\"Mode\"><EnumEntry Name=\"On\"/></Enumeration>"_s,
            favorites + "\nMode 2 Enumeration"_s);
    }

    void tree()
    {
        const auto [description, expected] = fetchRow<QString, QString>();
        QCOMPARE(printed(LoadedDescription(wrap(description)).root), expected);
    }

    void theDescriptionAloneDecidesWhatShowsAtFirst_data()
    {
        const Rows<QString, QString, QString, QString> row("tag", "visibility", "word", "levels");
        row("beginner", "Integer", "Beginner", "Beginner", "guru beginner");
        row("nothing said", "Float", "", "Beginner", "guru beginner");
        row("expert", "Integer", "Expert", "Expert", "guru");
        row("guru", "Command", "Guru", "Guru", "guru");
        row("in small letters", "Integer", "guru", "guru", "");
        row("invisible", "String", "Invisible", "Invisible", "");
        row("no feature", "MaskedIntReg", "", "Invisible", "");
    }

    void theDescriptionAloneDecidesWhatShowsAtFirst()
    {
        const auto [tag, visibility, word, levels] = fetchRow<QString, QString, QString, QString>();
        QString inner =
            "<DisplayName>Exposure Time</DisplayName><Description>How long.</Description>"
            "<Unit> us </Unit>"_s;
        if (!visibility.isEmpty())
            inner += child("Visibility"_s, visibility);
        const QString description =
            elements("Category Root pFeature=Control; Category Control pFeature=Exposure") +
            node(tag, "Exposure"_s, inner);
        QStringList found;
        for (const int level : {0, 1, 2}) {
            OBDeviceControl::SetUserLevel(level);
            const LoadedDescription built(wrap(description));
            const Item* category = built.root.child(1);
            const Item* feature = category->child(0);
            QCOMPARE(feature->value()->displayName(), "Exposure Time"_s);
            QCOMPARE(feature->value()->unit(), "us"_s);
            QCOMPARE(feature->value()->description(), "How long."_s);
            QCOMPARE(feature->visibilityString(), word);
            QVERIFY(!feature->wasRead());
            QCOMPARE(category->visible(), feature->visible());
            if (feature->visible())
                found.append(words("guru beginner other").at(level));
        }
        OBDeviceControl::SetUserLevel(1);
        QCOMPARE(found.join(QLatin1Char(' ')), levels);
    }

    void namesAndExplanationsAreThoseOfTheTables()
    {
        OBDeviceControl::Init(nullptr, R"(<T><Feature Name="Width"><DisplayName::cn>cn name
</DisplayName::cn><Description::cn>cn text</Description::cn></Feature></T>)");
        const LoadedDescription loaded(
            wrap(elements("Category Root pFeature=Width; Integer Width")));
        CTreeItemValue* value = loaded.item("Width")->value();
        QCOMPARE(value->translateName(), "cn name\n"_s);
        QCOMPARE(value->translatedDescription(), "cn text"_s);
        value->setTranslateName("own name"_s);
        QCOMPARE(value->translateName(), "own name"_s);
        QCOMPARE(loaded.root.child(0)->value()->translateName(), "Favorites"_s);
    }

    void lastMentionWins()
    {
        const LoadedDescription built(
            wrap(elements("Category Root pFeature=A,B; Category A pFeature=Gain;"
                          "Category B pFeature=Gain; Float Gain")));
        QCOMPARE(built.root.child(1)->childCount(), 1);
        QCOMPARE(built.item("Gain"), built.root.child(2)->child(0));
    }

    void categoriesThatContainThemselves()
    {
        MessageGuard::ignoreMessage(QtCriticalMsg,
                                    "Feature description: category A contains itself");
        const LoadedDescription built(
            wrap(elements("Category Root pFeature=A,Z; Category A pFeature=B,Width;"
                          "Category B pFeature=A; Category Z pFeature=Gain")));
        const QString tree = printed(built.root);
        QVERIFY(tree.contains("  Width 2"_s));
        QVERIFY(tree.contains("  Gain 2"_s));
    }

    // A long chain of categories, and one where each holds the next three times.
    void whatGrowsTooLargeIsCut_data()
    {
        const Rows<int, int, QString> row("depth", "width", "message");
        row("nested deep", 5000, 1, "is nested too deep");
        row("exploding", 40, 3, "lists more features than can be shown");
    }

    void whatGrowsTooLargeIsCut()
    {
        const auto [depth, width, message] = fetchRow<int, int, QString>();
        MessageGuard::expectMessage(message);
        QString description = category("Root"_s, {"C0"_s});
        for (int i = 0; i < depth; ++i) {
            const QStringList inner = QVector<QString>(width, "C%1"_s.arg(i + 1)).toList();
            description += category("C%1"_s.arg(i), inner);
        }
        const LoadedDescription built(wrap(description));
        QVERIFY(MessageGuard::contains(message));
    }
};

OBFT_TEST_MAIN(TestFeatureTreeBuilder)
#include "tst_featuretreebuilder.moc"
