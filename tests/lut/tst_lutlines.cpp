// SPDX-License-Identifier: Apache-2.0
// The three kinds of line, without a widget: how they come out of a table and how presses, drags
// and keys change them.
#include "lut/LUTFoldLine.h"
#include "lut/LUTFreeLine.h"
#include "lut/LUTSmoothCurve.h"
#include "support/TestMain.h"

#include <QRandomGenerator>

#include <cmath>

namespace {

LUTPoints table(int points, int (*value)(int))
{
    LUTPoints result;
    for (int i = 0; i < points; ++i)
        result.append({i, value(i)});
    return result;
}

LUTPoints identity(int points)
{
    return table(points, [](int i) { return 4 * i; });
}

// A line of 1,024 points, each four times its index.
template <typename Line>
Line identityLine()
{
    Line line;
    line.setRange(1024, 4095);
    line.rebuildFrom(identity(1024));
    return line;
}

LUTPlot plotOf(int points, int maxValue)
{
    LUTPlot plot;
    plot.setRange(points, maxValue);
    return plot;
}

} // namespace

class TestLutLines : public GuardedTest
{
    Q_OBJECT

private:
    const LUTPlot m_plot = plotOf(1024, 4095);

private slots:
    void foldPointsStandBeforeTheQuarters_data()
    {
        const Rows<int, QVector<int>> row("points", "indexes");
        row("usual", 1024, QVector<int>{0, 255, 511, 767, 1023});
        row("large", 4096, QVector<int>{0, 1023, 2047, 3071, 4095});
        row("odd", 1023, QVector<int>{0, 254, 509, 764, 1019});
        row("tiny", 2, QVector<int>{0, 0, 0, 0, 0});
    }

    void foldPointsStandBeforeTheQuarters()
    {
        QFETCH(int, points);
        QVector<int> indexes;
        for (const LUTPoint& point : LUTFoldLine::GetFlodLineVector(identity(points))) {
            indexes.append(point.index);
            QCOMPARE(point.value, 4 * point.index);
        }
        QTEST(indexes, "indexes");
    }

    // On the line of slope 4, row 239 - x is where the line is at column x.
    void pressTakesAFoldPoint_data()
    {
        const Rows<QPoint, int> row("pixel", "taken");
        row("left end", QPoint(0, 239), 0);
        row("left of the plot", QPoint(-20, 239), 0);
        row("left end, 9 pixels off", QPoint(0, 230), 0);
        row("left end, 10 pixels off", QPoint(0, 229), -1);
        row("right end", QPoint(240, 0), 4);
        row("right end, 10 pixels right", QPoint(250, 9), 4);
        row("right end, 11 pixels right", QPoint(251, 0), -1);
        row("right end, 10 pixels off", QPoint(240, 10), -1);
        row("first quarter", QPoint(30, 210), 1);
        row("before the middle of 1 and 2", QPoint(89, 150), 1);
        row("behind the middle of 1 and 2", QPoint(90, 150), 2);
        row("before the middle of 2 and 3", QPoint(149, 90), 2);
        row("behind the middle of 2 and 3", QPoint(150, 90), 3);
        row("last column", QPoint(239, 2), 3);
        row("9 pixels above the line", QPoint(120, 110), 2);
        row("12 pixels above the line", QPoint(120, 107), -1);
        row("12 pixels below the line", QPoint(120, 132), -1);
    }

    void pressTakesAFoldPoint()
    {
        QFETCH(QPoint, pixel);
        auto line = identityLine<LUTFoldLine>();
        QTEST(line.press(pixel, m_plot) ? line.selected() : -1, "taken");
        if (line.isDragging() && line.selected() % 4 != 0) {
            // At once moved to the pressed index, on the line.
            const int index = pixel.x() * 1024 / 240;
            QCOMPARE(line.selectedPoint().index, index);
            QCOMPARE(line.selectedPoint().value, 4 * index);
        }
    }

    void foldPointGoesWhereItIsDropped()
    {
        auto line = identityLine<LUTFoldLine>();
        // Outside the plot it goes back.
        QVERIFY(line.press({0, 239}, m_plot));
        QVERIFY(line.drag({0, 100}, m_plot));
        QVERIFY(line.valueAt(0) > 2000);
        line.release({0, 300}, m_plot);
        QVERIFY(!line.isDragging());
        QCOMPARE(line.boundedTable(), identity(1024));

        QVERIFY(line.press({120, 120}, m_plot));
        QVERIFY(line.release({200, 60}, m_plot)); // another column: the index stays
        QCOMPARE(line.handles().at(2), (LUTPoint{512, 3071}));
        QCOMPARE(line.valueAt(512), 3071);
        QCOMPARE(line.valueAt(255), 1020);
        // Halfway between point 1 (255, 1020) and point 2 (512, 3071).
        QCOMPARE(line.valueAt(383), 1020 + int(std::lround(2051.0 * 128 / 257)));
        QVERIFY(!line.release({120, 0}, m_plot));
        QCOMPARE(line.valueAt(512), 3071);
    }

