// SPDX-License-Identifier: Apache-2.0
#include "device/LoadingLane.h"
#include "model/FeatureDeciders.h"
#include "model/FeatureDescriptionIndex.h"
#include "model/NodesReadAhead.h"
#include "support/DescriptionBuilder.h"
#include "support/LoadedDescription.h"
#include "support/TestMain.h"

#include <QSemaphore>

#include <chrono>

using namespace DescriptionBuilder;

namespace {

// The index over the description, with every name of `items` in the tree.
FeatureDescriptionIndex indexOf(const QString& description, const QStringList& items)
{
    XmlDocument document;
    document.setContent(wrap(description));
    FeatureDescriptionIndex index;
    fillIndex(index, document, [&] { return items; });
    return index;
}

// Rows of the names; hidden ones stand in brackets.
FeatureDeciders::RowOf rowsOf(const QStringList& names)
{
    return [names](const QString& name) {
        return names.contains(name)                 ? FeatureDeciders::Row::Shown
               : names.contains("(%1)"_s.arg(name)) ? FeatureDeciders::Row::Hidden
                                                    : FeatureDeciders::Row::None;
    };
}

// Names, with a "=" behind those whose value itself decides.
QStringList written(const QVector<FeatureDeciders::Decider>& deciders)
{
    QStringList names;
    for (const FeatureDeciders::Decider& each : deciders)
        names.append(each.isValueItself ? each.name + "="_s : each.name);
    return names;
}

} // namespace

class TestFeatureDescriptionIndex : public GuardedTest
{
    Q_OBJECT

private slots:
    void featuresWinOverRegisters_data()
    {
        const Rows<QString, QString> row("description", "tag");
        const QString feature = elements("Float Gain");
        const QString reg = elements("FloatReg Gain");
        row("register first", reg + feature, "Float");
        row("feature first", feature + reg, "Float");
        row("later feature wins", feature + elements("IntReg Gain"), "IntReg");
        row("first register stays", reg + elements("MaskedIntReg Gain"), "FloatReg");
        row("in a group", "<Group Comment=\"x\">%1</Group>"_s.arg(feature), "Float");
        row("inside an entry",
            node("Enumeration"_s, "Mode"_s, "<EnumEntry Name=\"On\">%1</EnumEntry>"_s.arg(feature)),
            "");
    }

