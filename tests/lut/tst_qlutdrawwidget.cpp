// SPDX-License-Identifier: Apache-2.0
// The curve editor as the user meets it: drawn with the mouse, moved with keys, exchanged with a
// camera, closed in the middle of a transfer. Files: see tst_orximgprocessingfeature.
#include "lut/LutCamera.h"
#include "lut/QLUTDrawWidget.h"
#include "styledctl/ZELCustom.h"
#include "styledctl/ZELCustomLoadingDialog.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "support/DescriptionBuilder.h"
#include "support/OpenedWindow.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QToolTip>
#include <QVBoxLayout>

#include <memory>

namespace {

constexpr int kLoadingIndex = -2;
constexpr int kPoints = 1024;

// A pixel of the plot as a position in the widget.
QPoint at(int x, int y)
{
    return {30 + x, 30 + y};
}

// Press, moves and release at the positions in turn.
void dragMouse(QWidget* widget, const QVector<QPoint>& path)
{
    QTest::mousePress(widget, Qt::LeftButton, Qt::NoModifier, path.first());
    for (const QPoint& point : path) {
        // Qt Test's own move carries no pressed button.
        QMouseEvent move(QEvent::MouseMove, point, widget->mapToGlobal(point), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(widget, &move);
    }
    QTest::mouseRelease(widget, Qt::LeftButton, Qt::NoModifier, path.last());
}

} // namespace

class TestQLutDrawWidget : public GuardedTest
{
    Q_OBJECT

protected:
    void prepare() override
    {
        makeCamera(kPoints);
        m_window = std::make_unique<QWidget>();
        auto* layout = new QVBoxLayout(m_window.get());
        m_widget = new QLUTDrawWidget(m_window.get());
        layout->addWidget(m_widget);
        m_widget->resetCameraID(1);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        m_window->activateWindow();
        m_widget->setFocus();
        // The number of points outlives a widget: every test starts from the same.
        m_widget->LoadFromCamera();
        QVERIFY(waitForEnd());
        m_widget->ClearDraw();
    }
    void finish() override
    {
        if (m_camera)
            m_camera->release();
        m_window.reset();
        m_camera.reset();
    }

private:
    void makeCamera(int points)
    {
        m_camera.reset();
        m_camera = std::make_unique<LutCamera>(points);
        m_camera->setTable([](int i) { return (i * 7) % 4096; });
    }
    bool waitForEnd() const
    {
        return QTest::qWaitFor([this] { return !m_widget->isTransferring(); }, 30000);
    }
    // The message box that is shown, null without one.
    ZELCustomMessageBox* box() const
    {
        const auto boxes = m_widget->findChildren<ZELCustomMessageBox*>();
        return boxes.isEmpty() ? nullptr : boxes.constFirst();
    }
    QString message() const { return box() ? box()->cContent() : QString(); }
    int hint() const { return box() ? box()->cHintStyle() : 0; }
    void drawSomething(int type)
    {
        m_widget->SetDrawLineChanged(type);
        if (type == QLUTDrawWidget::FreeLine)
            dragMouse(m_widget, {at(20, 30), at(60, 200), at(61, 100), at(230, 90)});
        else if (type == QLUTDrawWidget::FoldLine)
            dragMouse(m_widget, {at(100, 140), at(100, 60)});
        else
            dragMouse(m_widget, {at(119, 120), at(150, 40)});
    }

    std::unique_ptr<LutCamera> m_camera;
    std::unique_ptr<QWidget> m_window;
    QLUTDrawWidget* m_widget = nullptr; // Owned by the window.

private slots:
    void drawnLineReachesTheCamera_data()
    {
        const Rows<int, QVector<LUTPoint>> row("type", "passes");
        // The fold point stays in the column of the press; the curve's goes to the drop.
        row("fold line", QLUTDrawWidget::FoldLine,
            QVector<LUTPoint>{{0, 0}, {255, 1020}, {426, 3071}, {767, 3068}});
        row("curve", QLUTDrawWidget::SmoothCurve,
            QVector<LUTPoint>{{0, 0}, {255, 1020}, {640, 3413}, {1023, 4092}});
        row("free line", QLUTDrawWidget::FreeLine,
            QVector<LUTPoint>{
                {0, 0}, {84, 336}, {85, 3583}, {256, 683}, {260, 2389}, {981, 2559}, {982, 3928}});
    }

    void drawnLineReachesTheCamera()
    {
        const auto [type, passes] = fetchRow<int, QVector<LUTPoint>>();
        drawSomething(type);
        const QVector<int> drawn = valuesOf(m_widget->GetSettinngPoints());
        QVector<int> straight;
        for (int i = 0; i < kPoints; ++i)
            straight.append(4 * i);
        QVERIFY(drawn != straight);
        QSignalSpy refreshed(m_widget, &QLUTDrawWidget::SigUpdateFeatureTree);
        m_widget->SetToCamera();
        QCOMPARE(ZELCustomLoadingDialog::text(kLoadingIndex), "LUT Operating..."_s);
        QVERIFY(waitForEnd());
        QVERIFY(!ZELCustomLoadingDialog::isLoading(kLoadingIndex));
        QCOMPARE(m_camera->table(), drawn);
        for (const LUTPoint& point : passes)
            QCOMPARE(m_camera->table().at(point.index), point.value);
        QCOMPARE(message(), "Applied to camera successfully."_s);
        QCOMPARE(hint(), 5);
        // After writing and after reading back.
        QCOMPARE(refreshed.size(), 2);
        m_widget->SetDrawLineChanged(QLUTDrawWidget::FreeLine);
        QCOMPARE(valuesOf(m_widget->GetSettinngPoints()), drawn);
    }