    void outerPointKeepsItsIndex()
    {
        auto fold = identityLine<LUTFoldLine>();
        auto curve = identityLine<LUTSmoothCurve>();
        for (LUTLine* line : std::initializer_list<LUTLine*>{&fold, &curve}) {
            QVERIFY(line->press({0, 239}, m_plot));
            line->release({60, 180}, m_plot);
            QCOMPARE(line->handles().first(), (LUTPoint{0, 1024}));
            QVERIFY(line->press({240, 0}, m_plot));
            line->release({250, 240}, m_plot); // beside the plot, where it can be taken as well
            QCOMPARE(line->handles().last(), (LUTPoint{1023, 0}));
            QVERIFY(line->press({240, 240}, m_plot));
            line->release({251, 0}, m_plot);
            QCOMPARE(line->handles().last(), (LUTPoint{1023, 0}));
        }
    }

    void clearedLineStaysWithinTheValues()
    {
        LUTFreeLine line;
        line.setRange(4096, 4095);
        line.ClearFreePoints();
        QCOMPARE(line.valueAt(2000), 8000);
        const LUTPoints bounded = line.boundedTable();
        QCOMPARE(bounded.at(1000), (LUTPoint{1000, 4000}));
        QCOMPARE(bounded.at(2000), (LUTPoint{2000, 4095}));
    }

    void freeLineFillsWhatTheMouseSkips_data()
    {
        const Rows<QPoint, QPoint> row("from", "to");
        row("rightwards", QPoint(30, 200), QPoint(210, 20));
        row("leftwards", QPoint(210, 20), QPoint(30, 200));
        row("neighbours", QPoint(30, 200), QPoint(31, 190));
        row("same column", QPoint(30, 200), QPoint(30, 10));
        row("out of the plot", QPoint(200, 100), QPoint(300, -50));
    }

    void freeLineFillsWhatTheMouseSkips()
    {
        const auto [from, to] = fetchRow<QPoint, QPoint>();
        LUTFreeLine line;
        line.setRange(1024, 4095);
        line.ClearFreePoints();
        const LUTPoints before = line.boundedTable();
        QVERIFY(line.press(from, m_plot));
        QVERIFY(line.drag(to, m_plot));
        QVERIFY(line.release(to, m_plot));
        QVERIFY(!line.drag({120, 0}, m_plot));
        const auto placed = [this](const QPoint& pixel) {
            const QPoint inside = LUTPlot::bounded(pixel);
            return LUTPoint{qMin(1023, inside.x() * 1024 / 240), m_plot.valueAt(inside.y())};
        };
        LUTPoint a = placed(from);
        LUTPoint b = placed(to);
        QCOMPARE(line.valueAt(b.index), b.value);
        if (a.index > b.index)
            std::swap(a, b);
        for (int i = 0; i < 1024; ++i) {
            if (i < a.index || i > b.index)
                QCOMPARE(line.valueAt(i), before.at(i).value);
            else if (a.index != b.index)
                QCOMPARE(line.valueAt(i), LUTTable::between(a, b, i));
        }
    }

    void curvePassesItsPointsWithoutOvershoot_data()
    {
        const Rows<int, int> row("points", "maxValue");
        row("1,024 points", 1024, 4095);
        row("4,096 points, 16 bits", 4096, 65535);
        row("16 points", 16, 255);
        row("31 bits", 256, 2147483647);
    }

    void curvePassesItsPointsWithoutOvershoot()
    {
        const auto [points, maxValue] = fetchRow<int, int>();
        const LUTPlot plot = plotOf(points, maxValue);
        QRandomGenerator random(7); // the same drags in every run
        LUTSmoothCurve curve;
        curve.setRange(points, maxValue);
        for (int round = 0; round < 200; ++round) {
            const QPoint pixel(random.bounded(241), random.bounded(241));
            if (round % 3 == 0 && curve.addPoint(pixel, plot)) {
                QCOMPARE(curve.selectedPoint().index, plot.indexAt(pixel.x()));
            } else {
                const int number = random.bounded(int(curve.handles().size()));
                QVERIFY(curve.press(plot.pixelOf(curve.handles().at(number)).toPoint(), plot));
                curve.release(pixel, plot);
            }
            const LUTPoints controls = curve.handles();
            for (int i = 0; i + 1 < controls.size(); ++i) {
                const LUTPoint a = controls.at(i);
                const LUTPoint b = controls.at(i + 1);
                QVERIFY(a.index < b.index);
                QCOMPARE(curve.valueAt(a.index), a.value);
                QCOMPARE(curve.valueAt(b.index), b.value);
                const int direction = b.value >= a.value ? 1 : -1;
                for (int k = a.index; k < b.index; ++k)
                    QVERIFY((qint64(curve.valueAt(k + 1)) - curve.valueAt(k)) * direction >= 0);
            }
        }
    }