    void featuresWinOverRegisters()
    {
        const auto [description, tag] = fetchRow<QString, QString>();
        const FeatureNodePtr node = indexOf(description, {}).GetDomElementNode("Gain"_s);
        QCOMPARE(node ? node->tagName : QString(), tag);
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
        const Rows<QString, QStringList, QString, QStringList> row("description", "items",
                                                                   "written", "stale");
        row("nobody depends on it", elements("Integer Width"), "Width", "Width", "Width");
        row("unknown name", elements("Integer Width"), "Width", "Nothing", "Nothing");
        row("own invalidator does not count", elements("Integer A pInvalidator=B; Integer B"),
            "A B", "B", "B");
        row("invalidator of the register",
            elements("Integer A pValue=RegA; IntReg RegA pInvalidator=B; Integer B"), "A B", "B",
            "A B");
        row("written through its pValue",
            elements("Integer A pValue=RegA; MaskedIntReg RegA pInvalidator=RegB;"
                     "Integer B pValue=RegB; MaskedIntReg RegB"),
            "A B", "B", "A B");
        row("through the maximum",
            elements("Integer Width pMax=WidthMax; IntSwissKnife WidthMax pVariable=OffsetX;"
                     "Integer OffsetX"),
            "Width OffsetX", "OffsetX", "OffsetX Width");
        row("through the lock",
            elements("Integer Width pIsLocked=Lock; IntReg Lock pInvalidator=Start; Command Start"),
            "Width Start", "Start", "Start Width");
        row("the same variable",
            elements("Integer A pValue=SwissA; IntSwissKnife SwissA pVariable=Common;"
                     "Integer B pValue=SwissB; IntSwissKnife SwissB pVariable=Common"),
            "A B", "A", "A B");
        row("the same variable, formulas further",
            elements("Integer A pValue=RegA; MaskedIntReg RegA pMax=SwissA;"
                     "IntSwissKnife SwissA pVariable=Inner; IntSwissKnife Inner pVariable=Common;"
                     "Integer B pVariable=Common"),
            "A B", "A", "A B");
        row("the same variable of their own",
            elements("Converter A pVariable=C; Converter B pVariable=C"), "A B", "A", "A B");
        row("a variable of its own", elements("Converter A pVariable=B; Integer B"), "A B", "B",
            "A B");
        row("through a formula of a formula",
            elements("Integer A pValue=SwissA; IntSwissKnife SwissA pVariable=Inner;"
                     "IntSwissKnife Inner pVariable=B; Integer B"),
            "A B", "B", "A B");
        row("structure entry",
            elements("Integer A pValue=Bit; Integer B") +
                "<StructReg><pInvalidator>B</pInvalidator><StructEntry Name=\"Bit\"/></StructReg>"_s,
            "A B", "B", "A B");
        row("paired through the chain",
            elements("Integer A pValue=Middle; Converter Middle pValue=B; Integer B"), "A B", "B",
            "A B");
        row("partner of what it invalidates",
            elements("Integer A pMin=Least pValue=Middle; IntReg Least pInvalidator=C;"
                     "Converter Middle pValue=B; Integer B; Integer C"),
            "A B C", "C", "A B C");
        row("acquisition", elements("Command AcquisitionStart"), "AcquisitionStart",
            "AcquisitionStart", "AcquisitionStart AcquisitionStop");
        row("packet size", elements("Integer GevSCPSPacketSize"), "GevSCPSPacketSize",
            "GevSCPSPacketSize", "DeviceStreamChannelPacketSize GevSCPSPacketSize");
        row("a selector brings what it selects",
            elements("Enumeration GainSelector pSelected=Gain,GainAuto"), "GainSelector",
            "GainSelector", "Gain GainAuto GainSelector");
    }

    void invalidatorList()
    {
        const auto [description, items, written, stale] =
            fetchRow<QString, QStringList, QString, QStringList>();
        QStringList found = indexOf(description, items).GetFeatureInvalidatorList(written);
        found.sort();
        QCOMPARE(found, stale);
    }

    void pollingInterval_data()
    {
        const Rows<QString, int> row("description", "interval");
        for (const auto& time : {qMakePair(1, 50), qMakePair(20, 50), qMakePair(74, 50),
                                 qMakePair(75, 100), qMakePair(1000, 1000)}) {
            const QByteArray ms = QByteArray::number(time.first);
            row(ms, elements("Integer A PollingTime=" + ms), time.second);
        }
        row("none", elements("Integer A"), 0);
        row("not a number", elements("Integer A PollingTime=often"), 0);
        row("of the register", elements("Integer A pValue=R; IntReg R PollingTime=200"), 200);
        row("a time of 0 ends the look at its own node",
            elements("Integer A PollingTime=0 pValue=R; IntReg R PollingTime=200"), 0);
        row("not cached", elements("Integer A pValue=R; IntReg R Cachable=NoCache"), 2000);
        row("cached", elements("Integer A Cachable=WriteThrough"), 0);
        row("polling time before caching", elements("Integer A Cachable=NoCache PollingTime=500"),
            500);
    }

