// SPDX-License-Identifier: Apache-2.0
#include "model/FeatureDescriptionIndex.h"
#include "model/RandomDescription.h"
#include "support/DescriptionBuilder.h"
#include "support/LoadedDescription.h"
#include "support/TestMain.h"

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
    XmlDocument document;
    document.setContent(wrap(elements));
    FeatureDescriptionIndex index;
    fillIndex(index, document, [&] { return items; });
    return index;
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
    void featuresWinOverRegisters_data()
    {
        const Rows<QString, QString> row("elements", "tag");
        const QString feature = element("Float", "Gain");
        const QString reg = element("FloatReg", "Gain");
        row("register first", reg + feature, "Float");
        row("feature first", feature + reg, "Float");
        row("later feature wins", feature + element("IntReg", "Gain"), "IntReg");
        row("first register stays", reg + element("MaskedIntReg", "Gain"), "FloatReg");
        row("in a group", "<Group Comment=\"x\">%1</Group>"_s.arg(feature), "Float");
        row("inside an entry",
            element("Enumeration", "Mode", "<EnumEntry Name=\"On\">%1</EnumEntry>"_s.arg(feature)),
            "");
    }

    void featuresWinOverRegisters()
    {
        QFETCH(QString, elements);
        const FeatureDescriptionIndex index = indexOf(elements, {});
        const FeatureNodePtr node = index.GetDomElementNode("Gain"_s);
        QTEST(node ? node->tagName : QString(), "tag");
    }

    void textsAndWrappers()
    {
        const FeatureDescriptionIndex index =
            indexOf("<Enumeration Name=\"Mode\" NameSpace=\"Custom\">"
                    "<DisplayName><![CDATA[A & B]]></DisplayName>"
                    "<ImposedAccessMode>RO</ImposedAccessMode><AccessMode>RW</AccessMode>"
                    "<EnumEntry Name=\"On\" NameSpace=\"Standard\"><Value> 0x10 </Value>"
                    "<pIsLocked>\n Lock \n</pIsLocked></EnumEntry>"
                    "<pValue>\n  ModeReg  </pValue></Enumeration>"_s,
                    {});
        const FeatureNodePtr mode = index.GetDomElementNode("Mode"_s);
        QVERIFY(mode);
        QCOMPARE(mode->displayName, "A & B"_s);
        QCOMPARE(FeatureDescriptionIndex::GetValueAccessMode(mode), "RO"_s);
        QString pValue;
        QVERIFY(FeatureDescriptionIndex::GetPValueText(mode, pValue));
        QCOMPARE(pValue, "ModeReg"_s);
        QVERIFY(!FeatureDescriptionIndex::GetPIsLockedText(mode, pValue));
        QCOMPARE(mode->entries.size(), 1);
        QCOMPARE(mode->entries.first().value, qint64(16));
        QCOMPARE(mode->entries.first().pIsLocked, "Lock"_s);
    }

    void invalidatorList_data()
    {
        const Rows<QString, QString, QString, QString> row("elements", "items", "written", "stale");
        row("nobody depends on it", element("Integer", "Width"), "Width", "Width", "Width");
        row("unknown name", element("Integer", "Width"), "Width", "Nothing", "Nothing");
        row("own invalidator does not count",
            element("Integer", "A", ref("pInvalidator", "B")) + element("Integer", "B"), "A B", "B",
            "B");
        row("invalidator of the register",
            element("Integer", "A", ref("pValue", "RegA")) +
                element("IntReg", "RegA", ref("pInvalidator", "B")) + element("Integer", "B"),
            "A B", "B", "A B");
        row("written through its pValue",
            element("Integer", "A", ref("pValue", "RegA")) +
                element("MaskedIntReg", "RegA", ref("pInvalidator", "RegB")) +
                element("Integer", "B", ref("pValue", "RegB")) + element("MaskedIntReg", "RegB"),
            "A B", "B", "A B");
        row("through the maximum",
            element("Integer", "Width", ref("pMax", "WidthMax")) +
                element("IntSwissKnife", "WidthMax", ref("pVariable", "OffsetX")) +
                element("Integer", "OffsetX"),
            "Width OffsetX", "OffsetX", "OffsetX Width");
        row("through the lock",
            element("Integer", "Width", ref("pIsLocked", "Lock")) +
                element("IntReg", "Lock", ref("pInvalidator", "Start")) +
                element("Command", "Start"),
            "Width Start", "Start", "Start Width");
        row("the same variable",
            element("Integer", "A", ref("pValue", "SwissA")) +
                element("Integer", "B", ref("pValue", "SwissB")) +
                element("IntSwissKnife", "SwissA", ref("pVariable", "Common")) +
                element("IntSwissKnife", "SwissB", ref("pVariable", "Common")),
            "A B", "A", "A B");
        row("structure entry",
            element("Integer", "A", ref("pValue", "Bit")) +
                "<StructReg>%1<StructEntry Name=\"Bit\"/></StructReg>"_s.arg(
                    ref("pInvalidator", "B")) +
                element("Integer", "B"),
            "A B", "B", "A B");
        row("paired through the chain",
            element("Integer", "A", ref("pValue", "Middle")) +
                element("Converter", "Middle", ref("pValue", "B")) + element("Integer", "B"),
            "A B", "B", "A B");
        row("partner of what it invalidates",
            element("Integer", "A", ref("pMin", "Least") + ref("pValue", "Middle")) +
                element("IntReg", "Least", ref("pInvalidator", "C")) +
                element("Converter", "Middle", ref("pValue", "B")) + element("Integer", "B") +
                element("Integer", "C"),
            "A B C", "C", "A B C");
        row("acquisition", element("Command", "AcquisitionStart"), "AcquisitionStart",
            "AcquisitionStart", "AcquisitionStart AcquisitionStop");
        row("packet size", element("Integer", "GevSCPSPacketSize"), "GevSCPSPacketSize",
            "GevSCPSPacketSize", "DeviceStreamChannelPacketSize GevSCPSPacketSize");
    }

    void invalidatorList()
    {
        QFETCH(QString, elements);
        QFETCH(QString, items);
        QFETCH(QString, written);
        QFETCH(QString, stale);
        const FeatureDescriptionIndex index = indexOf(elements, items.split(QLatin1Char(' ')));
        const QList<QString> list = index.GetFeatureInvalidatorList(written);
        QCOMPARE(sorted(list), sorted(stale.split(QLatin1Char(' '))));
    }

    void selectorsBringWhatTheySelect()
    {
        const FeatureDescriptionIndex index =
            indexOf(element("Enumeration", "GainSelector",
                            ref("pSelected", "Gain") + ref("pSelected", "GainAuto")),
                    words("GainSelector"));
        QList<QString> selected;
        QVERIFY(index.GetFeaturePSelectedList("GainSelector"_s, selected));
        QCOMPARE(selected, words("Gain GainAuto"));
        QVERIFY(!index.GetFeaturePSelectedList("Gain"_s, selected));
        QCOMPARE(sorted(index.GetFeatureInvalidatorList("GainSelector"_s)),
                 words("Gain GainAuto GainSelector"));
    }

    void pollingInterval_data()
    {
        const Rows<QString, int> row("elements", "interval");
        for (const auto& time : {qMakePair(1, 50), qMakePair(20, 50), qMakePair(74, 50),
                                 qMakePair(75, 100), qMakePair(1000, 1000)}) {
            row(qPrintable(QString::number(time.first)),
                element("Integer", "A", child("PollingTime"_s, QString::number(time.first))),
                time.second);
        }
        row("none", element("Integer", "A"), 0);
        row("not a number", element("Integer", "A", ref("PollingTime", "often")), 0);
        row("of the register",
            element("Integer", "A", ref("pValue", "R")) +
                element("IntReg", "R", ref("PollingTime", "200")),
            200);
        row("a time of 0 ends the look at its own node",
            element("Integer", "A", ref("PollingTime", "0") + ref("pValue", "R")) +
                element("IntReg", "R", ref("PollingTime", "200")),
            0);
        row("not cached",
            element("Integer", "A", ref("pValue", "R")) +
                element("IntReg", "R", ref("Cachable", "NoCache")),
            2000);
        row("cached", element("Integer", "A", ref("Cachable", "WriteThrough")), 0);
        row("polling time before caching",
            element("Integer", "A", ref("Cachable", "NoCache") + ref("PollingTime", "500")), 500);
    }

    void pollingInterval()
    {
        QFETCH(QString, elements);
        const FeatureDescriptionIndex index = indexOf(elements, words("A"));
        QTEST(index.pollingMap().value("A"_s), "interval");
    }

    void cyclesEndAndAreNamed()
    {
        MessageGuard::ignoreMessage(QtCriticalMsg,
                                    "Feature description: node A refers to itself in a circle");
        const FeatureDescriptionIndex index =
            indexOf(element("Integer", "A", ref("pValue", "B") + ref("pVariable", "A")) +
                        element("Integer", "B", ref("pValue", "A") + ref("pMin", "B")),
                    words("A B"));
        QCOMPARE(index.GetPollingTime("A"_s), 0);
        QVERIFY(!index.IsNoCacheFeature("B"_s));
        QCOMPARE(sorted(index.GetFeatureInvalidatorList("A"_s)), words("A B"));
    }

    // Each is followed to its end, and what is wrong with a description is told in one line.
    void longChainsAndCircles_data()
    {
        const Rows<bool, int> row("circle", "lines");
        row("chain", false, 0);
        row("circle", true, 1);
    }

    void longChainsAndCircles()
    {
        QFETCH(bool, circle);
        QFETCH(int, lines);
        MessageGuard::expectMessage("refers to itself in a circle"_s);
        constexpr int kNodes = 20000;
        QStringList names;
        for (int i = 0; i < kNodes; ++i)
            names.append("N%1"_s.arg(i));
        QString elements;
        for (int i = 0; i < kNodes; ++i) {
            const QString next = i + 1 < kNodes ? names.at(i + 1)
                                 : circle       ? names.first()
                                                : QString();
            const QString content =
                next.isNull() ? child("PollingTime"_s, "200"_s) : child("pValue"_s, next);
            elements += node("Integer"_s, names.at(i), content);
        }
        const FeatureDescriptionIndex index = indexOf(elements, names);
        QCOMPARE(index.pollingMap().size(), circle ? 0 : kNodes);
        // A change of the last one makes all before it stale, but for the one whose value it is.
        QVERIFY(index.GetFeatureInvalidatorList(names.last()).size() >= kNodes - 1);
        QCOMPARE(MessageGuard::messages().filter("refers to itself"_s).size(), lines);
    }

    // What is kept in reverse tells the same as references that are followed forward.
    void sameAsForward_data()
    {
        QTest::addColumn<unsigned>("seed");
        for (unsigned seed = 1; seed <= 40; ++seed)
            QTest::addRow("seed %u", seed) << seed;
    }

    void sameAsForward()
    {
        QFETCH(unsigned, seed);
        MessageGuard::expectMessage("refers to itself in a circle"_s);
        const RandomDescription description(seed);
        const FeatureDescriptionIndex index = indexOf(description.elements(), {});
        for (const QString& name : description.features()) {
            QCOMPARE(sorted(index.GetFeatureInvalidatorList(name)),
                     sorted(description.staleAfter(name)));
        }
    }
};

OBFT_TEST_MAIN(TestFeatureDescriptionIndex)
#include "tst_featuredescriptionindex.moc"
