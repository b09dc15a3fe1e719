// SPDX-License-Identifier: Apache-2.0
#include "device/XmlDocument.h"
#include "model/FeatureDeciders.h"
#include "support/DescriptionBuilder.h"
#include "support/TestMain.h"

using namespace DescriptionBuilder;

namespace {

FeatureNodeMap nodesOf(const QString& description)
{
    XmlDocument document;
    document.setContent(wrap(description));
    return FeatureNodeMap(document.documentElement());
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

class TestFeatureDeciders : public GuardedTest
{
    Q_OBJECT

private slots:
    void deciders_data()
    {
        const Rows<QString, QString, QStringList, QStringList> row("cause", "description", "rows",
                                                                   "expected");
        const QString lock = elements("Integer Width pIsLocked=Lock");
        const QString gate = elements("Integer Width pIsAvailable=Lock");
        const QString modeAndGain = elements("Enumeration Mode; Float Gain");
        row("a feature itself", "lock", lock + elements("Integer Lock"), "Lock", "Lock=");
        row("available by a feature", "available", gate + elements("Integer Lock"), "Lock",
            "Lock=");
        row("nothing named", "lock", gate + elements("Integer Lock"), "Lock", "");
        row("two variables of a formula", "lock",
            lock + modeAndGain + elements("IntSwissKnife Lock pVariable=Mode,Gain"), "Gain Mode",
            "Mode Gain");
        row("formulas of formulas", "lock",
            lock + modeAndGain +
                elements("IntSwissKnife Lock pVariable=Inner,Gain;"
                         "IntSwissKnife Inner pVariable=Mode,Gain"),
            "Gain Mode", "Mode Gain");
        row("through pValue", "lock",
            lock + elements("Integer Lock pValue=Inner; Integer Inner pValue=Mode; Boolean Mode"),
            "Mode", "Mode=");
        const QString ofRegister =
            elements("IntSwissKnife Lock pVariable=Reg; IntReg Reg; Float Gain");
        row("who shows the register", "lock",
            lock + ofRegister + elements("Enumeration Mode pValue=Reg"), "Mode", "Mode");
        row("who shows the register after some steps", "lock",
            lock + ofRegister +
                elements("Enumeration Mode pValue=Raw; Converter Raw pValue=Reg pVariable=Gain"),
            "Gain Mode", "Mode");
        row("a register of the feature itself", "lock",
            ofRegister + elements("Integer Width pIsLocked=Lock pValue=Reg"), "Width", "");
        row("no row at all", "lock", lock + ofRegister, "", "");
        row("a register itself", "available",
            gate + elements("MaskedIntReg Lock; Boolean Mode pValue=Lock"), "Mode", "Mode=");
        row("a converter", "lock",
            lock + modeAndGain + elements("Converter Lock pVariable=Gain pValue=Mode"), "Gain Mode",
            "Gain Mode=");
        row("without a shown row", "lock", lock + elements("Integer Lock"), "(Lock)", "Lock=");
        const QString chain = lock + elements("Integer Lock pValue=Mode; Boolean Mode");
        row("shown ones first", "lock", chain, "(Lock) Mode", "Mode=");
        row("the nearest of hidden ones", "lock", chain, "(Lock) (Mode)", "Lock=");
        row("hidden beside shown", "lock",
            lock + modeAndGain + elements("IntSwissKnife Lock pVariable=Mode,Gain"), "(Gain) Mode",
            "Mode Gain");
        row("not by itself", "available",
            gate + modeAndGain + elements("IntSwissKnife Lock pVariable=Width,Mode"), "Width Mode",
            "Mode");
        row("a node that is missing", "lock", lock + modeAndGain, "Mode", "");
        row("a circle", "lock",
            lock + modeAndGain +
                elements("IntSwissKnife Lock pVariable=Inner;"
                         "IntSwissKnife Inner pVariable=Lock,Mode"),
            "Mode", "Mode");
        row("locked where the value comes from", "mode",
            elements("Integer Width pIsLocked=Own pValue=WidthReg; Integer Own;"
                     "Integer WidthReg pIsLocked=Lock; Integer Lock"),
            "Lock Own", "Lock=");
        row("value that comes from itself", "mode",
            elements("Integer Width pValue=WidthReg; Integer Lock;"
                     "Integer WidthReg pValue=Width pIsLocked=Lock"),
            "Lock", "Lock=");
    }

    void deciders()
    {
        QFETCH(QString, cause);
        QFETCH(QString, description);
        QFETCH(QStringList, rows);
        static const QHash<QString, ReadOnlyCause> kCauses = {
            {"lock"_s, ReadOnlyCause::Locked},
            {"available"_s, ReadOnlyCause::NotAvailable},
            {"mode"_s, ReadOnlyCause::AccessMode}};
        const FeatureDeciders deciders(nodesOf(description));
        QTEST(written(deciders.of("Width"_s, kCauses.value(cause), rowsOf(rows))), "expected");
    }

    void longChains()
    {
        constexpr int kNodes = 20000;
        QString chain = elements("Integer Width pIsLocked=N0");
        for (int i = 0; i < kNodes; ++i)
            chain +=
                node("IntSwissKnife"_s, "N%1"_s.arg(i), child("pVariable"_s, "N%1"_s.arg(i + 1)));
        const QString last = "N%1"_s.arg(kNodes);
        const FeatureDeciders deciders(nodesOf(chain + node("Integer"_s, last)));
        QCOMPARE(written(deciders.of("Width"_s, ReadOnlyCause::Locked, rowsOf({last}))),
                 QStringList{last});
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
        QFETCH(QString, description);
        QTEST(FeatureDeciders(nodesOf(description)).canEverBeWritten("Width"_s), "written");
    }
};

OBFT_TEST_MAIN(TestFeatureDeciders)
#include "tst_featuredeciders.moc"