    void pollingInterval()
    {
        const auto [description, interval] = fetchRow<QString, int>();
        QCOMPARE(indexOf(description, words("A")).pollingMap().value("A"_s), interval);
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
        const auto [circle, lines] = fetchRow<bool, int>();
        MessageGuard::expectMessage("node N0 refers to itself in a circle"_s);
        constexpr int kNodes = 20000;
        QStringList names;
        for (int i = 0; i < kNodes; ++i)
            names.append("N%1"_s.arg(i));
        QString description = elements("Integer Width pIsLocked=N0");
        for (int i = 0; i < kNodes; ++i) {
            const QString next = i + 1 < kNodes ? names.at(i + 1)
                                 : circle       ? names.first()
                                                : QString();
            const QString content =
                next.isNull() ? child("PollingTime"_s, "200"_s) : child("pValue"_s, next);
            description += node("Integer"_s, names.at(i), content);
        }
        const FeatureDescriptionIndex index = indexOf(description, names);
        QCOMPARE(index.pollingMap().size(), circle ? 0 : kNodes);
        // A change of the last one makes all before it stale, but for the one whose value it is.
        QVERIFY(index.GetFeatureInvalidatorList(names.last()).size() >= kNodes - 1);
        const FeatureDeciders deciders(index.nodes());
        QCOMPARE(written(deciders.of("Width"_s, ReadOnlyCause::Locked, rowsOf({names.last()}))),
                 QStringList{names.last() + "="_s});
        const QString line = "Feature description: node N0 refers to itself in a circle"_s;
        QCOMPARE(MessageGuard::messages().filter(line).size(), lines);
    }

    // Who decides ---------------------------------------------------------------------------------
    void deciders_data()
    {
        const Rows<int, QString, QStringList, QStringList> row("cause", "description", "rows",
                                                               "expected");
        const int kLocked = int(ReadOnlyCause::Locked);
        const int kUnavailable = int(ReadOnlyCause::NotAvailable);
        const int kMode = int(ReadOnlyCause::AccessMode);
        const QString lock = elements("Integer Width pIsLocked=Lock");
        const QString gate = elements("Integer Width pIsAvailable=Lock");
        const QString modeAndGain = elements("Enumeration Mode; Float Gain");
        row("a feature itself", kLocked, lock + elements("Integer Lock"), "Lock", "Lock=");
        row("nothing named", kLocked, gate + elements("Integer Lock"), "Lock", "");
        row("formulas of formulas", kLocked,
            lock + modeAndGain +
                elements("IntSwissKnife Lock pVariable=Inner,Gain;"
                         "IntSwissKnife Inner pVariable=Mode,Gain"),
            "Gain Mode", "Mode Gain");
        row("through pValue", kLocked,
            lock + elements("Integer Lock pValue=Inner; Integer Inner pValue=Mode; Boolean Mode"),
            "Mode", "Mode=");
        const QString ofRegister =
            elements("IntSwissKnife Lock pVariable=Reg; IntReg Reg; Float Gain");
        row("who shows the register", kLocked,
            lock + ofRegister + elements("Enumeration Mode pValue=Reg"), "Mode", "Mode");
        row("who shows the register after some steps", kLocked,
            lock + ofRegister +
                elements("Enumeration Mode pValue=Raw; Converter Raw pValue=Reg pVariable=Gain"),
            "Gain Mode", "Mode");
        row("a register of the feature itself", kLocked,
            ofRegister + elements("Integer Width pIsLocked=Lock pValue=Reg"), "Width", "");
        row("no row at all", kLocked, lock + ofRegister, "", "");
        row("a register itself", kUnavailable,
            gate + elements("MaskedIntReg Lock; Boolean Mode pValue=Lock"), "Mode", "Mode=");
        row("a converter", kLocked,
            lock + modeAndGain + elements("Converter Lock pVariable=Gain pValue=Mode"), "Gain Mode",
            "Gain Mode=");
        row("without a shown row", kLocked, lock + elements("Integer Lock"), "(Lock)", "Lock=");
        const QString chain = lock + elements("Integer Lock pValue=Mode; Boolean Mode");
        row("shown ones first", kLocked, chain, "(Lock) Mode", "Mode=");
        row("the nearest of hidden ones", kLocked, chain, "(Lock) (Mode)", "Lock=");
        row("hidden beside shown", kLocked,
            lock + modeAndGain + elements("IntSwissKnife Lock pVariable=Mode,Gain"), "(Gain) Mode",
            "Mode Gain");
        row("not by itself", kUnavailable,
            gate + modeAndGain + elements("IntSwissKnife Lock pVariable=Width,Mode"), "Width Mode",
            "Mode");
        row("a node that is missing", kLocked, lock + modeAndGain, "Mode", "");
        row("a circle", kLocked,
            lock + modeAndGain +
                elements("IntSwissKnife Lock pVariable=Inner;"
                         "IntSwissKnife Inner pVariable=Lock,Mode"),
            "Mode", "Mode");
        row("locked where the value comes from", kMode,
            elements("Integer Width pIsLocked=Own pValue=WidthReg; Integer Own;"
                     "Integer WidthReg pIsLocked=Lock; Integer Lock"),
            "Lock Own", "Lock=");
        row("value that comes from itself", kMode,
            elements("Integer Width pValue=WidthReg; Integer Lock;"
                     "Integer WidthReg pValue=Width pIsLocked=Lock"),
            "Lock", "Lock=");
    }

