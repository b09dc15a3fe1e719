// SPDX-License-Identifier: Apache-2.0
#include "faults/FaultPlan.h"
#include "support/TestMain.h"

#include <QTemporaryDir>

#include <cmath>

namespace {

// A rule in one line: its kind, its pattern, and all else that is not as in a new rule.
QString described(const FaultPlan::Rule& rule)
{
    static const char* const kKinds[] = {"Latency", "Jitter",   "Hang",     "Error",     "Vanish",
                                         "Value",   "Lock",     "Mode",     "Range",     "Entries",
                                         "Text",    "LongName", "LongText", "Disconnect"};
    const FaultPlan::Rule usual;
    QString line = QLatin1String(kKinds[rule.kind]) + " "_s + QString::fromStdString(rule.pattern);
    const auto add = [&line](const char* name, const auto& value, const auto& normal) {
        if (value != normal)
            line += " %1=%2"_s.arg(QLatin1String(name)).arg(value);
    };
    add("on", rule.operations, usual.operations);
    add("after", rule.after, usual.after);
    add("times", rule.times, usual.times);
    add("ms", rule.milliseconds, usual.milliseconds);
    add("code", rule.code, usual.code);
    add("number", rule.number, usual.number);
    add("word", QString::fromStdString(rule.word), QString());
    const auto addPart = [&line](const char* name, const std::optional<double>& value) {
        if (value)
            line += " %1=%2"_s.arg(QLatin1String(name)).arg(*value);
    };
    addPart("min", rule.minimum);
    addPart("max", rule.maximum);
    addPart("inc", rule.increment);
    addPart("value", rule.value);
    return line;
}

} // namespace

class TestFaultPlan : public GuardedTest
{
    Q_OBJECT

private slots:
    void understandsRules_data()
    {
        const Rows<QString, QString> row("text", "rule");
        row.of("latency * 5", "Latency * ms=5");
        row.of("jitter Gain* 3 on mode", "Jitter Gain* on=4 ms=3");
        row.of("error Gain 0x80000001", "Error Gain times=1 code=-2147483647");
        row.of("error Gain -3 always after 4 on write", "Error Gain on=2 after=4 code=-3");
        row.of("hang Width 700 times 2", "Hang Width times=2 ms=700");
        row.of("vanish Width after 3", "Vanish Width after=3");
        row.of("lock Gain by ExposureTime", "Lock Gain word=ExposureTime");
        row.of("mode Gain 9", "Mode Gain code=9");
        row.of("value K -1", "Value K number=-1");
        row.of("entries E 1000000", "Entries E number=1000000");
        row.of("range Width min=10 max=1 inc=-2.5", "Range Width min=10 max=1 inc=-2.5");
        row.of("text S unterminated", "Text S word=unterminated");
        row.of("disconnect after 100", "Disconnect * after=100 times=1");
        row.of("  long-name   Width  # with a comment; and more", "LongName Width");
    }

    void understandsRules()
    {
        QFETCH(QString, text);
        QString error;
        const auto plan = FaultPlan::parse(text, &error);
        QVERIFY2(plan, qPrintable(error));
        QCOMPARE(plan->rules.size(), std::size_t(1));
        QTEST(described(plan->rules[0]), "rule");
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
