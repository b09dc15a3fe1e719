// SPDX-License-Identifier: Apache-2.0
#include "FaultPlan.h"
#include "support/TestMain.h"

#include <QTemporaryDir>

#include <cmath>

Q_DECLARE_METATYPE(FaultPlan::Rule)

class TestFaultPlan : public GuardedTest
{
    Q_OBJECT

private slots:
    void understandsRules_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<FaultPlan::Rule>("rule");
        const auto row = [](const char* text, FaultPlan::Kind kind, const char* pattern) -> auto&
        {
            static FaultPlan::Rule rule;
            rule = FaultPlan::Rule();
            rule.kind = kind;
            rule.pattern = pattern;
            Q_UNUSED(text)
            return rule;
        };
        const auto add = [](const char* text, const FaultPlan::Rule& rule) {
            QTest::newRow(text) << QString::fromLatin1(text) << rule;
        };
        FaultPlan::Rule rule = row("", FaultPlan::Latency, "*");
        rule.milliseconds = 5;
        add("latency * 5", rule);
        rule = row("", FaultPlan::Jitter, "Gain*");
        rule.milliseconds = 3;
        rule.operations = FaultPlan::OnMode;
        add("jitter Gain* 3 on mode", rule);
        rule = row("", FaultPlan::Error, "Gain");
        rule.code = static_cast<int>(0x80000001U);
        rule.times = 1;
        add("error Gain 0x80000001", rule);
        rule.times = FaultPlan::kAlways;
        rule.after = 4;
        rule.operations = FaultPlan::OnWrite;
        rule.code = -3;
        add("error Gain -3 always after 4 on write", rule);
        rule = row("", FaultPlan::Hang, "Width");
        rule.milliseconds = 700;
        rule.times = 2;
        add("hang Width 700 times 2", rule);
        rule = row("", FaultPlan::Vanish, "Width");
        rule.after = 3;
        add("vanish Width after 3", rule);
        rule = row("", FaultPlan::Lock, "Gain");
        rule.word = "ExposureTime";
        add("lock Gain by ExposureTime", rule);
        rule = row("", FaultPlan::Mode, "Gain");
        rule.code = 9;
        add("mode Gain 9", rule);
        rule = row("", FaultPlan::Value, "K");
        rule.number = -1;
        add("value K -1", rule);
        rule = row("", FaultPlan::Entries, "E");
        rule.number = 1000000;
        add("entries E 1000000", rule);
        rule = row("", FaultPlan::Range, "Width");
        rule.minimum = 10;
        rule.maximum = 1;
        rule.increment = -2.5;
        add("range Width min=10 max=1 inc=-2.5", rule);
        rule = row("", FaultPlan::Text, "S");
        rule.word = "unterminated";
        add("text S unterminated", rule);
        rule = row("", FaultPlan::Disconnect, "*");
        rule.times = 1;
        rule.after = 100;
        add("disconnect after 100", rule);
        rule = row("", FaultPlan::LongName, "Width");
        add("  long-name   Width  # with a comment; and more", rule);
    }

    void understandsRules()
    {
        QFETCH(QString, text);
        QFETCH(FaultPlan::Rule, rule);
        QString error;
        const auto plan = FaultPlan::parse(text, &error);
        QVERIFY2(plan, qPrintable(error));
        QCOMPARE(plan->rules.size(), std::size_t(1));
        const FaultPlan::Rule& read = plan->rules[0];
        QCOMPARE(int(read.kind), int(rule.kind));
        QCOMPARE(read.pattern, rule.pattern);
        QCOMPARE(read.operations, rule.operations);
        QCOMPARE(read.after, rule.after);
        QCOMPARE(read.times, rule.times);
        QCOMPARE(read.milliseconds, rule.milliseconds);
        QCOMPARE(read.code, rule.code);
        QCOMPARE(read.number, rule.number);
        QCOMPARE(read.word, rule.word);
        QVERIFY(read.minimum == rule.minimum && read.maximum == rule.maximum &&
                read.increment == rule.increment && read.value == rule.value);
    }

    void refusesWithALineNumber_data()
    {
        const Rows<QString, QString> row("text", "error");
        row.of("explode *", "line 1: there is no rule \"explode\"");
        row.of("seed 1\nlatency *", "line 2: number of milliseconds is missing");
        row.of("latency * fast", "line 1: \"fast\" is no number of milliseconds");
        row.of("latency * -5", "line 1: \"-5\" is no number of milliseconds");
        row.of("error Gain", "line 1: error code is missing");
        row.of("error Gain 1 now", "line 1: \"now\" is not understood");
        row.of("error Gain 1 on air", "line 1: \"on\" needs read, write or mode");
        row.of("error Gain 1 times 0", "line 1: \"0\" is no number of calls");
        row.of("lock Gain", "line 1: \"by\" is missing");
        row.of("text S loud", "line 1: \"loud\" is no kind of text");
        row.of("range Width low=3", "line 1: \"low=3\" is not understood");
        row.of("mode Gain 3; lock A by B C", "line 1: \"C\" is too much");
    }

    void refusesWithALineNumber()
    {
        QFETCH(QString, text);
        QString error;
        QVERIFY(!FaultPlan::parse(text, &error));
        QTEST(error, "error");
    }

    void readsFilesAndInlineText()
    {
        QTemporaryDir directory;
        const QString name = directory.filePath("plan.txt"_s);
        QFile file(name);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("# slow\nseed 42\nlatency * 1\n\nrange W value=nan ; vanish B\n");
        file.close();
        QString error;
        const auto fromFile = FaultPlan::load(name, &error);
        QVERIFY2(fromFile, qPrintable(error));
        QCOMPARE(fromFile->seed, 42U);
        QCOMPARE(fromFile->rules.size(), std::size_t(3));
        QVERIFY(std::isnan(fromFile->rules[1].value.value()));
        QCOMPARE(FaultPlan::load("vanish A; vanish B"_s, &error)->rules.size(), std::size_t(2));
        QVERIFY(FaultPlan::load(QString(), &error)->rules.empty());
    }

    void matchesPatterns_data()
    {
        const Rows<QByteArray, QByteArray, bool> row("pattern", "name", "matches");
        row("all", "*", "", true);
        row("same", "Gain", "Gain", true);
        row("case", "Gain", "gain", false);
        row("part", "Gain", "GainAuto", false);
        row("beginning", "Gain*", "GainAuto", true);
        row("one character", "Line?", "Line3", true);
    }

    void matchesPatterns()
    {
        QFETCH(QByteArray, pattern);
        QFETCH(QByteArray, name);
        FaultPlan::Rule rule;
        rule.pattern = pattern.toStdString();
        QTEST(rule.matches(name.toStdString()), "matches");
    }
};

OBFT_TEST_MAIN(TestFaultPlan)
#include "tst_faultplan.moc"
