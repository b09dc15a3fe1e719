// SPDX-License-Identifier: Apache-2.0
// The trend of a value, without a window: what is kept, its statistics, its axes and words.
#include "changes/TrendAxis.h"
#include "changes/TrendPainter.h"
#include "changes/TrendPictures.h"
#include "changes/TrendStore.h"
#include "model/CTreeEnumationItemValue.h"
#include "model/CTreeIntergerItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "styledctl/ZELCustom.h"
#include "support/TestMain.h"

#include <QImage>
#include <QPainter>

#include <cmath>

namespace {

constexpr qint64 kSecond = 1000;
constexpr qint64 kMinute = 60 * kSecond;
constexpr qint64 kStart = 1'000'000; // of a slot

// Whole numbers to the last digit.
QString text(TrendNumber number)
{
    return number == std::floor(number) ? QString::number(qint64(number))
                                        : QString::number(double(number), 'g', 6);
}

// "10:5" reads 5 ten milliseconds after the start.
TrendSeries seriesOf(const QString& points)
{
    TrendSeries series;
    for (const QString& point : points.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QStringList parts = point.split(QLatin1Char(':'));
        const QString& value = parts.at(1);
        const TrendNumber number =
            value.contains(QLatin1Char('n')) || value.contains(QLatin1Char('.'))
                ? TrendNumber(value.toDouble())
                : TrendNumber(value.toLongLong());
        series.add(kStart + parts.at(0).toLongLong(), number);
    }
    return series;
}

ValueChange changeOf(const QString& name, qint64 ms, const QVariant& before, const QVariant& now)
{
    ValueChange change;
    change.name = name;
    change.beforeSinceMs = kStart;
    change.steadyMs = kStart + ms;
    change.before = before;
    change.now = now;
    return change;
}

// A feature of a row, whose value has the form that the tag and the representation give it.
std::unique_ptr<ORXPropertyTreeItem> feature(const char* tag, const char* representation = "")
{
    auto item =
        std::make_unique<ORXPropertyTreeItem>(nullptr, ORXPropertyTreeItem::FeatureTreePage);
    item->setTagName(QString::fromLatin1(tag));
    item->value()->setDisplayName("Feature"_s);
    if (auto* integer = dynamic_cast<CTreeIntergerItemValue*>(item->value())) {
        integer->setNumbers({0, 0, 100000, 1});
        integer->setRepresentation(QString::fromLatin1(representation));
    }
    if (auto* entries = dynamic_cast<CTreeEnumationItemValue*>(item->value()))
        entries->replaceEnumList(words("Off On"), words("Guan Kai"), {{2, "Off"_s}, {7, "On"_s}},
                                 {});
    return item;
}

// Where the line stands in that part of the width.
QString lineIn(const QImage& image, double part)
{
    const QColor line = ZELCustom::getDataBaseColor("TrendPanelColor_Line"_s);
    const int x = int(image.width() * part);
    for (int y = 0; y < image.height(); ++y) {
        const QColor pixel(image.pixel(x, y));
        const int distance = std::abs(pixel.red() - line.red()) +
                             std::abs(pixel.green() - line.green()) +
                             std::abs(pixel.blue() - line.blue());
        if (distance < 60)
            return y < image.height() * 2 / 5   ? "high"_s
                   : y < image.height() * 3 / 5 ? "middle"_s
                                                : "low"_s;
    }
    return "none"_s;
}

// "_" for a blank, and where nothing stands.
QStringList textsOf(const QVector<TrendPicture::Tick>& ticks)
{
    QStringList texts;
    for (const TrendPicture::Tick& tick : ticks)
        texts.append(tick.text.isEmpty() ? "_"_s : tick.text);
    return texts.replaceInStrings(" "_s, "_"_s);
}

} // namespace

