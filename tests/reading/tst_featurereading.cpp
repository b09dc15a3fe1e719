// SPDX-License-Identifier: Apache-2.0
// What a pass makes of a feature: its value and its description.
#include "device/StopRequest.h"
#include "model/CTreeEnumationItemValue.h"
#include "model/CTreeFloatItemValue.h"
#include "model/CTreeIntergerItemValue.h"
#include "model/CTreeStringItemValue.h"
#include "model/FeatureDocHtml.h"
#include "model/IORXFeatureNotify.h"
#include "reading/FeatureDecider.h"
#include "reading/FeatureDocText.h"
#include "reading/FeatureValueReader.h"
#include "reading/SelectorKeeper.h"
#include "support/DescriptionBuilder.h"
#include "support/FakeHost.h"
#include "support/LoadedDescription.h"
#include "support/TestMain.h"

#include <QTextDocument>

#include <functional>

using namespace DescriptionBuilder;
using Change = std::function<void(ORXPropertyTreeItem& item, FakeHost& host)>;
Q_DECLARE_METATYPE(Change)

namespace {

QByteArray description()
{
    return wrap(
        elements("Category Root pFeature=Width,GevSCDA,GevCurrentIPAddress,Gain,Offset,On,Id,Mode,"
                 "State,Level,ChunkEnable; Integer GevSCDA; Integer GevCurrentIPAddress;"
                 "Float Offset; Converter Gain; Boolean On; StringReg Id; Boolean ChunkEnable;"
                 "Integer Never; IntReg HasModes; Boolean IsLocked") +
        R"(<Integer Name="Width" NameSpace="Custom"/>
<Enumeration Name="State"><EnumEntry Name="On" NameSpace="Standard"><Value>1</Value></EnumEntry>
<EnumEntry Name="Gone"><Value>2</Value><pIsAvailable>Never</pIsAvailable></EnumEntry></Enumeration>
<Enumeration Name="Level"><EnumEntry Name="Off"><Value>-1</Value></EnumEntry>
<EnumEntry Name="On"><Value>1</Value></EnumEntry></Enumeration>
<Enumeration Name="Mode">
<EnumEntry Name="Off"><Value>0</Value></EnumEntry>
<EnumEntry Name="Once"><DisplayName>Single</DisplayName><Value>1</Value>
<pIsImplemented>HasModes</pIsImplemented></EnumEntry>
<EnumEntry Name="OnceToo"><DisplayName>Single</DisplayName><Value>0xFFFFFFFF</Value>
<pIsAvailable>HasModes</pIsAvailable></EnumEntry>
<EnumEntry Name="Locked"><Value>3</Value><pIsLocked>IsLocked</pIsLocked></EnumEntry>
</Enumeration>)"_s);
}

QString plain(const QString& html)
{
    QTextDocument document;
    document.setHtml(html);
    return document.toPlainText();
}

class SpecialView : public IORXFeatureNotify
{
public:
    void itemSpecialInfoChanged(qint64, ORXPropertyTreeItem*, int) override { ++special; }
    int special = 0;
};

} // namespace

class TestFeatureReading : public GuardedTest
{
    Q_OBJECT

protected:
    void prepare() override
    {
        m_stop.clear();
        m_description = std::make_unique<LoadedDescription>(description());
        m_decider.setNodes(m_description->index.nodes());
        m_decider.beginItem();
        m_host = std::make_unique<FakeHost>();
        m_host->set("ChunkModeActive"_s, FakeHost::booleanFeature(false));
        m_host->set("ChunkEnable"_s, FakeHost::booleanFeature(true));
        m_host->set("Mode"_s, FakeHost::enumFeature(1));
        m_host->set("HasModes"_s, FakeHost::integerFeature(2));
        m_host->set("IsLocked"_s, FakeHost::booleanFeature(false));
        m_host->install();
        m_host->clearCalls();
    }
    void finish() override { FakeHost::uninstall(); }

private:
    void read(const char* name)
    {
        m_decider.beginItem();
        m_reader.UpdateGenICamItemValue(*m_description->node(name), m_description->item(name), 1);
    }
    template <typename Value>
    Value* value(const char* name)
    {
        return dynamic_cast<Value*>(m_description->item(name)->value());
    }

