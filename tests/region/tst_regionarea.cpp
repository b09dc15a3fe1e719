// SPDX-License-Identifier: Apache-2.0
// Regions under the limits that cameras set, and under those that none should set.
#include "region/RegionArea.h"
#include "support/TestMain.h"

#include <QRandomGenerator>

#include <limits>

namespace {

constexpr qint64 kMin = std::numeric_limits<qint64>::min();
constexpr qint64 kMax = std::numeric_limits<qint64>::max();

bool onGrid(qint64 value, qint64 minimum, qint64 increment)
{
    return value >= minimum && (value - minimum) % increment == 0;
}

bool isLegal(const RegionAxis::Limits& limits, const RegionAxis::Span& span)
{
    return onGrid(span.size, limits.sizeMinimum, limits.sizeIncrement) &&
           span.size <= limits.sizeMaximum &&
           onGrid(span.offset, limits.offsetMinimum, limits.offsetIncrement) &&
           span.offset <= limits.offsetMaximum && span.end() <= limits.extent;
}

QByteArray text(const RegionAxis::Span& span)
{
    return QByteArray::number(span.offset) + "+" + QByteArray::number(span.size);
}

// Moved, or with another end or begin.
RegionAxis::Span edited(const RegionAxis& axis, char edit, qint64 to)
{
    return edit == 'm' ? axis.moved(to) : edit == 'e' ? axis.withEnd(to) : axis.withBegin(to);
}

// Limits as a camera may have them, and a region that fits.
struct Case
{
    explicit Case(QRandomGenerator& random)
    {
        const auto below = [&](qint64 bound) { return qint64(random.bounded(quint32(bound))); };
        limits.extent = 1 + below(3000);
        limits.sizeMinimum = 1 + below(limits.extent);
        limits.sizeIncrement = 1 + below(20);
        limits.offsetMinimum = below(limits.extent - limits.sizeMinimum + 1);
        limits.offsetIncrement = 1 + below(20);
        limits.sizeMaximum =
            below(2) != 0 ? RegionAxis::kLongest : limits.sizeMinimum + below(limits.extent);
        limits.offsetMaximum =
            below(2) != 0 ? RegionAxis::kLongest : limits.offsetMinimum + below(limits.extent);
        const RegionAxis smallest(limits, {limits.offsetMinimum, limits.sizeMinimum});
        span = RegionAxis(limits, smallest.moved(below(limits.extent))).withEnd(below(2 * 3000));
    }
    RegionAxis axis() const { return {limits, span}; }

    RegionAxis::Limits limits;
    RegionAxis::Span span;
};

} // namespace

Q_DECLARE_METATYPE(RegionAxis::Span)
Q_DECLARE_METATYPE(RegionAxis::Limits)

class TestRegionArea : public GuardedTest
{
    Q_OBJECT
    using Limits = RegionAxis::Limits;

private slots:
    void editsSnap_data()
    {
        const Rows<char, qint64, RegionAxis::Span> row("edit", "to", "result");
        // From 64+640; sizes 16, 32, ... and offsets 0, 4, ... in 2048.
        row("move down to the grid", 'm', 65, {64, 640});
        row("move up to the grid", 'm', 66, {68, 640});
        row("move beyond the begin", 'm', -500, {0, 640});
        row("move to the last place", 'm', 1408, {1408, 640});
        row("move beyond the end", 'm', 5000, {1408, 640});
        row("end down to the grid", 'e', 711, {64, 640});
        row("end up to the grid", 'e', 712, {64, 656});
        row("end at the area's end", 'e', 2048, {64, 1984});
        row("end beyond the area", 'e', 9999, {64, 1984});
        row("end before the begin", 'e', 0, {64, 16});
        row("begin down to the grid", 'b', 81, {80, 624});
        row("begin between the size's grid", 'b', 84, {84, 608});
        row("begin at the area's begin", 'b', 0, {0, 704});
        row("begin beyond the area", 'b', -9999, {0, 704});
        row("begin beyond the end", 'b', 9999, {688, 16});
    }

    void editsSnap()
    {
        const auto [edit, to, result] = fetchRow<char, qint64, RegionAxis::Span>();
        Limits limits;
        limits.sizeMinimum = limits.sizeIncrement = 16;
        limits.offsetIncrement = 4;
        limits.extent = 2048;
        QCOMPARE(text(edited({limits, {64, 640}}, edit, to)), text(result));
    }

    void whatCannotBeLegalStays_data()
    {
        const Rows<Limits, RegionAxis::Span, QByteArray> row("limits", "span", "edits");
        // Sizes: minimum, increment; offsets: minimum, increment; extent; maximum of size and
        // offset.
        row("offset below the minimum, no room above", Limits{10, 1, 80, 1, 100}, {0, 90}, "m");
        row("too near to the end", Limits{50, 1, 0, 1, 100}, {80, 20}, "e");
        row("fixed size and place", Limits{50, 1, 10, 1, 100, 50, 10}, {10, 50}, "meb");
        row("fixed size, begin off the grid", Limits{50, 1, 0, 4, 100, 50}, {11, 50}, "eb");
    }