class TestTrend : public GuardedTest
{
    Q_OBJECT

private slots:
    void curve_data()
    {
        // a step: "from-to low/high value"
        const Rows<QString, qint64, qint64, QString, QString> row("points", "from", "to", "steps",
                                                                  "statistics");
        row("nothing read", "", 0, 60000, "", "");
        row("one sample", "5000:7", 0, 60000, "5000-60000 7/7 7", "7 7 7");
        row("one sample, just now", "5000:7", 0, 5000, "5000-5000 7/7 7", "7 7 7");
        row("each value counts as long as it stood", "0:0 30000:3", 0, 40000,
            "0-30000 0/0 0, 30000-40000 3/3 3", "0 0.75 3");
        row("what stood at the beginning", "0:9 5000:1", 3000, 10000,
            "3000-5000 9/9 9, 5000-10000 1/1 1", "1 3.28571 9");
        row("what was over at the beginning", "0:9 3000:1", 3000, 10000, "3000-10000 1/1 1",
            "1 1 1");
        row("several in a slot", "0:5 2000:8 2100:2 2900:4", 0, 4000,
            "0-2000 5/5 5, 2000-4000 2/8 4", "2 4.5 8");
        row("no number", "0:5 2000:nan 4000:7", 0, 6000, "0-2000 5/5 5, 4000-6000 7/7 7", "5 6 7");
        row("infinite", "0:5 2000:inf 4000:7", 0, 6000, "0-2000 5/5 5, 4000-6000 7/7 7", "5 6 7");
        row("no number within a slot", "0:5 100:nan 4000:7", 0, 6000, "0-0 5/5 5, 4000-6000 7/7 7",
            "5 7 7");
        row("a number again within a slot", "0:nan 100:5", 0, 6000, "0-6000 5/5 5", "5 5 5");
        row("no number at all", "0:nan", 0, 6000, "", "");
        row("largest integer", "0:9223372036854775807", 0, 6000,
            "0-6000 9223372036854775807/9223372036854775807 9223372036854775807",
            "9223372036854775807 9223372036854775807 9223372036854775807");
        row("neighbours among large integers", "0:9007199254740993 3000:9007199254740995", 0, 6000,
            "0-3000 9007199254740993/9007199254740993 9007199254740993, "
            "3000-6000 9007199254740995/9007199254740995 9007199254740995",
            "9007199254740993 9007199254740994 9007199254740995");
    }

    void curve()
    {
        const auto [points, from, to, steps, statistics] =
            fetchRow<QString, qint64, qint64, QString, QString>();
        const TrendCurve curve = TrendCurve::of(seriesOf(points), kStart + from, kStart + to);
        QStringList found;
        for (const TrendCurve::Step& step : curve.steps)
            found.append("%1-%2 %3/%4 %5"_s.arg(step.fromMs - kStart)
                             .arg(step.toMs - kStart)
                             .arg(text(step.low), text(step.high), text(step.value)));
        QCOMPARE(found.join(", "_s), steps);
        if (!curve.isEmpty())
            QCOMPARE(QStringList({text(curve.low), text(curve.mean), text(curve.high)})
                         .join(QLatin1Char(' ')),
                     statistics);
    }

    // However long and often a feature changes, and however many of them do.
    void memoryIsBounded()
    {
        TrendStore store;
        for (qint64 ms = 0; ms < 20 * kMinute; ms += 100)
            store.append({changeOf("Temperature"_s, ms, 1.5F, float(ms % 7))});
        const TrendSeries series = store.series("Temperature"_s, {});
        const auto& samples = series.samples();
        QVERIFY(samples.size() > 590);
        QVERIFY(samples.size() <= std::size_t(TrendSeries::kMaxSamples));

        const auto manyAt = [&](qint64 ms, const char* kind) {
            QVector<ValueChange> changes;
            for (int i = 0; i < 2 * TrendStore::kMaxSeries; ++i)
                changes.append(
                    changeOf("%1%2"_s.arg(QLatin1String(kind)).arg(i), ms, 0LL, qint64(i)));
            store.append(changes);
        };
        const auto isKept = [&](const char* name) {
            return !store.series(QString::fromLatin1(name), {}).samples().empty();
        };
        manyAt(20 * kMinute, "Early");
        QCOMPARE(store.count(), int(TrendStore::kMaxSeries));
        QVERIFY(isKept("Temperature") && isKept("Early0"));
        // All have changed just now: only the shown one gets room.
        store.setShown("Late3"_s);
        manyAt(20 * kMinute + 10 * kSecond, "Late");
        QVERIFY(isKept("Late3") && !isKept("Late0"));
        manyAt(23 * kMinute, "Late");
        QCOMPARE(store.count(), int(TrendStore::kMaxSeries));
        QVERIFY(isKept("Late3") && isKept("Late0") && !isKept("Early9"));
    }

