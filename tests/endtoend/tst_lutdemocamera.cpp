// SPDX-License-Identifier: Apache-2.0
// The curve editor on the simulated camera: what is drawn lands in the memory of the selected table
// and in no other.
#include "HostCallbacks.h"
#include "device/OBDeviceControl.h"
#include "pages/DemoPageTest.h"
#include "pages/QLUTDrawWidget.h"

namespace {

constexpr int kOtherTable = 1; // never the selected one

} // namespace

class TestLutDemoCamera : public DemoPageTest
{
    Q_OBJECT

protected:
    void prepare() override
    {
        DemoPageTest::prepare();
        m_callbacks = std::make_unique<HostCallbacks>(*m_demo);
        OBDeviceControl::SetCallBackFunc(HostCallbacks::getFeature, HostCallbacks::setFeature,
                                         HostCallbacks::getMode, HostCallbacks::invalidate,
                                         HostCallbacks::action, m_callbacks.get());
        m_widget = std::make_unique<QLUTDrawWidget>();
        m_widget->resetCameraID(1);
        m_widget->show();
    }
    void finish() override
    {
        m_widget.reset();
        OBDeviceControl::SetCallBackFunc(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
        m_callbacks.reset();
        DemoPageTest::finish();
    }

private:
    // The camera's own view, past the library.
    QVector<int> memory(int selector)
    {
        QVector<int> values;
        write("LUTSelector", QByteArray::number(selector));
        for (int i = 0; i < QLUTDrawWidget::PointCount(); ++i) {
            write("LUTIndex", QByteArray::number(i));
            values.append(static_cast<int>(read("LUTValue")));
        }
        return values;
    }
    bool waitForEnd() const
    {
        return QTest::qWaitFor([this] { return !m_widget->isTransferring(); }, 60000);
    }

    std::unique_ptr<HostCallbacks> m_callbacks;
    std::unique_ptr<QLUTDrawWidget> m_widget;

private slots:
    void tablesAreWrittenApart_data()
    {
        const Rows<int, int> row("selector", "type");
        row("luminance, fold line", 0, QLUTDrawWidget::FoldLine);
        row("green, curve", 2, QLUTDrawWidget::SmoothCurve);
        row("blue, free line", 3, QLUTDrawWidget::FreeLine);
    }

    void tablesAreWrittenApart()
    {
        QFETCH(int, selector);
        QFETCH(int, type);
        const QVector<int> other = memory(kOtherTable);
        write("LUTSelector", QByteArray::number(selector));
        m_widget->LoadFromCamera();
        QVERIFY(waitForEnd());
        m_widget->SetDrawLineChanged(type);
        const QPoint onTheLine(30 + 60, 30 + 179);
        QTest::mousePress(m_widget.get(), Qt::LeftButton, Qt::NoModifier, onTheLine);
        QTest::mouseRelease(m_widget.get(), Qt::LeftButton, Qt::NoModifier,
                            onTheLine - QPoint(0, 99));
        QVector<int> drawn;
        for (const LUTPoint& point : m_widget->GetSettinngPoints())
            drawn.append(point.value);
        QVERIFY(drawn != other);
        m_widget->SetToCamera();
        QVERIFY(waitForEnd());
        QCOMPARE(memory(selector), drawn);
        QCOMPARE(memory(kOtherTable), other);
    }
};

OBFT_TEST_MAIN(TestLutDemoCamera)
#include "tst_lutdemocamera.moc"
