// SPDX-License-Identifier: Apache-2.0
#include "device/StopRequest.h"
#include "model/CTreeEnumationItemValue.h"
#include "model/CTreeFloatItemValue.h"
#include "model/CTreeIntergerItemValue.h"
#include "model/CTreeStringItemValue.h"
#include "model/IORXFeatureNotify.h"
#include "reading/FeatureDecider.h"
#include "reading/FeatureValueReader.h"
#include "support/DescriptionBuilder.h"
#include "support/FakeHost.h"
#include "support/LoadedDescription.h"
#include "support/TestMain.h"

using namespace DescriptionBuilder;

namespace {

const char kDescription[] = R"(
<Category Name="Root"><pFeature>Width</pFeature><pFeature>Gain</pFeature><pFeature>On</pFeature>
<pFeature>Id</pFeature><pFeature>Mode</pFeature><pFeature>ChunkEnable</pFeature></Category>
<Integer Name="Width"/><Converter Name="Gain"/><Boolean Name="On"/><StringReg Name="Id"/>
<Boolean Name="ChunkEnable"/>
<Enumeration Name="Mode">
<EnumEntry Name="Off"><Value>0</Value></EnumEntry>
<EnumEntry Name="Once"><DisplayName>Single</DisplayName><Value>1</Value>
<pIsImplemented>HasModes</pIsImplemented></EnumEntry>
<EnumEntry Name="OnceToo"><DisplayName>Single</DisplayName><Value>0xFFFFFFFF</Value>
<pIsAvailable>HasModes</pIsAvailable></EnumEntry>
<EnumEntry Name="Locked"><Value>3</Value><pIsLocked>IsLocked</pIsLocked></EnumEntry>
</Enumeration>
<IntReg Name="HasModes"/><Boolean Name="IsLocked"/>)";

class SpecialView : public IORXFeatureNotify
{
public:
    void itemSpecialInfoChanged(qint64, ORXPropertyTreeItem*, int) override { ++special; }
    int special = 0;
};

} // namespace

class TestFeatureValueReader : public GuardedTest
{
    Q_OBJECT

protected:
    void prepare() override
    {
        m_stop.clear();
        m_description =
            std::make_unique<LoadedDescription>(wrap(QString::fromLatin1(kDescription)));
        m_decider.setNodes(m_description->index.nodes());
        m_reader = std::make_unique<FeatureValueReader>(m_decider);
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
        m_reader->UpdateGenICamItemValue(*m_description->node(name), m_description->item(name), 1);
    }
    template <typename Value>
    Value* value(const char* name)
    {
        return dynamic_cast<Value*>(m_description->item(name)->value());
    }

    std::unique_ptr<LoadedDescription> m_description;
    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<FeatureValueReader> m_reader;
    FeatureDecider m_decider;
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
        QFETCH(qint64, value);
        QFETCH(qint64, minimum);
        QFETCH(qint64, maximum);
        QFETCH(bool, repaired);
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
        const LoadedDescription description(DescriptionBuilder::wrap(
            "<Category Name=\"Root\"><pFeature>Level</pFeature></Category>"
            "<Enumeration Name=\"Level\"><EnumEntry Name=\"Off\"><Value>-1</Value></EnumEntry>"
            "<EnumEntry Name=\"On\"><Value>1</Value></EnumEntry></Enumeration>"_s));
        m_host->set("Level"_s, FakeHost::enumFeature(-1));
        ORXPropertyTreeItem* item = description.item("Level");
        m_decider.beginItem();
        m_reader->UpdateGenICamItemValue(*description.node("Level"), item, 1);
        QCOMPARE(item->value()->displayValue(), "Off"_s);
        auto* level = dynamic_cast<CTreeEnumationItemValue*>(item->value());
        QCOMPARE(level->valueMap().key("Off"_s), qint64(0xFFFFFFFF));
        level->setValue(level->valueMap().key("On"_s));
        QCOMPARE(item->value()->displayValue(), "On"_s);
        level->setValue(level->valueMap().key("Off"_s));
        QCOMPARE(item->value()->displayValue(), "Off"_s);
    }

    void failedReadsKeepTheLastState()
    {
        read("Mode");
        m_host->fail("Mode"_s, 5);
        m_host->set("HasModes"_s, FakeHost::integerFeature(0));
        read("Mode");
        QCOMPARE(value<CTreeEnumationItemValue>("Mode")->displayList().size(), 3);
        QCOMPARE(value<CTreeEnumationItemValue>("Mode")->number(), qint64(1));
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
        QFETCH(QString, unreadable);
        QFETCH(int, hasModes);
        QFETCH(bool, locked);
        QFETCH(int, values);
        m_host->set("HasModes"_s, FakeHost::integerFeature(hasModes));
        m_host->set("IsLocked"_s, FakeHost::booleanFeature(locked));
        if (!unreadable.isEmpty())
            m_host->fail(unreadable, 9);
        read("Mode");
        const auto* mode = value<CTreeEnumationItemValue>("Mode");
        QTEST(mode->displayList().join(QLatin1Char(' ')), "display");
        QCOMPARE(mode->displayListCN(), mode->displayList()); // no translations
        QCOMPARE(mode->valueMap().size(), values);
        QCOMPARE(mode->nameMap().size(), values);
        if (values == 4)
            QCOMPARE(mode->valueMap().value(4294967295), "Single"_s);
    }

    void eachDeciderIsAskedOnce()
    {
        read("Mode");
        QCOMPARE(m_host->count("get HasModes"_s), 1);
        read("Mode");
        QCOMPARE(m_host->count("get HasModes"_s), 2);
    }

    void stoppingLeavesTheEntries()
    {
        read("Mode");
        m_host->set("HasModes"_s, FakeHost::integerFeature(0));
        // In the middle: the value was read, the entries are being asked for.
        const StopRequest::Scope scope(m_stop);
        m_host->beforeGet = [this](const QString& name) {
            if (name == QLatin1String("HasModes"))
                m_stop.request();
        };
        read("Mode");
        QCOMPARE(value<CTreeEnumationItemValue>("Mode")->displayList().size(), 3);
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
};

OBFT_TEST_MAIN(TestFeatureValueReader)
#include "tst_featurevaluereader.moc"
