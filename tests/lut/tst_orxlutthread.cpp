// SPDX-License-Identifier: Apache-2.0
// The worker that carries look-up tables: whole tables, cameras that fail, order of jobs.
#include "lut/LutCamera.h"
#include "lut/ORXLUTThread.h"
#include "support/TestMain.h"

#include <memory>

namespace {

constexpr int kPoints = 4096;
// What is said of a load.
const QStringList kLoaded = words("limits:4095:4095 load:completed:4096 loaded end");

LUTPoints squares(int points)
{
    LUTPoints result;
    for (int i = 0; i < points; ++i)
        result.append({i, (i * i) % 4096});
    return result;
}

// What the worker said, received on the GUI thread as the widget receives it. A QSignalSpy would be
// filled by the worker.
struct Said
{
    explicit Said(ORXLUTThread* thread)
    {
        const auto hear = [this, thread](auto signal, auto slot) {
            QObject::connect(thread, signal, &receiver, slot, Qt::QueuedConnection);
        };
        hear(&ORXLUTThread::SigReport, [this, thread] {
            const LUTTransferReport report = thread->takeReport();
            const QStringList types = words("load write reload");
            const QString outcome = report.outcome == LUTTransferReport::Completed ? "completed"_s
                                    : report.outcome == LUTTransferReport::Failed  ? "failed"_s
                                                                                   : "stopped"_s;
            log += "%1:%2:%3"_s.arg(types.value(report.type), outcome).arg(report.done);
        });
        // The scales make the plot's last pixel of the largest index and value.
        hear(&ORXLUTThread::SigUpdateLUTInfo, [this](int index, int value, float x, float y) {
            log += "limits:%1:%2"_s.arg(index).arg(value);
            QCOMPARE(QSizeF(double(x) * index, double(y) * value).toSize(), QSize(239, 239));
        });
        hear(&ORXLUTThread::SigProgress, [this](int done, int) { progress.append(done); });
        hear(&ORXLUTThread::SigLoadFromCameraFinished, [this] { log += "loaded"_s; });
        hear(&ORXLUTThread::SigSetToCameraFinished, [this] { log += "written"_s; });
        hear(&ORXLUTThread::SigThreadEnd, [this] { log += "end"_s; });
    }
    QObject receiver;
    QStringList log;
    QVector<int> progress; // points done
};

bool start(ORXLUTThread& thread, int type, const LUTPoints& points = {})
{
    if (!thread.SetThreadType(type))
        return false;
    thread.setPointVector(points);
    thread.startJob();
    return true;
}

} // namespace

class TestOrxLutThread : public GuardedTest
{
    Q_OBJECT

protected:
    void prepare() override
    {
        m_camera = std::make_unique<LutCamera>(kPoints);
        m_camera->setTable([](int i) { return (i * 3) % 4096; });
        m_thread = std::make_unique<ORXLUTThread>();
        m_thread->resetCameraID(1);
        m_said = std::make_unique<Said>(m_thread.get());
    }
    void finish() override
    {
        m_camera->release();
        m_said.reset();
        m_thread.reset();
        m_camera.reset();
    }

private:
    std::unique_ptr<LutCamera> m_camera;
    std::unique_ptr<ORXLUTThread> m_thread;
    std::unique_ptr<Said> m_said;

private slots:
    void carriesAWholeTable_data()
    {
        const Rows<int, QStringList> row("type", "said");
        row("load", ORXLUTThread::LoadFromCamera, kLoaded);
        row("set", ORXLUTThread::SetToCamera, "write:completed:4096 written end");
        row("reload, which tells no finish", ORXLUTThread::ReloadFromCamera,
            "limits:4095:4095 reload:completed:4096 end");
    }