    void controlPointsComeMoveAndGo()
    {
        auto curve = identityLine<LUTSmoothCurve>();
        const LUTPoints before = curve.handles();
        QVERIFY(curve.addPoint({30, 60}, m_plot));
        QCOMPARE(curve.handles().at(1), (LUTPoint{128, 3071}));
        QVERIFY(!curve.addPoint({33, 62}, m_plot)); // too near to it
        // Its own table brings nothing new: the added point stays.
        curve.rebuildFrom(curve.boundedTable());
        QCOMPARE(curve.handles().size(), before.size() + 1);
        QVERIFY(curve.press({30, 60}, m_plot));
        QVERIFY(curve.removeSelected());
        QCOMPARE(curve.handles(), before);
        QVERIFY(curve.press({0, 239}, m_plot));
        QVERIFY(!curve.removeSelected());
        // They stay between their neighbours.
        QVERIFY(curve.press(m_plot.pixelOf(curve.handles().at(2)).toPoint(), m_plot));
        curve.release({235, 120}, m_plot);
        QCOMPARE(curve.handles().at(2), (LUTPoint{766, 2048}));
        QVERIFY(curve.press(m_plot.pixelOf(curve.handles().at(2)).toPoint(), m_plot));
        curve.release({1, 120}, m_plot);
        QCOMPARE(curve.handles().at(2), (LUTPoint{256, 2048}));
        for (int x = 1; x < 240; ++x)
            curve.addPoint({x, x % 2 ? 20 : 220}, m_plot);
        QCOMPARE(curve.handles().size(), LUTSmoothCurve::kMostControls);
        QVERIFY(!curve.addBehindSelected());
    }

    void importedTableIsExactUntilAnEdit()
    {
        const LUTPoints wild = table(1024, [](int i) { return (i * 37) % 4096; });
        LUTFoldLine fold;
        LUTSmoothCurve curve;
        LUTFreeLine free;
        for (LUTLine* line : std::initializer_list<LUTLine*>{&fold, &curve, &free}) {
            line->setRange(1024, 4095);
            line->replaceBy(wild);
            QCOMPARE(line->boundedTable(), wild);
        }
        const LUTPoints handles = fold.handles();
        fold.replaceBy(fold.boundedTable());
        QCOMPARE(fold.handles(), handles);
        // An edit needs the line's own shape again.
        QVERIFY(fold.press({0, 239}, m_plot));
        fold.release({0, 0}, m_plot);
        QCOMPARE(fold.valueAt(0), 4095);
        QCOMPARE(fold.valueAt(255), wild.at(255).value);
        QCOMPARE(fold.valueAt(100), LUTTable::between({0, 4095}, wild.at(255), 100));
    }

    void keysMoveTheSelectedPoint_data()
    {
        const Rows<int, int, int, int, int> row("number", "indexStep", "valueStep", "index",
                                                "value");
        row("up", 2, 0, 1, 511, 2045);
        row("ten down", 2, 0, -10, 511, 2034);
        row("left", 2, -1, 0, 510, 2044);
        row("ten right", 2, 10, 0, 521, 2044);
        row("the first stays where it is", 0, 10, 0, 0, 0);
        row("no value below 0", 0, 0, -10, 0, 0);
        row("no value above the largest", 4, 0, 10, 1023, 4095);
        row("not past a neighbour", 1, 1000, 0, 510, 1020);
    }

    void keysMoveTheSelectedPoint()
    {
        const auto [number, indexStep, valueStep] = fetchRow<int, int, int>();
        auto line = identityLine<LUTFoldLine>();
        QVERIFY(line.moveSelected(0, 1)); // selects the first point and moves nothing
        QCOMPARE(line.boundedTable(), identity(1024));
        line.selectNeighbour(number);
        line.moveSelected(indexStep, valueStep);
        QTEST(line.selectedPoint().index, "index");
        QTEST(line.selectedPoint().value, "value");
        QCOMPARE(line.valueAt(line.selectedPoint().index), line.selectedPoint().value);
    }

    void pairsMakeAWholeTable_data()
    {
        const Rows<LUTPoints, QVector<int>> row("pairs", "values");
        row("none", LUTPoints{}, QVector<int>{0, 0, 0, 0, 0});
        row("one", LUTPoints{{2, 7}}, QVector<int>{7, 7, 7, 7, 7});
        row("ends", LUTPoints{{0, 0}, {4, 8}}, QVector<int>{0, 2, 4, 6, 8});
        row("any order", LUTPoints{{3, 9}, {1, 1}}, QVector<int>{1, 1, 5, 9, 9});
        row("twice", LUTPoints{{2, 1}, {2, 5}}, QVector<int>{5, 5, 5, 5, 5});
        row("one beyond", LUTPoints{{0, 0}, {5, 10}}, QVector<int>{0, 2, 4, 6, 8});
    }

    void pairsMakeAWholeTable()
    {
        QFETCH(LUTPoints, pairs);
        QVector<int> values;
        for (const LUTPoint& point : LUTTable::expand(pairs, 5)) {
            QCOMPARE(point.index, values.size());
            values.append(point.value);
        }
        QTEST(values, "values");
    }
};

OBFT_TEST_MAIN(TestLutLines)
#include "tst_lutlines.moc"