    void whatHasNotChangedNeedsNoSeries()
    {
        TrendStore store;
        const TrendSeries series = store.series("Width"_s, {QVariant(640LL), kStart});
        QCOMPARE(series.samples().size(), std::size_t(1));
        QVERIFY(store.series("DeviceUserID"_s, {QVariant("Bench"_s), kStart}).samples().empty());
        store.append({changeOf("DeviceUserID"_s, 0, "Bench"_s, "Roof"_s)});
        QCOMPARE(store.count(), 0);
        // The value before the first change begins the series.
        store.append({changeOf("Width"_s, 5000, 640LL, 320LL)});
        QCOMPARE(store.series("Width"_s, {}).samples().size(), std::size_t(2));
        QCOMPARE(store.series("Width"_s, {}).samples().front().ms, kStart);
    }

    void axis_data()
    {
        const Rows<double, double, bool, QStringList> row("low", "high", "whole", "ticks");
        row("a few", 0, 3, true, "0 1 2 3");
        row("tens", 3, 96, true, "0 50 100");
        row("two", 7, 8, true, "7 8");
        row("one integer", 7, 7, true, "6 7 8");
        row("one float", 2.5, 2.5, false, "2.2 2.4 2.6 2.8");
        row("zero", 0, 0, false, "-1.0 -0.5 0.0 0.5 1.0");
        row("around zero", -0.3, 0.4, false, "-0.4 -0.2 0.0 0.2 0.4");
        row("close together", 45.01, 45.04, false, "45.01 45.02 45.03 45.04");
        row("negative", -1900, -1100, true, "-2000 -1500 -1000");
        row("large", 0, 4e12, true, "0 1e+12 2e+12 3e+12 4e+12");
        row("large and close together", 1e12, 1e12 + 3, true,
            "1000000000000 1000000000001 1000000000002 1000000000003");
        row("all floats", -3.4e38, 3.4e38, false, "-4e+38 -2e+38 0 2e+38 4e+38");
        row("all integers", -9223372036854775808.0, 9223372036854775807.0, true,
            "-1e+19 -5e+18 0 5e+18 1e+19");
        row("tiny", 1e-9, 4e-9, false, "1e-09 2e-09 3e-09 4e-09");
    }

    void axis()
    {
        const auto [low, high, whole, ticks] = fetchRow<double, double, bool, QStringList>();
        const TrendAxis axis(low, high, whole);
        QStringList texts;
        for (const TrendNumber tick : axis.ticks())
            texts.append(axis.text(tick));
        QCOMPARE(texts, ticks);
        QVERIFY(double(axis.ticks().first()) <= low);
        QVERIFY(double(axis.ticks().last()) >= high);
    }

