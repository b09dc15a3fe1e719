// SPDX-License-Identifier: Apache-2.0
#include "device/XmlDocument.h"
#include "model/FeatureDeciders.h"
#include "support/DescriptionBuilder.h"
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

QString formula(const char* name, const char* variables)
{
    QString inner;
    for (const QString& variable : words(variables))
        inner += child("pVariable"_s, variable);
    return element("IntSwissKnife", name, inner);
}

FeatureNodeMap nodesOf(const QString& elements)
{
    XmlDocument document;
    document.setContent(wrap(elements));
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
        const Rows<QString, QString, QStringList, QStringList> row("cause", "elements", "rows",
                                                                   "expected");
        const QString lock = element("Integer", "Width", ref("pIsLocked", "Lock"));
        const QString gate = element("Integer", "Width", ref("pIsAvailable", "Lock"));
        row("a feature itself", "lock", lock + element("Integer", "Lock"), "Lock", "Lock=");
        row("available by a feature", "available", gate + element("Integer", "Lock"), "Lock",
            "Lock=");
        row("nothing named", "lock", gate + element("Integer", "Lock"), "Lock", "");
        row("two variables of a formula", "lock",
            lock + formula("Lock", "Mode Gain") + element("Enumeration", "Mode") +
                element("Float", "Gain"),
            "Gain Mode", "Mode Gain");
        row("formulas of formulas", "lock",
            lock + formula("Lock", "Inner Gain") + formula("Inner", "Mode Gain") +
                element("Float", "Gain") + element("Boolean", "Mode"),
            "Gain Mode", "Mode Gain");
        row("through pValue", "lock",
            lock + element("Integer", "Lock", ref("pValue", "Inner")) +
                element("Integer", "Inner", ref("pValue", "Mode")) + element("Boolean", "Mode"),
            "Mode", "Mode=");
        row("who shows the register", "lock",
            lock + formula("Lock", "ModeReg") + element("IntReg", "ModeReg") +
                element("Enumeration", "Mode", ref("pValue", "ModeReg")),
            "Mode", "Mode");
        row("who shows the register after some steps", "lock",
            lock + formula("Lock", "ModeReg") + element("IntReg", "ModeReg") +
                element("Converter", "Raw", ref("pValue", "ModeReg") + ref("pVariable", "Gain")) +
                element("Enumeration", "Mode", ref("pValue", "Raw")) + element("Float", "Gain"),
            "Gain Mode", "Mode");
        row("a register of the feature itself", "lock",
            element("Integer", "Width", ref("pIsLocked", "Lock") + ref("pValue", "Reg")) +
                formula("Lock", "Reg") + element("IntReg", "Reg"),
            "Width", "");
        row("a register itself", "available",
            gate + element("MaskedIntReg", "Lock") +
                element("Boolean", "Mode", ref("pValue", "Lock")),
            "Mode", "Mode=");
        row("a converter", "lock",
            lock + element("Converter", "Lock", ref("pVariable", "Gain") + ref("pValue", "Mode")) +
                element("Integer", "Mode") + element("Integer", "Gain"),
            "Gain Mode", "Gain Mode=");
        row("without a shown row", "lock", lock + element("Integer", "Lock"), "(Lock)", "Lock=");
        row("shown ones first", "lock",
            lock + element("Integer", "Lock", ref("pValue", "Mode")) + element("Boolean", "Mode"),
            "(Lock) Mode", "Mode=");
        row("the nearest of hidden ones", "lock",
            lock + element("Integer", "Lock", ref("pValue", "Mode")) + element("Boolean", "Mode"),
            "(Lock) (Mode)", "Lock=");
        row("hidden beside shown", "lock",
            lock + formula("Lock", "Mode Gain") + element("Enumeration", "Mode") +
                element("Float", "Gain"),
            "(Gain) Mode", "Mode Gain");
        row("not by itself", "available",
            gate + formula("Lock", "Width Mode") + element("Integer", "Mode"), "Width Mode",
            "Mode");
        row("a node that is missing", "lock", lock + element("Integer", "Mode"), "Mode", "");
        row("a circle", "lock",
            lock + formula("Lock", "Inner") + formula("Inner", "Lock Mode") +
                element("Integer", "Mode"),
            "Mode", "Mode");
        row("no row at all", "lock", lock + formula("Lock", "Reg") + element("IntReg", "Reg"), "",
            "");
        row("locked where the value comes from", "mode",
            element("Integer", "Width", ref("pIsLocked", "Own") + ref("pValue", "WidthReg")) +
                element("Integer", "WidthReg", ref("pIsLocked", "Lock")) +
                element("Integer", "Lock") + element("Integer", "Own"),
            "Lock Own", "Lock=");
        row("value that comes from itself", "mode",
            element("Integer", "Width", ref("pValue", "WidthReg")) +
                element("Integer", "WidthReg", ref("pValue", "Width") + ref("pIsLocked", "Lock")) +
                element("Integer", "Lock"),
            "Lock", "Lock=");
    }

    void deciders()
    {
        QFETCH(QString, cause);
        QFETCH(QString, elements);
        QFETCH(QStringList, rows);
        static const QHash<QString, ReadOnlyCause> kCauses = {
            {"lock"_s, ReadOnlyCause::Locked},
            {"available"_s, ReadOnlyCause::NotAvailable},
            {"mode"_s, ReadOnlyCause::AccessMode}};
        const FeatureDeciders deciders(nodesOf(elements));
        QTEST(written(deciders.of("Width"_s, kCauses.value(cause), rowsOf(rows))), "expected");
    }

    void longChains()
    {
        constexpr int kNodes = 20000;
        QString elements = element("Integer", "Width", ref("pIsLocked", "N0"));
        for (int i = 0; i < kNodes; ++i)
            elements +=
                node("IntSwissKnife"_s, "N%1"_s.arg(i), child("pVariable"_s, "N%1"_s.arg(i + 1)));
        elements += node("Integer"_s, "N%1"_s.arg(kNodes));
        const QString last = "N%1"_s.arg(kNodes);
        const FeatureDeciders deciders(nodesOf(elements));
        QCOMPARE(written(deciders.of("Width"_s, ReadOnlyCause::Locked, rowsOf({last}))),
                 QStringList{last});
    }

    void roadOfWriting_data()
    {
        const Rows<QString, bool> row("elements", "written");
        const QString width = element("Integer", "Width", ref("pValue", "Reg"));
        row("a register", width + element("IntReg", "Reg", ref("AccessMode", "RW")), true);
        row("a value of its own", element("Integer", "Width", ref("Value", "3")), true);
        row("a register to read", width + element("IntReg", "Reg", ref("AccessMode", "RO")), false);
        row("imposed", element("Integer", "Width", ref("ImposedAccessMode", "RO")), false);
        row("a formula", width + formula("Reg", "Other"), false);
        row("a converter",
            width + element("Converter", "Reg", ref("pValue", "Other")) +
                element("IntReg", "Other"),
            true);
        row("a register behind a converter",
            width + element("IntConverter", "Reg", ref("pValue", "Other")) +
                element("IntReg", "Other", ref("AccessMode", "RO")),
            false);
        row("a node that is missing", width, true);
        row("a circle", width + element("Integer", "Reg", ref("pValue", "Width")), true);
    }

    void roadOfWriting()
    {
        QFETCH(QString, elements);
        QTEST(FeatureDeciders(nodesOf(elements)).canEverBeWritten("Width"_s), "written");
    }
};

OBFT_TEST_MAIN(TestFeatureDeciders)
#include "tst_featuredeciders.moc"
