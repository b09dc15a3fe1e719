// SPDX-License-Identifier: Apache-2.0
#include "model/FeatureDescriptionIndex.h"
#include "support/DescriptionBuilder.h"
#include "support/TestMain.h"

#include <QDomDocument>

using namespace DescriptionBuilder;

namespace {

QString ref(const char* tag, const char* text)
{
    return child(QString::fromLatin1(tag), QString::fromLatin1(text));
}

QString element(const char* tag, const char* name, const QString& inner = QString())
{
    return node(QString::fromLatin1(tag), QString::fromLatin1(name), inner);
}

// The index over the elements, with every name of `items` in the tree.
FeatureDescriptionIndex indexOf(const QString& elements, const QStringList& items)
{
    QDomDocument document;
    document.setContent(wrap(elements));
    FeatureDescriptionIndex index;
    index.GenerateDomElementMap(document.documentElement());
    index.setItemNames(items);
    index.ResetFeaturesInvalidatorMap();
    index.GenerateFeaturePValueList();
    index.GenerateFeaturePairList();
    index.GenerateFeaturesTLParamsLocked();
    index.GeneratePSelectedList();
    index.GenerateFeatureNoCacheList();
    return index;
}

QStringList names(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

} // namespace

class TestFeatureDescriptionIndex : public GuardedTest
{
    Q_OBJECT
private slots:
    void featuresWinOverRegisters_data();
    void featuresWinOverRegisters();
    void textsAndWrappers();
    void invalidatorList_data();
    void invalidatorList();
    void selectorsBringWhatTheySelect();
    void pollingInterval_data();
    void pollingInterval();
    void cyclesEnd();
    void longChainsAreCutAndNamed();
};

void TestFeatureDescriptionIndex::featuresWinOverRegisters_data()
{
    QTest::addColumn<QString>("elements");
    QTest::addColumn<QString>("tag");
    const QString feature = element("Float", "Gain");
    const QString reg = element("FloatReg", "Gain");
    QTest::newRow("register first") << reg + feature << QStringLiteral("Float");
    QTest::newRow("feature first") << feature + reg << QStringLiteral("Float");
    QTest::newRow("later feature wins")
        << feature + element("IntReg", "Gain") << QStringLiteral("IntReg");
    QTest::newRow("first register stays")
        << reg + element("MaskedIntReg", "Gain") << QStringLiteral("FloatReg");
    QTest::newRow("in a group") << QStringLiteral("<Group Comment=\"x\">%1</Group>").arg(feature)
                                << QStringLiteral("Float");
    QTest::newRow("inside an entry")
        << element("Enumeration", "Mode",
                   QStringLiteral("<EnumEntry Name=\"On\">%1</EnumEntry>").arg(feature))
        << QString();
}

void TestFeatureDescriptionIndex::featuresWinOverRegisters()
{
    QFETCH(QString, elements);
    QFETCH(QString, tag);
    const FeatureDescriptionIndex index = indexOf(elements, {});
    const FeatureNodePtr node = index.GetDomElementNode(QStringLiteral("Gain"));
    QCOMPARE(node ? node->tagName : QString(), tag);
}

void TestFeatureDescriptionIndex::textsAndWrappers()
{
    const FeatureDescriptionIndex index = indexOf(
        QStringLiteral("<Enumeration Name=\"Mode\" NameSpace=\"Custom\">"
                       "<DisplayName><![CDATA[A & B]]></DisplayName>"
                       "<ImposedAccessMode>RO</ImposedAccessMode><AccessMode>RW</AccessMode>"
                       "<EnumEntry Name=\"On\" NameSpace=\"Standard\"><Value> 0x10 </Value>"
                       "<pIsLocked>\n Lock \n</pIsLocked></EnumEntry>"
                       "<pValue>\n  ModeReg  </pValue></Enumeration>"),
        {});
    const FeatureNodePtr mode = index.GetDomElementNode(QStringLiteral("Mode"));
    QVERIFY(mode);
    QCOMPARE(mode->displayName, QStringLiteral("A & B"));
    QCOMPARE(FeatureDescriptionIndex::GetValueAccessMode(mode), QStringLiteral("RO"));
    QString pValue;
    QVERIFY(FeatureDescriptionIndex::GetPValueText(mode, pValue));
    QCOMPARE(pValue, QStringLiteral("ModeReg"));
    QVERIFY(!FeatureDescriptionIndex::GetPIsLockedText(mode, pValue));
    QCOMPARE(mode->entries.size(), 1);
    QCOMPARE(mode->entries.first().value, qint64(16));
    QCOMPARE(mode->entries.first().pIsLocked, QStringLiteral("Lock"));
}

void TestFeatureDescriptionIndex::invalidatorList_data()
{
    QTest::addColumn<QString>("elements");
    QTest::addColumn<QString>("items");
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("stale");
    const auto row = [](const char* title, const QString& elements, const char* items,
                        const char* written, const char* stale) {
        QTest::newRow(title) << elements << QString::fromLatin1(items)
                             << QString::fromLatin1(written) << QString::fromLatin1(stale);
    };
    row("nobody depends on it", element("Integer", "Width"), "Width", "Width", "Width");
    row("unknown name", element("Integer", "Width"), "Width", "Nothing", "Nothing");
    row("own invalidator does not count",
        element("Integer", "A", ref("pInvalidator", "B")) + element("Integer", "B"), "A B", "B",
        "B");
    row("invalidator of the register",
        element("Integer", "A", ref("pValue", "RegA"))
            + element("IntReg", "RegA", ref("pInvalidator", "B")) + element("Integer", "B"),
        "A B", "B", "A B");
    row("written through its pValue",
        element("Integer", "A", ref("pValue", "RegA"))
            + element("MaskedIntReg", "RegA", ref("pInvalidator", "RegB"))
            + element("Integer", "B", ref("pValue", "RegB")) + element("MaskedIntReg", "RegB"),
        "A B", "B", "A B");
    row("through the maximum",
        element("Integer", "Width", ref("pMax", "WidthMax"))
            + element("IntSwissKnife", "WidthMax", ref("pVariable", "OffsetX"))
            + element("Integer", "OffsetX"),
        "Width OffsetX", "OffsetX", "OffsetX Width");
    row("through the lock",
        element("Integer", "Width", ref("pIsLocked", "Lock"))
            + element("IntReg", "Lock", ref("pInvalidator", "Start")) + element("Command", "Start"),
        "Width Start", "Start", "Start Width");
    row("the same variable",
        element("Integer", "A", ref("pValue", "SwissA")) + element("Integer", "B", ref("pValue", "SwissB"))
            + element("IntSwissKnife", "SwissA", ref("pVariable", "Common"))
            + element("IntSwissKnife", "SwissB", ref("pVariable", "Common")),
        "A B", "A", "A B");
    row("structure entry",
        element("Integer", "A", ref("pValue", "Bit"))
            + QStringLiteral("<StructReg>%1<StructEntry Name=\"Bit\"/></StructReg>")
                  .arg(ref("pInvalidator", "B"))
            + element("Integer", "B"),
        "A B", "B", "A B");
    row("paired through the chain",
        element("Integer", "A", ref("pValue", "Middle"))
            + element("Converter", "Middle", ref("pValue", "B")) + element("Integer", "B"),
        "A B", "B", "A B");
    row("acquisition", element("Command", "AcquisitionStart"), "AcquisitionStart",
        "AcquisitionStart", "AcquisitionStart AcquisitionStop");
    row("packet size", element("Integer", "GevSCPSPacketSize"), "GevSCPSPacketSize",
        "GevSCPSPacketSize", "DeviceStreamChannelPacketSize GevSCPSPacketSize");
}

void TestFeatureDescriptionIndex::invalidatorList()
{
    QFETCH(QString, elements);
    QFETCH(QString, items);
    QFETCH(QString, written);
    QFETCH(QString, stale);
    const FeatureDescriptionIndex index =
        indexOf(elements, items.split(QLatin1Char(' ')));
    const QList<QString> list = index.GetFeatureInvalidatorList(written);
    QCOMPARE(sorted(list), sorted(stale.split(QLatin1Char(' '))));
}

void TestFeatureDescriptionIndex::selectorsBringWhatTheySelect()
{
    const FeatureDescriptionIndex index =
        indexOf(element("Enumeration", "GainSelector",
                        ref("pSelected", "Gain") + ref("pSelected", "GainAuto")),
                names("GainSelector"));
    QList<QString> selected;
    QVERIFY(index.GetFeaturePSelectedList(QStringLiteral("GainSelector"), selected));
    QCOMPARE(selected, names("Gain GainAuto"));
    QVERIFY(!index.GetFeaturePSelectedList(QStringLiteral("Gain"), selected));
    QCOMPARE(sorted(index.GetFeatureInvalidatorList(QStringLiteral("GainSelector"))),
             names("Gain GainAuto GainSelector"));
}

void TestFeatureDescriptionIndex::pollingInterval_data()
{
    QTest::addColumn<QString>("elements");
    QTest::addColumn<int>("interval");
    for (const auto& time : {qMakePair(1, 50), qMakePair(20, 50), qMakePair(74, 50),
                             qMakePair(75, 100), qMakePair(1000, 1000)}) {
        QTest::newRow(qPrintable(QString::number(time.first)))
            << element("Integer", "A",
                       child(QStringLiteral("PollingTime"), QString::number(time.first)))
            << time.second;
    }
    QTest::newRow("none") << element("Integer", "A") << 0;
    QTest::newRow("not a number") << element("Integer", "A", ref("PollingTime", "often")) << 0;
    QTest::newRow("of the register")
        << element("Integer", "A", ref("pValue", "R"))
               + element("IntReg", "R", ref("PollingTime", "200"))
        << 200;
    QTest::newRow("a time of 0 ends the look at its own node")
        << element("Integer", "A", ref("PollingTime", "0") + ref("pValue", "R"))
               + element("IntReg", "R", ref("PollingTime", "200"))
        << 0;
    QTest::newRow("not cached") << element("Integer", "A", ref("pValue", "R"))
                                       + element("IntReg", "R", ref("Cachable", "NoCache"))
                                << 2000;
    QTest::newRow("cached") << element("Integer", "A", ref("Cachable", "WriteThrough")) << 0;
    QTest::newRow("polling time before caching")
        << element("Integer", "A", ref("Cachable", "NoCache") + ref("PollingTime", "500")) << 500;
}

void TestFeatureDescriptionIndex::pollingInterval()
{
    QFETCH(QString, elements);
    QFETCH(int, interval);
    const FeatureDescriptionIndex index = indexOf(elements, names("A"));
    QCOMPARE(index.pollingMap().value(QStringLiteral("A")), interval);
}

void TestFeatureDescriptionIndex::cyclesEnd()
{
    const FeatureDescriptionIndex index =
        indexOf(element("Integer", "A", ref("pValue", "B") + ref("pVariable", "A"))
                    + element("Integer", "B", ref("pValue", "A") + ref("pMin", "B")),
                names("A B"));
    QCOMPARE(index.GetPollingTime(QStringLiteral("A")), 0);
    QVERIFY(!index.IsNoCacheFeature(QStringLiteral("B")));
    QCOMPARE(sorted(index.GetFeatureInvalidatorList(QStringLiteral("A"))), names("A B"));
}

void TestFeatureDescriptionIndex::longChainsAreCutAndNamed()
{
    MessageGuard::expectMessage(QStringLiteral("refers to too many others"));
    QString elements = element("Integer", "Start", ref("pValue", "N0"));
    constexpr int kChain = 20000;
    for (int i = 0; i < kChain; ++i)
        elements += node(QStringLiteral("IntConverter"), QStringLiteral("N%1").arg(i),
                         child(QStringLiteral("pValue"), QStringLiteral("N%1").arg(i + 1)));
    const FeatureDescriptionIndex index = indexOf(elements, names("Start"));
    QCOMPARE(index.GetPollingTime(QStringLiteral("Start")), 0);
    QVERIFY(MessageGuard::contains(QStringLiteral("node N0 refers to too many others")));
}

OBFT_TEST_MAIN(TestFeatureDescriptionIndex)
#include "tst_featuredescriptionindex.moc"