    std::unique_ptr<LoadedDescription> m_description;
    std::unique_ptr<FakeHost> m_host;
    FeatureDecider m_decider;
    FeatureValueReader m_reader{m_decider};
    FeatureDocText m_text{m_decider};
    StopRequest m_stop;

private slots:
    void integerRanges_data()
    {
        const Rows<qint64, qint64, qint64, bool> row("value", "minimum", "maximum", "repaired");
        row("usual", 5, 0, 10, false);
        row("empty range", 5, 0, -1, true);
        row("wraps around", 5, INT64_MIN, INT64_MAX, true);
        row("only upside down", 5, 10, 3, false);
    }

    void integerRanges()
    {
        const auto [value, minimum, maximum, repaired] = fetchRow<qint64, qint64, qint64, bool>();
        m_host->set("Width"_s, FakeHost::integerFeature(value, minimum, maximum, 0));
        read("Width");
        const auto numbers = this->value<CTreeIntergerItemValue>("Width")->numbers();
        QCOMPARE(numbers.m_nValue, value);
        QCOMPARE(numbers.m_nMinValue, repaired ? value : minimum);
        QCOMPARE(numbers.m_nMaxValue, repaired ? value : maximum);
    }

    void typedValues()
    {
        m_host->set("Gain"_s, FakeHost::floatFeature(1.5F, -1.0F, 24.0F));
        m_host->set("Id"_s, FakeHost::textFeature("lab 3"));
        m_host->set("On"_s, FakeHost::booleanFeature(true));
        read("Gain");
        read("Id");
        read("On");
        const auto gain = value<CTreeFloatItemValue>("Gain")->numbers();
        QCOMPARE(gain.m_fValue, 1.5F);
        QCOMPARE(gain.m_fMinValue, -1.0F);
        QCOMPARE(gain.m_fMaxValue, 24.0F);
        QCOMPARE(value<CTreeStringItemValue>("Id")->displayValue(), "lab 3"_s);
        QCOMPARE(value<CTreeStringItemValue>("Id")->maxLength(), 64);
        QCOMPARE(m_description->item("On")->value()->displayValue(), "True"_s);
    }

    // The camera knows 32-bit words without a sign.
    void negativeEntriesAreFound()
    {
        m_host->set("Level"_s, FakeHost::enumFeature(-1));
        read("Level");
        auto* level = value<CTreeEnumationItemValue>("Level");
        QCOMPARE(level->displayValue(), "Off"_s);
        QCOMPARE(level->valueMap().key("Off"_s), qint64(0xFFFFFFFF));
        for (const char* entry : {"On", "Off"}) {
            level->setValue(level->valueMap().key(QLatin1String(entry)));
            QCOMPARE(level->displayValue(), QLatin1String(entry));
        }
    }

    void usableEntries_data()
    {
        const Rows<QString, int, bool, QString, int> row("unreadable", "hasModes", "locked",
                                                         "display", "values");
        row("all; equal texts once", "", 1, false, "Off Single Locked", 4);
        row("not implemented, not available", "", 0, false, "Off Locked", 2);
        row("locked", "", 1, true, "Off Single", 3);
        row("unreadable implemented node", "HasModes", 1, false, "Off Locked", 2);
        row("unreadable lock node", "IsLocked", 1, true, "Off Single Locked", 4);
    }

