// SPDX-License-Identifier: Apache-2.0
// Feature files without a camera: their text, and the order in which features stand in them.
#include "changes/ExactValue.h"
#include "changes/FeatureFile.h"
#include "changes/FeatureFileCheck.h"
#include "changes/FeatureFileOrder.h"
#include "support/DescriptionBuilder.h"
#include "support/LoadedDescription.h"
#include "support/TestMain.h"

#include <utility>
#include <vector>

using namespace DescriptionBuilder;

namespace {

// "A,B: C,D" for a group of C and D behind the selectors A and B; plain groups have no colon.
QString textOf(const QVector<FeatureFileGroup>& groups)
{
    QStringList texts;
    for (const FeatureFileGroup& group : groups) {
        const QString features = group.features.join(QLatin1Char(','));
        texts.append(group.selectors.isEmpty()
                         ? features
                         : group.selectors.join(QLatin1Char(',')) + ": "_s + features);
    }
    return texts.join("; "_s);
}

} // namespace

class TestFeatureFile : public GuardedTest
{
    Q_OBJECT

private slots:
    void valuesReadBackAsTheyWere_data()
    {
        const Rows<QString> row("value");
        row("plain", "12");
        row("empty", "");
        row("blanks", "  a b ");
        row("tab", "a\tb");
        row("line breaks", "a\nb\r\nc\rd");
        row("backslashes", "C:\\temp\\new\\");
        row("looks like a comment", "# not one");
        row("Chinese", "曝光 µs");
        row("beyond 16 bits", "\U0001F4F7");
    }

    void valuesReadBackAsTheyWere()
    {
        QFETCH(QString, value);
        FeatureFile file;
        file.model = "Model 1\nX"_s;
        file.append("Before"_s, "1"_s);
        file.append("Text"_s, value);
        file.append("After"_s, "2"_s);
        const FeatureFile read = FeatureFile::parse(file.toBytes({"Two\nlines"_s}));
        QVERIFY(read.faults.isEmpty());
        QCOMPARE(read.model, "Model 1 X"_s);
        QCOMPARE(read.lines.size(), 3);
        QCOMPARE(read.lines.at(1).name, "Text"_s);
        QCOMPARE(read.lines.at(1).value, value);
        QCOMPARE(read.lines.at(2).value, "2"_s);
    }

    void linesOfOtherEditors_data()
    {
        // a line: "number name=value"
        const Rows<QByteArray, QString> row("bytes", "lines");
        row("byte order mark",
            "\xEF\xBB\xBF"
            "A\t1",
            "1 A=1");
        row("one that stands elsewhere is text",
            "# x\n\xEF\xBB\xBF"
            "A\t1",
            "2 "_s + QChar(QChar::ByteOrderMark) + "A=1"_s);
        row("comment behind blanks", " \t# B\t2\nA\t1", "2 A=1");
        row("carriage returns", "A\t1\r\n\r\nB\t2\r\n", "1 A=1, 3 B=2");
        row("blanks", " Height \t 480\nLast\t", "1 Height= 480, 2 Last=");
    }

    void linesOfOtherEditors()
    {
        const auto [bytes, expected] = fetchRow<QByteArray, QString>();
        const FeatureFile file = FeatureFile::parse(bytes);
        QVERIFY(file.faults.isEmpty());
        QStringList lines;
        for (const auto& line : file.lines)
            lines += "%1 %2=%3"_s.arg(line.number).arg(line.name, line.value);
        QCOMPARE(lines.join(", "_s), expected);
    }

    void faultyLinesAreNamed_data()
    {
        const Rows<QByteArray, int, int> row("bytes", "line", "kind");
        using Kind = FeatureFile::FaultKind;
        row("no tab", "A\t1\nWidth 640\n", 2, int(Kind::NoTab));
        row("no name", "\t640\n", 1, int(Kind::NoName));
        row("blank name", "A\t1\n\n  \t640", 3, int(Kind::NoName));
        row("second tab", "A\t1\t2", 1, int(Kind::SecondTab));
        row("unknown escape", "# x\nA\ta\\x", 2, int(Kind::BadEscape));
        row("backslash at the end", "A\ta\\", 1, int(Kind::BadEscape));
        row("not UTF-8", "A\t1\nB\t\xB5s\n", 2, int(Kind::NotUtf8));
        row("half a character", "B\t\xC2", 1, int(Kind::NotUtf8));
        row("too large", QByteArray(FeatureFile::kMaxBytes + 1, '#'), 0, int(Kind::TooLarge));
    }

    void faultyLinesAreNamed()
    {
        const auto [bytes, line, kind] = fetchRow<QByteArray, int, int>();
        const FeatureFile file = FeatureFile::parse(bytes);
        QCOMPARE(file.faults.size(), 1);
        QCOMPARE(file.faults.first().number, line);
        QCOMPARE(int(file.faults.first().kind), kind);
        QCOMPARE(file.faults.first().text().contains(QString::number(line)), line > 0);
    }

    // "3>1": line 3 repeats line 1.
    void aSecondValueIsNamed_data()
    {
        const Rows<QByteArray, QString> row("bytes", "repeated");
        row("none", "A\t1\nB\t1\nC\t1", "");
        row("plain", "C\t1\nA\t1\nC\t2", "3>1");
        row("the same value", "C\t1\n\nC\t1", "3>1");
        row("three times", "C\t1\nC\t2\nC\t3", "2>1 3>1");
        row("another entry between", "S\tOne\nA\t1\nS\tTwo\nA\t2\nS\tOne", "");
        row("the same entry again", "S\tOne\nA\t1\nS\tTwo\nS\tOne\nA\t2", "5>2");
        row("the same entry by number", "S\tOne\nA\t1\nS\t1\nA\t2", "4>2");
        row("a selector of others between", "C\t1\nS\tOne\nC\t2", "3>1");
        row("an outer selector between", "T\t0\nS\tOne\nA\t1\nT\t1\nS\tOne\nA\t2", "");
        row("before any selector", "A\t1\nA\t2\nS\tOne\nA\t1", "2>1");
        row("not on this camera", "X\t1\nX\t2", "2>1");
    }