    void treeShowsWhereTheTransferEnded()
    {
        using namespace DescriptionBuilder;
        const QString index = "LUTIndex"_s;
        const QString value = "LUTValue"_s;
        const QString integer = "Integer"_s;
        FakeHost host;
        host.set(index, FakeHost::integerFeature(0, 0, 3));
        host.set(value, FakeHost::integerFeature(5, 0, 255));
        const ReadWindow window(host, wrap(category("Root"_s, {index, value}) +
                                           node(integer, index) + node(integer, value)));
        const auto shown = [&] { return window.item("LUTIndex")->value()->value(); };
        QCOMPARE(shown().toInt(), 0);
        m_widget->LoadFromCamera();
        QVERIFY(waitForEnd());
        QTRY_COMPARE(shown().toInt(), 3);
    }

    void loadShowsTheCamerasTable_data()
    {
        const Rows<int, int> row("points", "maximumValue");
        row("as many points as before", kPoints, 4095);
        row("more points and values", 4096, 65535);
    }

    void loadShowsTheCamerasTable()
    {
        const auto [points, maximumValue] = fetchRow<int, int>();
        makeCamera(points);
        m_camera->announce(points - 1, maximumValue);
        m_camera->setTable([=](int i) { return maximumValue - maximumValue / (points - 1) * i; });
        m_widget->LoadFromCamera();
        QCOMPARE(ZELCustomLoadingDialog::text(kLoadingIndex), "LUT Operating..."_s);
        QVERIFY(waitForEnd());
        QCOMPARE(message(), "Loading from camera completed."_s);
        QCOMPARE(hint(), 5);
        QCOMPARE(QLUTDrawWidget::PointCount(), points);
        QCOMPARE(m_widget->plot().maxValue(), maximumValue);
        for (const int type : {0, 1, 2}) {
            m_widget->SetDrawLineChanged(type);
            QCOMPARE(valuesOf(m_widget->GetSettinngPoints()), m_camera->table());
        }
        drawSomething(QLUTDrawWidget::FreeLine);
        const QVector<int> drawn = valuesOf(m_widget->GetSettinngPoints());
        m_widget->SetToCamera();
        QVERIFY(waitForEnd());
        QCOMPARE(m_camera->table(), drawn);
    }

    // After the call under way nothing is written, and at the last point nothing is read back.
    void closingTheWindowEndsTheTransfer_data()
    {
        const Rows<int, int, int, QString> row("call", "written", "hint", "told");
        row("in the middle", 2 * 300 + 1, 300, 2,
            "Applying to camera was stopped after 300 of 1024 points. The table in the camera is "
            "incomplete.");
        row("at the last point", 2 * kPoints, kPoints, 5, "Applied to camera successfully.");
    }

    void closingTheWindowEndsTheTransfer()
    {
        QFETCH(int, call);
        MessageGuard::expectMessage("LUT: writing stopped after 300 of 1024 points"_s);
        const qint64 lastCall = m_camera->callCount() + call;
        m_camera->holdAtCall(call);
        m_widget->SetToCamera();
        QTRY_VERIFY(m_camera->isHolding());
        // Another page in front does not end it.
        m_widget->hide();
        QVERIFY(m_widget->isTransferring());
        m_window->close();
        m_camera->release();
        QVERIFY(waitForEnd());
        QTEST(m_camera->written(), "written");
        QCOMPARE(m_camera->callCount(), lastCall);
        QTEST(message(), "told");
        QTEST(hint(), "hint");
        QCOMPARE(MessageGuard::contains("stopped after 300"_s), call < 2 * kPoints);
    }

    void unplugged_data()
    {
        const Rows<bool, int, QString> row("set", "call", "told");
        row("read", false, 2 + 1001,
            "Loading from camera failed after 500 of 1024 points. The curve is unchanged.");
        row("written", true, 1001, "Only 500 of 1024 points were applied to the camera.");
    }

    void unplugged()
    {
        const auto [set, call] = fetchRow<bool, int>();
        for (const QString& line : {"LUT: "_s, "Feature Failed"_s})
            MessageGuard::expectMessage(line);
        drawSomething(QLUTDrawWidget::FreeLine);
        const LUTPoints drawn = m_widget->GetSettinngPoints();
        m_camera->faults().failAfter(call - 1, -5);
        set ? m_widget->SetToCamera() : m_widget->LoadFromCamera();
        QVERIFY(waitForEnd());
        QTEST(message(), "told");
        QCOMPARE(hint(), 3);
        QCOMPARE(m_widget->GetSettinngPoints(), drawn);
    }

