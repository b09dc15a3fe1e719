// SPDX-License-Identifier: Apache-2.0
// The worker that carries look-up tables: whole tables, cameras that fail, order of jobs.
#include "lut/LutCamera.h"
#include "lut/ORXLUTThread.h"
#include "support/TestMain.h"

#include <memory>
#include <thread>

namespace {

constexpr int kPoints = 4096;

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
        hear(&ORXLUTThread::SigReport, [this, thread] { reports.append(thread->takeReport()); });
        hear(&ORXLUTThread::SigUpdateLUTInfo, [this](int index, int value, float x, float y) {
            infos.append({index, value, x, y});
        });
        hear(&ORXLUTThread::SigProgress, [this](int done, int total) {
            progress.append({done, total});
        });
        hear(&ORXLUTThread::SigLoadFromCameraFinished, [this] { ++loaded; });
        hear(&ORXLUTThread::SigSetToCameraFinished, [this] { ++set; });
        hear(&ORXLUTThread::SigThreadEnd, [this] { ++ends; });
    }
    struct Info
    {
        int maximumIndex;
        int maximumValue;
        float xScale;
        float yScale;
    };
    QObject receiver;
    QVector<LUTTransferReport> reports;
    QVector<Info> infos;
    QVector<QPair<int, int>> progress;
    int loaded = 0;
    int set = 0;
    int ends = 0;
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
        const Rows<int, int, int, int> row("type", "loaded", "set", "infos");
        row("load", ORXLUTThread::LoadFromCamera, 1, 0, 1);
        row("set", ORXLUTThread::SetToCamera, 0, 1, 0);
        row("reload, which tells no finish", ORXLUTThread::ReloadFromCamera, 0, 0, 1);
    }

    void carriesAWholeTable()
    {
        QFETCH(int, type);
        const bool set = type == ORXLUTThread::SetToCamera;
        const LUTPoints points = squares(kPoints);
        QVERIFY(start(*m_thread, type, points));
        QTRY_COMPARE(m_said->ends, 1);
        QTEST(m_said->loaded, "loaded");
        QTEST(m_said->set, "set");
        QTEST(m_said->infos.size(), "infos");
        QCOMPARE(m_camera->table(), valuesOf(set ? points : m_thread->points()));
        QCOMPARE(m_camera->written().size(), set ? kPoints : 0);
        QCOMPARE(m_said->reports.first().done, kPoints);
        QCOMPARE(m_said->reports.first().outcome, LUTTransferReport::Completed);
        // An index and a value for each point; before a read the limits of both.
        QCOMPARE(m_camera->calls(), (set ? 0 : 2) + 2 * kPoints);
        // Progress comes often enough to watch, and does not flood the GUI thread.
        QVERIFY(m_said->progress.size() >= 50 && m_said->progress.size() <= 200);
        QCOMPARE(m_said->progress.last(), qMakePair(kPoints, kPoints));
        for (const Said::Info& info : m_said->infos) {
            QCOMPARE(info.maximumIndex, kPoints - 1);
            QCOMPARE(info.maximumValue, 4095);
            QCOMPARE(info.xScale, 239.0F / 4095.0F);
            QCOMPARE(info.yScale, 239.0F / 4095.0F);
        }
    }

    void sillyLimits_data()
    {
        // highestValue 0: nothing is read
        const Rows<qint64, qint64, QString, int> row("maximumIndex", "maximumValue", "line",
                                                     "highestValue");
        const qint64 huge = qint64(1) << 40;
        row("no index", 0, 4095, "LUT: LUTIndex ends at 0, which gives no table", 0);
        row("negative index", -1, 4095, "LUT: LUTIndex ends at -1", 0);
        row("no value", 1023, 0, "LUT: LUTValue ends at 0", 0);
        row("negative value", 1023, -huge, "LUT: LUTValue ends at -1099511627776", 0);
        row("huge value", 1023, huge, "only values up to 2147483647 are used", 2147483647);
        // The camera has 4,096 points: the read ends with an error instead of an endless table.
        row("huge index", huge, 4095, "only values up to 65535 are used", 0);
    }

    void sillyLimits()
    {
        QFETCH(qint64, maximumIndex);
        QFETCH(qint64, maximumValue);
        QFETCH(QString, line);
        QFETCH(int, highestValue);
        MessageGuard::expectMessage("LUT"_s);
        m_camera->announce(maximumIndex, maximumValue);
        QVERIFY(start(*m_thread, ORXLUTThread::LoadFromCamera));
        QTRY_COMPARE(m_said->ends, 1);
        QVERIFY(MessageGuard::contains(line));
        QCOMPARE(m_said->loaded, 1);
        QCOMPARE(m_said->infos.size(), highestValue > 0 ? 1 : 0);
        if (highestValue > 0)
            QCOMPARE(m_said->infos.first().maximumValue, highestValue);
        else
            QCOMPARE(m_said->reports.first().outcome, LUTTransferReport::Failed);
        QVERIFY(m_camera->calls() <= 2 + 2 * (kPoints + 1));
    }

    void refusedPointsAreSkipped_data()
    {
        const Rows<bool> row("index");
        row("index refused", true);
        row("value refused", false);
    }

    void refusedPointsAreSkipped()
    {
        QFETCH(bool, index);
        MessageGuard::expectMessage("Read Feature Failed"_s);
        MessageGuard::expectMessage("LUT: only 4095 of 4096 points written"_s);
        const LUTPoints points = squares(kPoints);
        QVector<int> wanted = valuesOf(points);
        wanted[100] = m_camera->table().at(100);
        if (index)
            m_camera->refuseIndex(100);
        else
            m_camera->refuseValueAt(100);
        QVERIFY(start(*m_thread, ORXLUTThread::SetToCamera, points));
        QTRY_COMPARE(m_said->ends, 1);
        QCOMPARE(m_camera->table(), wanted);
        QVERIFY(!m_camera->written().contains(100));
        QCOMPARE(m_said->set, 1);
        QCOMPARE(m_said->reports.first().outcome, LUTTransferReport::Failed);
        QCOMPARE(m_said->reports.first().done, kPoints - 1);
    }

    void unplugged_data()
    {
        const Rows<int, int, int> row("type", "call", "done");
        row("before reading", ORXLUTThread::LoadFromCamera, 1, 0);
        row("between the limits", ORXLUTThread::LoadFromCamera, 2, 0);
        row("at an index", ORXLUTThread::LoadFromCamera, 2 + 2001, 1000);
        row("at a value", ORXLUTThread::LoadFromCamera, 2 + 2002, 1000);
        row("while reloading", ORXLUTThread::ReloadFromCamera, 2 + 2001, 1000);
        row("before writing", ORXLUTThread::SetToCamera, 1, 0);
        row("while writing", ORXLUTThread::SetToCamera, 2001, 1000);
    }

    void unplugged()
    {
        QFETCH(int, type);
        QFETCH(int, call);
        QFETCH(int, done);
        MessageGuard::expectMessage("Read Feature Failed"_s);
        MessageGuard::expectMessage("LUT: "_s);
        const LUTPoints points = squares(kPoints);
        QVector<int> wanted = m_camera->table();
        if (type == ORXLUTThread::SetToCamera) {
            for (int i = 0; i < done; ++i)
                wanted[i] = points.at(i).value;
        }
        m_camera->unplugAtCall(call);
        QVERIFY(start(*m_thread, type, points));
        QTRY_COMPARE(m_said->ends, 1);
        QCOMPARE(m_said->infos.size(), 0);
        QVERIFY(m_thread->points().isEmpty());
        QCOMPARE(m_said->reports.first().outcome, LUTTransferReport::Failed);
        QCOMPARE(m_said->reports.first().done, done);
        QCOMPARE(m_camera->table(), wanted);
        // The worker is ready for the next job.
        m_camera->unplugAtCall(0);
        QVERIFY(start(*m_thread, ORXLUTThread::LoadFromCamera));
        QTRY_COMPARE(m_said->infos.size(), 1);
    }

    void sameTypeIsRefusedWhileItRuns()
    {
        m_camera->holdAtCall(10);
        QVERIFY(start(*m_thread, ORXLUTThread::LoadFromCamera));
        QTRY_VERIFY(m_camera->isHolding());
        QVERIFY(!start(*m_thread, ORXLUTThread::LoadFromCamera));
        m_camera->release();
        QTRY_COMPARE(m_said->ends, 1);
        QVERIFY(start(*m_thread, ORXLUTThread::LoadFromCamera));
        QTRY_COMPARE(m_said->ends, 2);
        QCOMPARE(m_said->infos.size(), 2);
    }

    void otherTypeWaitsWithoutHoldingUpTheCaller()
    {
        const LUTPoints points = squares(kPoints);
        const QVector<int> before = m_camera->table();
        m_camera->holdAtCall(10);
        QVERIFY(start(*m_thread, ORXLUTThread::LoadFromCamera));
        QTRY_VERIFY(m_camera->isHolding());
        // Returns although the camera hangs; the same again is refused while it waits.
        QVERIFY(start(*m_thread, ORXLUTThread::SetToCamera, points));
        QVERIFY(!start(*m_thread, ORXLUTThread::SetToCamera, points));
        QCOMPARE(m_camera->written().size(), 0);
        m_camera->release();
        QTRY_COMPARE(m_said->ends, 2);
        // The load was whole before the first point was written.
        QCOMPARE(valuesOf(m_thread->points()), before);
        QCOMPARE(m_camera->table(), valuesOf(points));
        QCOMPARE(m_said->reports.at(0).type, int(ORXLUTThread::LoadFromCamera));
        QCOMPARE(m_said->reports.at(1).type, int(ORXLUTThread::SetToCamera));
        QVERIFY(!m_thread->isBusy());
    }

    void anotherCameraDropsTheTable()
    {
        QVERIFY(start(*m_thread, ORXLUTThread::LoadFromCamera));
        QTRY_COMPARE(m_said->ends, 1);
        m_thread->resetCameraID(1);
        QCOMPARE(m_thread->points().size(), kPoints);
        m_thread->resetCameraID(2);
        QVERIFY(m_thread->points().isEmpty());
        // The last call of a read: too late for the stop request to cut it short.
        m_camera->holdAtCall(m_camera->calls() + 2 + 2 * kPoints);
        QVERIFY(start(*m_thread, ORXLUTThread::LoadFromCamera));
        QTRY_VERIFY(m_camera->isHolding());
        m_thread->resetCameraID(3);
        m_camera->release();
        QTRY_COMPARE(m_said->ends, 2);
        QVERIFY(m_thread->points().isEmpty());
        QCOMPARE(m_said->infos.size(), 1);
        QCOMPARE(m_said->reports.last().outcome, LUTTransferReport::Stopped);
    }

    void droppedJobStillEnds()
    {
        // Whatever the worker has come to when the stop arrives, the last signal tells the end.
        for (int round = 0; round < 50; ++round) {
            const int ends = m_said->ends;
            QVERIFY(start(*m_thread, ORXLUTThread::LoadFromCamera));
            m_thread->requestStop();
            QTRY_VERIFY(m_said->ends > ends && !m_thread->isBusy());
        }
        QVERIFY(start(*m_thread, ORXLUTThread::LoadFromCamera));
        QTRY_COMPARE(m_thread->points().size(), kPoints);
    }
};

OBFT_TEST_MAIN(TestOrxLutThread)
#include "tst_orxlutthread.moc"