    void aSecondValueIsNamed()
    {
        const auto [bytes, repeated] = fetchRow<QByteArray, QString>();
        const QString entries = node("EnumEntry"_s, "One"_s, child("Value"_s, "1"_s)) +
                                node("EnumEntry"_s, "Two"_s, child("Value"_s, "2"_s));
        const LoadedDescription loaded(
            wrap(elements("Category Root pFeature=T,S,A,B,C; Integer T pSelected=S; Integer A;"
                          "Integer B; Integer C") +
                 node("Enumeration"_s, "S"_s,
                      child("pSelected"_s, "A"_s) + child("pSelected"_s, "B"_s) + entries)));
        QStringList found;
        for (const FeatureFile::Fault& fault :
             FeatureFileCheck::repeatedLines(FeatureFile::parse(bytes), loaded.index.nodes())) {
            found.append("%1>%2"_s.arg(fault.number).arg(fault.first));
            QVERIFY(fault.text().contains(fault.name));
        }
        QCOMPARE(found.join(QLatin1Char(' ')), repeated);
    }

    // A "+" marks what is streamable.
    void order_data()
    {
        const Rows<QString, QString> row("features", "groups");
        row("as described", "Integer B+; Integer A+", "B,A");
        row("not streamable, or without a value",
            "Integer A+; Integer B Streamable=No; Integer C; Command D+", "A");
        row("selector after what it selects",
            "Integer A+; Integer B+; Enumeration S+ pSelected=A; Integer C+", "S: A; B,C");
        row("a selector that is not streamable", "Enumeration S pSelected=A; Integer A+", "S: A");
        row("two that share a selector, apart",
            "Enumeration S+ pSelected=A,B; Integer A+; Integer C+; Integer B+", "S: A,B; C");
        row("nested",
            "Enumeration Inner+ pSelected=A; Enumeration Outer+ pSelected=Inner,B; Integer A+;"
            "Integer B+",
            "Outer: B; Outer,Inner: A");
        row("two side by side",
            "Enumeration S+ pSelected=A; Enumeration T+ pSelected=A; Integer A+", "S,T: A");
        row("a circle", "Enumeration S+ pSelected=T; Enumeration T+ pSelected=S,A; Integer A+",
            "S,T: A");
        row("selects itself", "Enumeration S+ pSelected=S,A; Integer A+", "S: A");
        row("selects nothing that is streamable", "Enumeration S+ pSelected=A; Integer A", "S");
    }

    void order()
    {
        const auto [features, groups] = fetchRow<QString, QString>();
        const QStringList names = words("S T Inner Outer A B C D");
        const QString all = QString(features).replace("+"_s, " Streamable=Yes"_s);
        const LoadedDescription loaded(
            wrap(category("Root"_s, names) + elements(all.toUtf8().constData())));
        QCOMPARE(textOf(FeatureFileOrder::groups(loaded.index.nodes(), names)), groups);
        QVERIFY(FeatureFileOrder::groups(loaded.index.nodes(), {}).isEmpty());
    }

    void floatsKeepTheirLastDigit()
    {
        FeatureNode feature;
        feature.tag = FeatureTag::Float;
        const std::vector<std::pair<float, QString>> texts = {
            {10000.0F, "10000"_s},      {0.1F, "0.1"_s},
            {1.0F / 3, "0.33333334"_s}, {3.4028235e38F, "3.4028235e+38"_s},
            {1e-45F, "1e-45"_s},        {-0.0F, "0"_s}};
        for (const auto& [number, text] : texts) {
            QCOMPARE(ExactValue::ofFloat(number), text);
            QVERIFY(ExactValue::areEqual(feature, text, ExactValue::ofFloat(number)));
        }
    }

    void valuesAreOfTheirFeature_data()
    {
        const Rows<QString, QString, bool> row("tag", "text", "isValue");
        row("integer", "Integer", "-9223372036854775808", true);
        row("beyond 64 bits", "IntReg", "9223372036854775808", false);
        row("no integer", "Integer", "1.5", false);
        row("float", "Float", "-1.5e-3", true);
        row("no number", "Converter", "nan", false);
        row("too large a float", "Float", "1e39", false);
        row("largest float", "Float", "3.4028235e+38", true);
        row("boolean", "Boolean", "true", true);
        row("boolean by number", "Boolean", "0", true);
        row("no boolean", "Boolean", "yes", false);
        row("entry", "Enumeration", "Off", true);
        row("entry by number", "Enumeration", "7", true);
        row("no entry", "Enumeration", "Of", false);
        row("text", "String", "", true);
        row("command", "Command", "", false);
    }

    void valuesAreOfTheirFeature()
    {
        const auto [tag, text, isValue] = fetchRow<QString, QString, bool>();
        FeatureNode feature;
        feature.tag = featureTag(tag);
        FeatureEnumEntry off;
        off.name = "Off"_s;
        off.value = 3;
        feature.entries = {off};
        QCOMPARE(ExactValue::isValue(feature, text), isValue);
        QCOMPARE(ExactValue::areEqual(feature, text, text), isValue);
    }
};

OBFT_TEST_MAIN(TestFeatureFile)
#include "tst_featurefile.moc"