    void anotherCameraEndsTheTransfer()
    {
        const LUTPoints before = m_widget->GetSettinngPoints();
        delete box();
        m_camera->holdAtCall(100);
        m_widget->LoadFromCamera();
        QTRY_VERIFY(m_camera->isHolding());
        m_widget->resetCameraID(2);
        m_camera->release();
        QVERIFY(waitForEnd());
        QVERIFY(!box());
        QCOMPARE(m_widget->GetSettinngPoints(), before);
    }

    void keysSelectAndMove()
    {
        QTest::keyClick(m_widget, Qt::Key_PageDown);
        QTest::keyClick(m_widget, Qt::Key_PageDown); // (255, 1020)
        QTest::keyClick(m_widget, Qt::Key_Up);
        QTest::keyClick(m_widget, Qt::Key_Up, Qt::ShiftModifier);
        QTest::keyClick(m_widget, Qt::Key_Right, Qt::ShiftModifier);
        QTest::keyClick(m_widget, Qt::Key_Left);
        QCOMPARE(m_widget->currentLine().handles().at(1), (LUTPoint{264, 1031}));
        QTest::keyClick(m_widget, Qt::Key_End);
        QTest::keyClick(m_widget, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(m_widget->currentLine().handles().at(4), (LUTPoint{1023, 4082}));
        m_widget->SetDrawLineChanged(QLUTDrawWidget::FreeLine);
        QTest::keyClick(m_widget, Qt::Key_Home);
        QTest::keyClick(m_widget, Qt::Key_Right, Qt::ShiftModifier);
        QTest::keyClick(m_widget, Qt::Key_Up);
        QCOMPARE(m_widget->GetSettinngPoints().at(10), (LUTPoint{10, 41}));
    }

    void pointsComeAndGo()
    {
        m_widget->SetDrawLineChanged(QLUTDrawWidget::SmoothCurve);
        const auto indexes = [this] {
            QVector<int> list;
            for (const LUTPoint& point : m_widget->currentLine().handles())
                list.append(point.index);
            return list;
        };
        const LUTPoints before = m_widget->GetSettinngPoints();
        QTest::mouseDClick(m_widget, Qt::LeftButton, Qt::NoModifier, at(30, 60));
        QCOMPARE(indexes(), (QVector<int>{0, 128, 255, 511, 767, 1023}));
        QCOMPARE(m_widget->GetSettinngPoints().at(128).value, 3071);
        QTest::keyClick(m_widget, Qt::Key_Delete);
        QCOMPARE(m_widget->GetSettinngPoints(), before);
        QTest::keyClick(m_widget, Qt::Key_Insert); // nothing is selected: behind the first
        QTest::keyClick(m_widget, Qt::Key_End);
        QTest::keyClick(m_widget, Qt::Key_Insert);
        QCOMPARE(indexes(), (QVector<int>{0, 127, 255, 511, 767, 895, 1023}));
        // Where the curve was, and the keys go on with it.
        QCOMPARE(m_widget->GetSettinngPoints(), before);
        QTest::keyClick(m_widget, Qt::Key_Up);
        QCOMPARE(m_widget->currentLine().handles().at(5).value, before.at(895).value + 1);
    }

    void pointerReadsAndWheelIsLeftToThePage()
    {
        QHelpEvent help(QEvent::ToolTip, at(60, 60), m_widget->mapToGlobal(at(60, 60)));
        QApplication::sendEvent(m_widget, &help);
        QCOMPARE(QToolTip::text(), "Index: 256\nValue: 3071"_s);
        QToolTip::hideText();
        const LUTPoints before = m_widget->GetSettinngPoints();
        QVERIFY(!sendWheel(m_widget));
        QCOMPARE(m_widget->GetSettinngPoints(), before);
    }

    // Counts the pixels of the line's colour in the plot.
    void paintsLinesAndPoints()
    {
        const auto linePixels = [this] {
            const QImage image = m_widget->grab().toImage();
            const QRgb colour = ZELCustom::getDataBaseColor("QLUTDrawWidgetColor_Line"_s).rgb();
            int count = 0;
            for (int y = 30; y <= 270; ++y) {
                for (int x = 30; x <= 270; ++x)
                    count += image.pixel(x, y) == colour ? 1 : 0;
            }
            return count;
        };
        m_widget->SetDrawLineChanged(QLUTDrawWidget::FreeLine); // no handles over it
        m_widget->SetLUTInfo(kPoints, 4095, {{0, 2048}}, QLUTDrawWidget::FreeLine);
        // Level: a row of full colour, all the way across.
        const int level = linePixels();
        QVERIFY2(level >= 230 && level <= 3 * 241, qPrintable(QString::number(level)));
        makeCamera(16);
        m_camera->setTable([](int) { return 2048; });
        m_widget->LoadFromCamera();
        QVERIFY(waitForEnd());
        // 16 points stand 16 pixels apart: a row of dots.
        const int dots = linePixels();
        QVERIFY2(dots >= 16 && dots <= 16 * 9, qPrintable(QString::number(dots)));
    }
};

OBFT_TEST_MAIN(TestQLutDrawWidget)
#include "tst_qlutdrawwidget.moc"
