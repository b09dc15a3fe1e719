// SPDX-License-Identifier: Apache-2.0
#include "demo/DemoCamera.h"
#include "faults/FaultyCamera.h"
#include "faults/FaultyRecords.h"
#include "host/CameraTalk.h"
#include "support/TestMain.h"

#include <OBFeatureTree/OBFeatureTree.h>

#include <cmath>

using namespace std::chrono_literals;

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

// Plans of faults, and the camera that carries them out.
class TestFaults : public GuardedTest
{
    Q_OBJECT

private:
    std::unique_ptr<FaultyCamera> faulty(const QString& plan)
    {
        QString error;
        const auto parsed = FaultPlan::parse(plan, &error);
        if (!parsed)
            qWarning("%s", qPrintable(error));
        return std::make_unique<FaultyCamera>(*m_demo, *parsed, &m_clock);
    }

    ManualClock m_clock;
    std::unique_ptr<DemoCamera> m_demo;

protected:
    void prepare() override { m_demo = std::make_unique<DemoCamera>(&m_clock); }

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

    void readsLinesAndComments()
    {
        QString error;
        const auto plan = FaultPlan::parse(
            "# slow\nseed 42\nlatency * 1\n\nrange W value=nan ; vanish B\n"_s, &error);
        QVERIFY2(plan, qPrintable(error));
        QCOMPARE(plan->seed, 42U);
        QCOMPARE(plan->rules.size(), std::size_t(3));
        QVERIFY(std::isnan(plan->rules[1].value.value()));
        QVERIFY(FaultPlan::parse(QString(), &error)->rules.empty());
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
        const auto [pattern, name] = fetchRow<QByteArray, QByteArray>();
        FaultPlan::Rule rule;
        rule.pattern = pattern.toStdString();
        QTEST(rule.matches(name.toStdString()), "matches");
    }

    void faultsCome_data()
    {
        const Rows<QString, QString> row("plan", "talk");
        row("none", "", "Width: 1920; Width=640; Width: 640; isConnected: 1; invalidate()");
        row("latencies add up", "latency * 5; latency Width 20 on read; hang Height 300",
            "Width: 1920; took 25ms; Width? rw; took 5ms; Height: 1200; took 305ms; Height: 1200; "
            "took 5ms");
        row("an error comes when it is due", "error Width 0x80000042 after 1 times 2 on read",
            "Width? rw; Width: 1920; Width: error -2147483582; Width: error -2147483582; "
            "Width: 1920");
        row("a feature vanishes", "vanish Width after 1",
            "Width? rw; Width? ni: NodeNotFound; Width: NodeNotFound");
        row("a lock appears after a write", "lock Wid* by ExposureTime",
            "Width=640; ExposureTime=no number: InvalidText; Width=656; ExposureTime=500; "
            "Width? ro; Width=640: NotWritable; Width: 656");
        row("a connection ends", "disconnect after 3",
            "Width: 1920; Width: 1920; Width: 1920; Width: NotConnected; isConnected: 0; "
            "invalidate(): NotConnected; reconnect(); isConnected: 1; Width: 1920");
        row("records are spoilt",
            "range Width min=10 max=1 inc=-3; range Gain value=nan max=-inf; entries PixelFormat "
            "5000; value PixelFormat 7; value ReverseX 200; text DeviceUserID unterminated; text "
            "DeviceVendorName empty",
            "Width.min: 10; Width.max: 1; Width.inc: -3; Gain: nan; Gain.max: -inf; "
            "PixelFormat.entries: 5000; PixelFormat: 7; ReverseX: 200; DeviceUserID.bytes: 256; "
            "DeviceVendorName: ");
        row("modes are spoilt", "mode Width 9; mode Height -1", "Width? 9; Height? -1");
    }

    void faultsCome()
    {
        const auto [plan, talk] = fetchRow<QString, QString>();
        const auto camera = faulty(plan);
        QCOMPARE(CameraTalk(*camera, &m_clock).again(talk), talk);
    }

    void jitterRepeatsWithItsSeed()
    {
        const auto total = [this](const char* plan) {
            const auto camera = faulty(QString::fromLatin1(plan));
            const auto before = m_clock.now();
            _ZDCC_INTVALUE_EX_T record{};
            for (int i = 0; i < 20; ++i)
                camera->read(OB_FT_TYPE_INTEGER, "Width", &record);
            return m_clock.now() - before;
        };
        const auto first = total("seed 7; jitter * 1000");
        QVERIFY(first > 0ms && first <= 20000ms);
        QVERIFY(total("seed 7; jitter * 1000") == first);
        QVERIFY(total("seed 8; jitter * 1000") != first);
    }

    void namesAreLengthened()
    {
        const auto camera = faulty("long-name Width; long-text Height"_s);
        const DescriptionNodes nodes(camera->descriptionXml());
        const DescriptionNodes sound(m_demo->descriptionXml());
        QVERIFY(nodes.isValid());
        QCOMPARE(nodes.all().size(), sound.all().size());
        QCOMPARE(nodes.find("Width")->displayName.size(), std::size_t(FaultyRecords::kLongText));
        QCOMPARE(nodes.find("Height")->description.size(), std::size_t(FaultyRecords::kLongText));
        QCOMPARE(nodes.find("Height")->displayName, sound.find("Height")->displayName);
        QCOMPARE(nodes.find("OffsetX")->displayName, sound.find("OffsetX")->displayName);
    }
};

OBFT_TEST_MAIN(TestFaults)
#include "tst_faults.moc"