    void deciders()
    {
        const auto [cause, description, rows, expected] =
            fetchRow<int, QString, QStringList, QStringList>();
        const FeatureDeciders deciders(indexOf(description, {}).nodes());
        QCOMPARE(written(deciders.of("Width"_s, ReadOnlyCause(cause), rowsOf(rows))), expected);
    }

    void roadOfWriting_data()
    {
        const Rows<QString, bool> row("description", "written");
        const QString width = elements("Integer Width pValue=Reg");
        row("a register", width + elements("IntReg Reg AccessMode=RW"), true);
        row("a value of its own", elements("Integer Width Value=3"), true);
        row("a register to read", width + elements("IntReg Reg AccessMode=RO"), false);
        row("imposed", elements("Integer Width ImposedAccessMode=RO"), false);
        row("a formula", width + elements("IntSwissKnife Reg pVariable=Other"), false);
        const QString converter = width + elements("Converter Reg pValue=Other");
        row("a converter", converter + elements("IntReg Other"), true);
        row("a register behind a converter", converter + elements("IntReg Other AccessMode=RO"),
            false);
        row("a node that is missing", width, true);
        row("a circle", width + elements("Integer Reg pValue=Width"), true);
    }

    void roadOfWriting()
    {
        const auto [description, written] = fetchRow<QString, bool>();
        const FeatureDeciders deciders(indexOf(description, {}).nodes());
        QCOMPARE(deciders.canEverBeWritten("Width"_s), written);
    }

    void nodesReadAheadAreThoseOfTheContent()
    {
        XmlDocument document;
        XmlDocument other;
        document.setContent(wrap(elements("Integer Width")));
        other.setContent(wrap(elements("Integer Height")));
        const auto names = [&] { return NodesReadAhead::take(document).nodes.nodes().keys(); };
        NodesReadAhead::begin(other);
        QCOMPARE(names(), words("Width"));
        NodesReadAhead::begin(document);
        QCOMPARE(names(), words("Width"));
        QCOMPARE(names(), words("Width")); // read anew
        NodesReadAhead::begin(document);
        document.setContent(wrap(elements("Integer Gain")));
        QCOMPARE(names(), words("Gain"));
    }

    void graphIsBuiltBehindWhatElseIsLoaded()
    {
        QSemaphore nodesMayCome;
        QSemaphore textsMayCome;
        XmlDocument document;
        document.setContent(
            wrap(elements("Integer A pValue=RegA; IntReg RegA pInvalidator=B; Integer B")));
        LoadingLane::run([&] { nodesMayCome.acquire(); });
        NodesReadAhead::begin(document);
        LoadingLane::run([&] { textsMayCome.acquire(); });
        nodesMayCome.release();
        const NodesReadAhead::Nodes read = NodesReadAhead::take(document);
        QCOMPARE(read.invalidation.wait_for(std::chrono::milliseconds(20)),
                 std::future_status::timeout);
        textsMayCome.release();
        QVERIFY(read.invalidation.get().staleAfter({"B"_s}).contains("A"_s));
    }
};

OBFT_TEST_MAIN(TestFeatureDescriptionIndex)
#include "tst_featuredescriptionindex.moc"