    void usableEntries()
    {
        const auto [unreadable, hasModes, locked, display, values] =
            fetchRow<QString, int, bool, QString, int>();
        m_host->set("HasModes"_s, FakeHost::integerFeature(hasModes));
        m_host->set("IsLocked"_s, FakeHost::booleanFeature(locked));
        if (!unreadable.isEmpty())
            m_host->fail(unreadable, 9);
        read("Mode");
        const auto* mode = value<CTreeEnumationItemValue>("Mode");
        QCOMPARE(mode->displayList().join(QLatin1Char(' ')), display);
        QCOMPARE(mode->displayListCN(), mode->displayList()); // no translations
        QCOMPARE(mode->valueMap().size(), values);
        QCOMPARE(mode->nameMap().size(), values);
        if (values == 4)
            QCOMPARE(mode->valueMap().value(4294967295), "Single"_s);
    }

    void whatLeavesTheEntriesAlone()
    {
        const auto entries = [this] {
            return value<CTreeEnumationItemValue>("Mode")->displayList().size();
        };
        read("Mode");
        QCOMPARE(m_host->count("get HasModes"_s), 1); // both entries that it decides on
        read("Mode");
        QCOMPARE(m_host->count("get HasModes"_s), 2);
        m_host->fail("Mode"_s, 5);
        m_host->set("HasModes"_s, FakeHost::integerFeature(0));
        read("Mode");
        QCOMPARE(entries(), 3);
        QCOMPARE(value<CTreeEnumationItemValue>("Mode")->number(), qint64(1));
        // A stop in the middle: the value was read, the entries are being asked for.
        m_host->fail("Mode"_s, 0);
        const StopRequest::Scope scope(m_stop);
        m_host->beforeGet = [this](const QString& name) {
            if (name == QLatin1String("HasModes"))
                m_stop.request();
        };
        read("Mode");
        QCOMPARE(entries(), 3);
    }

    void chunkFeatureTellsItsViews()
    {
        SpecialView view;
        m_description->item("ChunkEnable")->registerView(&view);
        m_description->item("On")->registerView(&view);
        m_host->set("On"_s, FakeHost::booleanFeature(true));
        read("On");
        QCOMPARE(view.special, 0);
        read("ChunkEnable");
        QCOMPARE(view.special, 1);
    }

    void wholeText()
    {
        ORXPropertyTreeItem* width = m_description->item("Width");
        width->value()->setDisplayName("Width <px> %1"_s);
        width->value()->setDescription("The \"visible\" width, %3 of line %2."_s);
        width->value()->setTranslateName("\u5bbd\u5ea6"_s);
        width->value()->setTranslatedDescription("\u56fe\u50cf\u5bbd\u5ea6"_s);
        dynamic_cast<CTreeIntergerItemValue*>(width->value())->setNumbers({8, 4, 4096, 4});
        const auto text = [&](const char* language) {
            return plain(m_text.GetFeatureDocText(m_description->node("Width"), "Yes"_s, width,
                                                  QString::fromLatin1(language)));
        };
        QCOMPARE(text("ENG").trimmed(),
                 "Width <px> %1\nThe 'visible' width, %3 of line %2.\n\nNode Name: Width\n"
                 "Type: Integer\nName Space: Custom\nVisibility: Beginner\nStreamable: Yes\n"
                 "Min: 4\nMax: 4096\nInc: 4"_s);
        QVERIFY(
            text("CH").startsWith("\u5bbd\u5ea6\n\u56fe\u50cf\u5bbd\u5ea6\n\nNode Name: Width"_s));
        width->value()->setTranslatedDescription(QString());
        QVERIFY(text("CH").startsWith("\u5bbd\u5ea6\nThe 'visible' width"_s));
    }

    // Nobody knows where it stands then.
    void aSelectorIsPutBackAfterARefusedSelection()
    {
        {
            SelectorKeeper keeper("Mode"_s);
            m_host->fail("Mode"_s, 5);
            MessageGuard::expectMessage("Read Feature Failed"_s);
            QVERIFY(!keeper.select(2, nullptr));
            m_host->fail("Mode"_s, 0);
        }
        QCOMPARE(m_host->writes().last(), "set Mode 1"_s);
    }