    void wordsAndAxes_data()
    {
        const Rows<QString, QString, QString, qint64, QString, QStringList, QStringList> row(
            "tag", "representation", "points", "now", "summary", "values", "times");
        const char* minute = "-1_min -45_s -30_s -15_s now";
        row("integer", "Integer", "", "0:1 30000:2", 60000, "min 1   mean 1.5   max 2", "1 2",
            minute);
        row("integers beyond double", "Integer", "",
            "0:-9223372036854775808 30000:9223372036854775807", 60000,
            "min -9223372036854775808   mean -0.5   max 9223372036854775807",
            "-1e+19 -5e+18 0 5e+18 1e+19", minute);
        row("hexadecimal", "Integer", "HexNumber", "0:16 30000:32", 60000,
            "min 0x10   mean 0x18   max 0x20", "0xF 0x14 0x19 0x1E 0x23", minute);
        row("float", "Float", "", "0:1.5 30000:2.5", 60000, "min 1.5000   mean 2.0000   max 2.5000",
            "1.5 2.0 2.5", minute);
        row("entries", "Enumeration", "", "0:7 30000:2", 60000, "Off", "Off On", minute);
        row("one entry", "Boolean", "", "0:1", 60000, "True", "_ True _", minute);
        row("two minutes", "Integer", "", "0:1", 60001, "min 1   mean 1   max 1", "0 1 2",
            "-2_min -90_s -1_min -30_s now");
        row("five minutes", "Integer", "", "0:1", 4 * kMinute, "min 1   mean 1   max 1", "0 1 2",
            "-5_min -4_min -3_min -2_min -1_min now");
        row("longer than it is kept", "Integer", "", "0:1 60000:2", 30 * kMinute,
            "min 2   mean 2   max 2", "1 2 3", "-10_min -8_min -6_min -4_min -2_min now");
        row("not read", "Integer", "", "", 60000, "Nothing was read yet.", "", minute);
        row("address", "Integer", "IPV4Address", "0:1", 60000, "Select a feature with a number.",
            "", "");
        row("text", "String", "", "", 60000, "Select a feature with a number.", "", "");
    }

    void wordsAndAxes()
    {
        const auto [tag, representation, points, now, summary, values, times] =
            fetchRow<QString, QString, QString, qint64, QString, QStringList, QStringList>();
        const auto item = feature(qPrintable(tag), qPrintable(representation));
        const TrendPicture picture =
            TrendPictures::make(item.get(), seriesOf(points), kStart + now);
        QCOMPARE(picture.empty + picture.summary, summary);
        QCOMPARE(textsOf(picture.values), values);
        QCOMPARE(textsOf(picture.times), times);
        QCOMPARE(TrendPictures::make(nullptr, {}, kStart).empty,
                 "Select a feature with a number."_s);
    }

    // Also where there is no room for all of it. "1/4 3/4": how high the line stands in these parts
    // of the width, where it is to be seen.
    void paintsItsCurve_data()
    {
        const Rows<QString, int, int, qreal, QString> row("points", "width", "height", "scale",
                                                          "line");
        row("rises", "0:1 30000:2", 320, 150, 1.0, "low high");
        row("falls", "0:2 30000:1", 320, 150, 1.0, "high low");
        row("does not change", "0:2", 320, 150, 1.0, "middle middle");
        row("one sample, late", "30000:1", 320, 150, 1.0, "none middle");
        row("a gap", "0:1 5000:nan 30000:2", 320, 150, 1.0, "none high");
        row("all integers", "0:-9223372036854775808 30000:9223372036854775807", 320, 150, 1.0,
            "low high");
        row("all floats", "0:-3.4e38 30000:3.4e38", 320, 150, 1.0, "low high");
        row("sharp screen", "0:1 30000:2", 320, 150, 2.0, "low high");
        row("small", "0:1 30000:2", 160, 80, 1.0, "low middle");
        row("no room", "0:1 30000:2", 20, 10, 1.0, "");
    }

    void paintsItsCurve()
    {
        const auto [points, width, height, scale, line] =
            fetchRow<QString, int, int, qreal, QString>();
        const auto item = feature("Integer");
        const TrendPicture picture =
            TrendPictures::make(item.get(), seriesOf(points), kStart + kMinute);
        QImage image(QSize(width, height) * scale, QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::black);
        QPainter painter(&image);
        TrendPainter::paint(&painter, QRect(0, 0, width, height), picture);
        painter.end();
        if (!line.isEmpty())
            QCOMPARE(lineIn(image, 0.42) + QLatin1Char(' ') + lineIn(image, 0.85), line);
    }
};

OBFT_TEST_MAIN(TestTrend)
#include "tst_trend.moc"