    void carriesAWholeTable()
    {
        const auto [type, said] = fetchRow<int, QStringList>();
        const bool set = type == ORXLUTThread::SetToCamera;
        const LUTPoints points = squares(kPoints);
        QVERIFY(start(*m_thread, type, points));
        QTRY_COMPARE(m_said->log, said);
        QCOMPARE(m_camera->table(), valuesOf(set ? points : m_thread->points()));
        QCOMPARE(m_camera->written(), set ? kPoints : 0);
        // An index and a value for each point; before a read the limits of both.
        QCOMPARE(m_camera->calls().size(), (set ? 0 : 2) + 2 * kPoints);
        // Progress comes often enough to watch, and does not flood the GUI thread.
        QVERIFY(m_said->progress.size() >= 50 && m_said->progress.size() <= 200);
        QCOMPARE(m_said->progress.last(), kPoints);
    }

    void sillyLimits_data()
    {
        const Rows<qint64, qint64, QString, QStringList> row("maximumIndex", "maximumValue", "line",
                                                             "said");
        const qint64 huge = qint64(1) << 40;
        const char* nothing = "load:failed:0 loaded end";
        row("no index", 0, 4095, "LUT: LUTIndex ends at 0, which gives no table", nothing);
        row("negative index", -1, 4095, "LUT: LUTIndex ends at -1", nothing);
        row("no value", 1023, 0, "LUT: LUTValue ends at 0", nothing);
        row("negative value", 1023, -huge, "LUT: LUTValue ends at -1099511627776", nothing);
        row("huge value", 1023, huge, "only values up to 2147483647 are used",
            "limits:1023:2147483647 load:completed:1024 loaded end");
        // The camera has 4,096 points: the read ends with an error instead of an endless table.
        row("huge index", huge, 4095, "only values up to 65535 are used",
            "load:failed:4096 loaded end");
    }

    void sillyLimits()
    {
        const auto [maximumIndex, maximumValue, line, said] =
            fetchRow<qint64, qint64, QString, QStringList>();
        MessageGuard::expectMessage("LUT"_s);
        m_camera->announce(maximumIndex, maximumValue);
        QVERIFY(start(*m_thread, ORXLUTThread::LoadFromCamera));
        QTRY_COMPARE(m_said->log, said);
        QVERIFY(MessageGuard::contains(line));
        QVERIFY(m_camera->calls().size() <= 2 + 2 * (kPoints + 1));
    }

    void refusedPointsAreSkipped()
    {
        MessageGuard::expectMessage("Read Feature Failed"_s);
        MessageGuard::expectMessage("LUT: only 4094 of 4096 points written"_s);
        const LUTPoints points = squares(kPoints);
        QVector<int> wanted = valuesOf(points);
        for (const int refused : {100, 200})
            wanted[refused] = m_camera->table().at(refused);
        m_camera->fail("set LUTIndex 100"_s, -3);
        m_camera->refuseValueAt(200);
        QVERIFY(start(*m_thread, ORXLUTThread::SetToCamera, points));
        QTRY_COMPARE(m_said->log, words("write:failed:4094 written end"));
        QCOMPARE(m_camera->table(), wanted);
    }

    void unplugged_data()
    {
        const Rows<int, int, QStringList> row("type", "call", "said");
        row("before reading", ORXLUTThread::LoadFromCamera, 1, "load:failed:0 loaded end");
        row("between the limits", ORXLUTThread::LoadFromCamera, 2, "load:failed:0 loaded end");
        row("at an index", ORXLUTThread::LoadFromCamera, 2 + 2001, "load:failed:1000 loaded end");
        row("at a value", ORXLUTThread::LoadFromCamera, 2 + 2002, "load:failed:1000 loaded end");
        row("while reloading", ORXLUTThread::ReloadFromCamera, 2 + 2001, "reload:failed:1000 end");
        row("before writing", ORXLUTThread::SetToCamera, 1, "write:failed:0 written end");
        row("while writing", ORXLUTThread::SetToCamera, 2001, "write:failed:1000 written end");
    }