    void whatCannotBeLegalStays()
    {
        const auto [limits, span, edits] = fetchRow<Limits, RegionAxis::Span, QByteArray>();
        for (const char edit : qAsConst(edits)) {
            for (const qint64 to : {-1000, 0, 45, 100, 1000})
                QCOMPARE(text(edited({limits, span}, edit, to)), text(span));
        }
    }

    void everyEditIsLegal()
    {
        QRandomGenerator random(20240607);
        for (int i = 0; i < 20000; ++i) {
            const RegionAxis axis = Case(random).axis();
            QVERIFY2(isLegal(axis.limits(), axis.span()), text(axis.span()));
            const qint64 to = qint64(random.bounded(quint32(9000))) - 3000;
            for (const RegionAxis::Span& got :
                 {axis.moved(to), axis.withEnd(to), axis.withBegin(to)})
                QVERIFY2(isLegal(axis.limits(), got),
                         "case " + QByteArray::number(i) + ": " + text(axis.span()) + " to " +
                             QByteArray::number(to) + " gives " + text(got));
            QCOMPARE(axis.moved(to).size, axis.span().size);
            QCOMPARE(axis.withEnd(to).offset, axis.span().offset);
            // Left where it is nothing changes, even if the grids do not meet.
            QCOMPARE(text(axis.moved(axis.span().offset)), text(axis.span()));
            QCOMPARE(text(axis.withEnd(axis.span().end())), text(axis.span()));
            QCOMPARE(text(axis.withBegin(axis.span().offset)), text(axis.span()));
        }
    }

    void sillyLimitsAreBounded_data()
    {
        const Rows<Limits, RegionAxis::Span> row("limits", "span");
        row("no increments", Limits{1, 0, 0, 0, 100}, {10, 20});
        row("negative increments", Limits{1, -4, 0, -4, 100}, {10, 20});
        row("minimum above maximum", Limits{90, 1, 80, 1, 100, 10, 5}, {10, 20});
        row("minimum above the extent", Limits{900, 1, 800, 1, 100}, {10, 20});
        row("nothing at all", Limits{0, 0, 0, 0, 0, 0, 0}, {0, 0});
        row("negative values", Limits{-5, 1, -5, 1, -5}, {-5, -5});
        row("least", Limits{kMin, kMin, kMin, kMin, kMin, kMin, kMin}, {kMin, kMin});
        row("greatest", Limits{kMax, kMax, kMax, kMax, kMax, kMax, kMax}, {kMax, kMax});
        row("increments beyond the extent", Limits{1, kMax, 0, kMax, 100}, {10, 20});
        row("region beyond the extent", Limits{1, 1, 0, 1, 100}, {kMax, kMax});
    }

    void sillyLimitsAreBounded()
    {
        const auto [limits, span] = fetchRow<Limits, RegionAxis::Span>();
        const RegionAxis axis(limits, span);
        QVERIFY(axis.limits().sizeIncrement >= 1 && axis.limits().offsetIncrement >= 1);
        for (const qint64 to : {kMin, qint64(-1), qint64(0), qint64(50), kMax}) {
            for (const RegionAxis::Span& got :
                 {axis.span(), axis.moved(to), axis.withEnd(to), axis.withBegin(to)})
                QVERIFY2(got.offset >= 0 && got.size >= 1 && got.end() <= axis.extent(), text(got));
        }
        const RegionArea area(RegionArea::imageNames(), axis, axis, true);
        QVERIFY(area.rect().isValid() && area.extent().isValid());
    }

    // A camera whose limits depend on each other checks each write against what it holds then.
    void everyWriteIsLegal()
    {
        QRandomGenerator random(19700101);
        for (int i = 0; i < 20000; ++i) {
            const Case x(random);
            const Case y(random);
            const RegionArea area(RegionArea::imageNames(), x.axis(), y.axis(), true);
            const auto changed = [&](const RegionAxis& axis) {
                const qint64 to = random.bounded(3500);
                const RegionAxis moved(axis.limits(), axis.moved(to));
                return random.bounded(2) != 0 ? moved.withEnd(random.bounded(3500))
                                              : moved.withBegin(random.bounded(3500));
            };
            const RegionArea::Target target = {changed(x.axis()), changed(y.axis())};
            QMap<QString, qint64> camera = {{"Width"_s, x.span.size},
                                            {"Height"_s, y.span.size},
                                            {"OffsetX"_s, x.span.offset},
                                            {"OffsetY"_s, y.span.offset}};
            const auto spanOf = [&](const char* offset, const char* size) {
                return RegionAxis::Span{camera.value(QLatin1String(offset)),
                                        camera.value(QLatin1String(size))};
            };
            const auto writes = area.writesTo(target);
            for (const auto& write : writes) {
                QVERIFY(camera.value(write.first) != write.second);
                camera[write.first] = write.second;
                QVERIFY2(isLegal(area.x().limits(), spanOf("OffsetX", "Width")) &&
                             isLegal(area.y().limits(), spanOf("OffsetY", "Height")),
                         "case " + QByteArray::number(i) + " after " + write.first.toLatin1());
            }
            QCOMPARE(text(spanOf("OffsetX", "Width")), text(target.x));
            QCOMPARE(text(spanOf("OffsetY", "Height")), text(target.y));
        }
    }
};

OBFT_TEST_MAIN(TestRegionArea)
#include "tst_regionarea.moc"