    void rangesAndEntries_data()
    {
        const Rows<QByteArray, float, QString> row("name", "maximum", "expected");
        row("address list", "GevCurrentIPAddress", 9.0F, "");
        row("increment without range", "GevSCDA", 9.0F, "Inc: 2");
        row("float", "Offset", 9.0F, "Min: 1.000000\nMax: 9.000000");
        row("float without positive maximum", "Offset", 0.0F, "");
        row("entries", "State", 0.0F,
            "Enum Entry Name: On\nEnum Entry Value: 1\nName Space: Standard\n"
            "Visibility: Beginner");
    }

    void rangesAndEntries()
    {
        const auto [name, maximum, expected] = fetchRow<QByteArray, float, QString>();
        CTreeItemValue* value = m_description->item(name)->value();
        if (auto* integer = dynamic_cast<CTreeIntergerItemValue*>(value))
            integer->setNumbers({5, 1, static_cast<qint64>(maximum), 2});
        if (auto* number = dynamic_cast<CTreeFloatItemValue*>(value))
            number->setNumbers({5.0F, 1.0F, maximum});
        const QString text = plain(m_text.GetFeatureValueInfo(m_description->node(name),
                                                              m_description->item(name), "ENG"_s));
        QCOMPARE(text.trimmed(), expected);
    }

    void textsFollowWhatChanges_data()
    {
        using Item = ORXPropertyTreeItem;
        const auto integer = [](qint64 least, qint64 most, qint64 step) {
            return [=](Item& item, FakeHost&) {
                dynamic_cast<CTreeIntergerItemValue*>(item.value())
                    ->setNumbers({8, least, most, step});
            };
        };
        // shown: in one of the two texts afterwards
        const Rows<QByteArray, QString, Change> row("name", "shown", "change");
        row("minimum", "Width", "Min: 2", integer(2, 4096, 4));
        row("maximum", "Width", "Max: 5000", integer(4, 5000, 4));
        row("increment", "Width", "Inc: 8", integer(4, 4096, 8));
        row("range of a float", "Offset", "Max: 7.000000", [](Item& item, FakeHost&) {
            dynamic_cast<CTreeFloatItemValue*>(item.value())->setNumbers({5.0F, 1.0F, 7.0F});
        });
        row("visibility", "Width", "Visibility: Guru",
            [](Item& item, FakeHost&) { item.setVisibilityString("Guru"_s); });
        row("name", "Width", "Columns",
            [](Item& item, FakeHost&) { item.value()->setDisplayName("Columns"_s); });
        row("translated name", "Width", "\u5bbd\u5ea6",
            [](Item& item, FakeHost&) { item.value()->setTranslateName("\u5bbd\u5ea6"_s); });
        row("entry that comes", "State", "Enum Entry Name: Gone",
            [](Item&, FakeHost& host) { host.set("Never"_s, FakeHost::integerFeature(1)); });
    }

    void textsFollowWhatChanges()
    {
        const auto [name, shown, change] = fetchRow<QByteArray, QString, Change>();
        ORXPropertyTreeItem* item = m_description->item(name);
        const FeatureNodePtr node = m_description->node(name);
        if (auto* integer = dynamic_cast<CTreeIntergerItemValue*>(item->value()))
            integer->setNumbers({8, 4, 4096, 4});
        const CTreeItemValue* value = item->value();
        const auto says = [&] {
            m_decider.beginItem(); // another pass
            m_text.update(node, item);
            return plain(FeatureDocHtml::whole(*value, false) + FeatureDocHtml::whole(*value, true))
                .contains(shown);
        };
        QVERIFY(!says());
        change(*item, *m_host);
        QVERIFY(says());
    }
};

OBFT_TEST_MAIN(TestFeatureReading)
#include "tst_featurereading.moc"