    void unplugged()
    {
        const auto [type, call, said] = fetchRow<int, int, QStringList>();
        MessageGuard::expectMessage("Read Feature Failed"_s);
        MessageGuard::expectMessage("LUT: "_s);
        const LUTPoints points = squares(kPoints);
        QVector<int> wanted = m_camera->table();
        for (int i = 0; type == ORXLUTThread::SetToCamera && i < call / 2; ++i)
            wanted[i] = points.at(i).value;
        m_camera->faults().failAfter(call - 1, -5);
        QVERIFY(start(*m_thread, type, points));
        QTRY_COMPARE(m_said->log, said);
        QVERIFY(m_thread->points().isEmpty());
        QCOMPARE(m_camera->table(), wanted);
        // The worker is ready for the next job.
        m_camera->faults().failAfter(0, 0);
        QVERIFY(start(*m_thread, ORXLUTThread::LoadFromCamera));
        QTRY_COMPARE(m_said->log, said + kLoaded);
    }

    // The same type is refused while it runs or waits. Another waits without holding up the caller,
    // although the camera hangs.
    void jobsRunOneAfterTheOther()
    {
        const LUTPoints points = squares(kPoints);
        const QVector<int> before = m_camera->table();
        m_camera->holdAtCall(10);
        QVERIFY(start(*m_thread, ORXLUTThread::LoadFromCamera));
        QTRY_VERIFY(m_camera->isHolding());
        QVERIFY(!start(*m_thread, ORXLUTThread::LoadFromCamera));
        QVERIFY(start(*m_thread, ORXLUTThread::SetToCamera, points));
        QVERIFY(!start(*m_thread, ORXLUTThread::SetToCamera, points));
        QCOMPARE(m_camera->written(), 0);
        m_camera->release();
        QTRY_COMPARE(m_said->log, kLoaded + words("write:completed:4096 written end"));
        // The load was whole before the first point was written.
        QCOMPARE(valuesOf(m_thread->points()), before);
        QCOMPARE(m_camera->table(), valuesOf(points));
        QVERIFY(!m_thread->isBusy());
        m_said->log.clear();
        QVERIFY(start(*m_thread, ORXLUTThread::LoadFromCamera));
        QTRY_COMPARE(m_said->log, kLoaded);
    }

    void anotherCameraDropsTheTable()
    {
        QVERIFY(start(*m_thread, ORXLUTThread::LoadFromCamera));
        QTRY_COMPARE(m_said->log, kLoaded);
        m_thread->resetCameraID(1);
        QCOMPARE(m_thread->points().size(), kPoints);
        m_thread->resetCameraID(2);
        QVERIFY(m_thread->points().isEmpty());
        // The last call of a read: too late for the stop request to cut it short.
        m_camera->holdAtCall(2 + 2 * kPoints);
        QVERIFY(start(*m_thread, ORXLUTThread::LoadFromCamera));
        QTRY_VERIFY(m_camera->isHolding());
        m_thread->resetCameraID(3);
        m_camera->release();
        QTRY_COMPARE(m_said->log, kLoaded + words("load:stopped:4095 loaded end"));
        QVERIFY(m_thread->points().isEmpty());
    }

    void droppedJobStillEnds()
    {
        // Whatever the worker has come to when the stop arrives, the last signal tells the end.
        for (int round = 0; round < 50; ++round) {
            m_said->log.clear();
            QVERIFY(start(*m_thread, ORXLUTThread::LoadFromCamera));
            m_thread->requestStop();
            QTRY_VERIFY(m_said->log.contains("end"_s) && !m_thread->isBusy());
        }
        QVERIFY(start(*m_thread, ORXLUTThread::LoadFromCamera));
        QTRY_COMPARE(m_thread->points().size(), kPoints);
    }
};

OBFT_TEST_MAIN(TestOrxLutThread)
#include "tst_orxlutthread.moc"
