// SPDX-License-Identifier: Apache-2.0
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
private slots:
    void integerRanges_data();
    void integerRanges();
    void typedValues();
    void failedReadsKeepTheLastState();
    void usableEntries_data();
    void usableEntries();
    void eachDeciderIsAskedOnce();
    void stoppingLeavesTheEntries();
    void chunkFeatureTellsItsViews();

protected:
    void prepare() override;
    void finish() override;

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
    bool m_stopped = false;
};

void TestFeatureValueReader::prepare()
{
    m_stopped = false;
    m_description = std::make_unique<LoadedDescription>(wrap(QString::fromLatin1(kDescription)));
    m_decider.setNodes(m_description->index.nodes());
    m_reader = std::make_unique<FeatureValueReader>(m_decider, [this] { return m_stopped; });
    m_host = std::make_unique<FakeHost>();
    m_host->set(QStringLiteral("ChunkModeActive"), FakeHost::booleanFeature(false));
    m_host->set(QStringLiteral("ChunkEnable"), FakeHost::booleanFeature(true));
    m_host->set(QStringLiteral("Mode"), FakeHost::enumFeature(1));
    m_host->set(QStringLiteral("HasModes"), FakeHost::integerFeature(2));
    m_host->set(QStringLiteral("IsLocked"), FakeHost::booleanFeature(false));
    m_host->install();
    m_host->clearCalls();
}

void TestFeatureValueReader::finish()
{
    FakeHost::uninstall();
}

void TestFeatureValueReader::integerRanges_data()
{
    QTest::addColumn<qint64>("value");
    QTest::addColumn<qint64>("minimum");
    QTest::addColumn<qint64>("maximum");
    QTest::addColumn<bool>("repaired");
    QTest::newRow("usual") << qint64(5) << qint64(0) << qint64(10) << false;
    QTest::newRow("empty range") << qint64(5) << qint64(0) << qint64(-1) << true;
    QTest::newRow("wraps around") << qint64(5) << qint64(INT64_MIN) << qint64(INT64_MAX) << true;
    QTest::newRow("only upside down") << qint64(5) << qint64(10) << qint64(3) << false;
}

void TestFeatureValueReader::integerRanges()
{
    QFETCH(qint64, value);
    QFETCH(qint64, minimum);
    QFETCH(qint64, maximum);
    QFETCH(bool, repaired);
    m_host->set(QStringLiteral("Width"), FakeHost::integerFeature(value, minimum, maximum, 0));
    read("Width");
    const auto numbers = this->value<CTreeIntergerItemValue>("Width")->numbers();
    QCOMPARE(numbers.m_nValue, value);
    QCOMPARE(numbers.m_nMinValue, repaired ? value : minimum);
    QCOMPARE(numbers.m_nMaxValue, repaired ? value : maximum);
}

void TestFeatureValueReader::typedValues()
{
    m_host->set(QStringLiteral("Gain"), FakeHost::floatFeature(1.5F, -1.0F, 24.0F));
    m_host->set(QStringLiteral("Id"), FakeHost::textFeature("lab 3"));
    m_host->set(QStringLiteral("On"), FakeHost::booleanFeature(true));
    read("Gain");
    read("Id");
    read("On");
    const auto gain = value<CTreeFloatItemValue>("Gain")->numbers();
    QCOMPARE(gain.m_fValue, 1.5F);
    QCOMPARE(gain.m_fMinValue, -1.0F);
    QCOMPARE(gain.m_fMaxValue, 24.0F);
    QCOMPARE(value<CTreeStringItemValue>("Id")->displayValue(), QStringLiteral("lab 3"));
    QCOMPARE(value<CTreeStringItemValue>("Id")->maxLength(), 64);
    QCOMPARE(m_description->item("On")->value()->displayValue(), QStringLiteral("True"));
}

void TestFeatureValueReader::failedReadsKeepTheLastState()
{
    read("Mode");
    m_host->fail(QStringLiteral("Mode"), 5);
    m_host->set(QStringLiteral("HasModes"), FakeHost::integerFeature(0));
    read("Mode");
    QCOMPARE(value<CTreeEnumationItemValue>("Mode")->displayList().size(), 3);
    QCOMPARE(value<CTreeEnumationItemValue>("Mode")->number(), qint64(1));
}

void TestFeatureValueReader::usableEntries_data()
{
    QTest::addColumn<QString>("unreadable");
    QTest::addColumn<int>("hasModes");
    QTest::addColumn<bool>("locked");
    QTest::addColumn<QString>("display");
    QTest::addColumn<int>("values");
    QTest::newRow("all; equal texts once") << QString() << 1 << false
                                           << QStringLiteral("Off Single Locked") << 4;
    QTest::newRow("not implemented, not available")
        << QString() << 0 << false << QStringLiteral("Off Locked") << 2;
    QTest::newRow("locked") << QString() << 1 << true << QStringLiteral("Off Single") << 3;
    QTest::newRow("unreadable implemented node")
        << QStringLiteral("HasModes") << 1 << false << QStringLiteral("Off Locked") << 2;
    QTest::newRow("unreadable lock node")
        << QStringLiteral("IsLocked") << 1 << true << QStringLiteral("Off Single Locked") << 4;
}

void TestFeatureValueReader::usableEntries()
{
    QFETCH(QString, unreadable);
    QFETCH(int, hasModes);
    QFETCH(bool, locked);
    QFETCH(QString, display);
    QFETCH(int, values);
    m_host->set(QStringLiteral("HasModes"), FakeHost::integerFeature(hasModes));
    m_host->set(QStringLiteral("IsLocked"), FakeHost::booleanFeature(locked));
    if (!unreadable.isEmpty())
        m_host->fail(unreadable, 9);
    read("Mode");
    const auto* mode = value<CTreeEnumationItemValue>("Mode");
    QCOMPARE(mode->displayList().join(QLatin1Char(' ')), display);
    QCOMPARE(mode->displayListCN().size(), mode->displayList().size());
    QCOMPARE(mode->valueMap().size(), values);
    if (values == 4)
        QCOMPARE(mode->valueMap().value(4294967295), QStringLiteral("Single"));
}

void TestFeatureValueReader::eachDeciderIsAskedOnce()
{
    read("Mode");
    QCOMPARE(m_host->count(QStringLiteral("get HasModes")), 1);
    read("Mode");
    QCOMPARE(m_host->count(QStringLiteral("get HasModes")), 2);
}

void TestFeatureValueReader::stoppingLeavesTheEntries()
{
    read("Mode");
    m_host->set(QStringLiteral("HasModes"), FakeHost::integerFeature(0));
    m_stopped = true;
    read("Mode");
    QCOMPARE(value<CTreeEnumationItemValue>("Mode")->displayList().size(), 3);
}

void TestFeatureValueReader::chunkFeatureTellsItsViews()
{
    SpecialView view;
    m_description->item("ChunkEnable")->registerView(&view);
    m_description->item("On")->registerView(&view);
    m_host->set(QStringLiteral("On"), FakeHost::booleanFeature(true));
    read("On");
    QCOMPARE(view.special, 0);
    read("ChunkEnable");
    QCOMPARE(view.special, 1);
}

OBFT_TEST_MAIN(TestFeatureValueReader)
#include "tst_featurevaluereader.moc"
