// SPDX-License-Identifier: Apache-2.0
// The curve editor on the simulated camera: what is drawn lands in the memory of the selected table
// and in no other.
#include "DemoCamera.h"
#include "FaultPlan.h"
#include "FaultyCamera.h"
#include "HostCallbacks.h"
#include "device/OBDeviceControl.h"
#include "pages/QLUTDrawWidget.h"
#include "support/TestMain.h"

#include <memory>
#include <string>

namespace {

constexpr int kOtherTable = 1; // never the selected one

} // namespace

class TestLutDemoCamera : public GuardedTest
{
    Q_OBJECT

protected:
    void prepare() override
    {
        m_camera = std::make_unique<DemoCamera>();
        m_callbacks = std::make_unique<HostCallbacks>(*m_camera);
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
        m_camera.reset();
    }

private:
    // The camera's own view, past the library.
    QVector<int> memory(int selector)
    {
        QVector<int> values;
        m_camera->write(OB_FT_TYPE_ENUMERATION, "LUTSelector", std::to_string(selector));
        for (int i = 0; i < QLUTDrawWidget::PointCount(); ++i) {
            _ZDCC_INTVALUE_EX_T record{};
            m_camera->write(OB_FT_TYPE_INTEGER, "LUTIndex", std::to_string(i));
            if (m_camera->read(OB_FT_TYPE_INTEGER, "LUTValue", &record) != 0)
                return {};
            values.append(static_cast<int>(record.value));
        }
        return values;
    }
    bool waitForEnd() const
    {
        return QTest::qWaitFor([this] { return !m_widget->isTransferring(); }, 60000);
    }

    std::unique_ptr<DemoCamera> m_camera;
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
        m_camera->write(OB_FT_TYPE_ENUMERATION, "LUTSelector", std::to_string(selector));
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

    void lostCameraIsTold_data()
    {
        const Rows<bool, QString> row("set", "line");
        // Two reads of the limits, then two calls for each point.
        row("loading", false, "LUT: reading failed after 200 of 1024 points");
        row("setting", true, "LUT: only 201 of 1024 points written");
    }

    void lostCameraIsTold()
    {
        QFETCH(bool, set);
        QFETCH(QString, line);
        MessageGuard::expectMessage("LUT: "_s);
        MessageGuard::expectMessage("Read Feature Failed"_s);
        const QVector<int> memoryBefore = memory(0);
        m_widget->SetLUTInfo(1024, 4095, {{0, 7}}, m_widget->GetCurrentDrawLine());
        const LUTPoints before = m_widget->GetSettinngPoints();
        QString error;
        FaultyCamera faulty(*m_camera, *FaultPlan::parse("disconnect after 402"_s, &error));
        HostCallbacks callbacks(faulty);
        OBDeviceControl::SetCallBackFunc(HostCallbacks::getFeature, HostCallbacks::setFeature,
                                         nullptr, nullptr, nullptr, &callbacks);
        if (set)
            m_widget->SetToCamera();
        else
            m_widget->LoadFromCamera();
        QVERIFY(waitForEnd());
        QVERIFY(MessageGuard::contains(line));
        QCOMPARE(m_widget->GetSettinngPoints(), before);
        QVector<int> wanted = memoryBefore;
        for (int i = 0; set && i < 201; ++i)
            wanted[i] = before.at(i).value;
        QCOMPARE(memory(0), wanted);
    }
};

OBFT_TEST_MAIN(TestLutDemoCamera)
#include "tst_lutdemocamera.moc"
