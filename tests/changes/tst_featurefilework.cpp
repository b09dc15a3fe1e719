// SPDX-License-Identifier: Apache-2.0
// Feature files against the simulated camera, as the worker does it.
#include "cameras/CameraError.h"
#include "changes/FeatureFileThread.h"
#include "device/OBDeviceControl.h"
#include "pages/DemoPageTest.h"
#include "support/LoadedDescription.h"

#include <algorithm>

using Row = FeatureFileRow;

class TestFeatureFileWork : public DemoPageTest
{
    Q_OBJECT

private:
    void prepare() override
    {
        DemoPageTest::prepare();
        m_camera = std::make_unique<MeddledCamera>(*m_demo);
        m_host = std::make_unique<HostCallbacks>(*m_camera);
        OBDeviceControl::SetCallBackFunc(HostCallbacks::getFeature, HostCallbacks::setFeature,
                                         HostCallbacks::getMode, nullptr, nullptr, m_host.get());
        m_loaded = std::make_unique<LoadedDescription>(DemoCamera::description());
        m_thread = std::make_unique<FeatureFileThread>();
        m_camera->forget();
    }
    void finish() override
    {
        m_thread.reset();
        OBDeviceControl::SetCallBackFunc(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
        m_loaded.reset();
        DemoPageTest::finish();
        m_host.reset();
    }
    // No window: the chunk question of installing the callbacks is the only read of this thread.
    bool failsOnGuiThreadReads() const override { return false; }

    FeatureFileJob job(FeatureFileJob::Kind kind)
    {
        FeatureFileJob job;
        job.kind = kind;
        job.nodes = m_loaded->index.nodes();
        job.mutex = &m_mutex;
        job.names = m_loaded->builder.AllTreeItemsMap().keys();
        return job;
    }
    FeatureFileJob done(const FeatureFileJob& job)
    {
        m_thread->start(job);
        return result();
    }
    FeatureFileJob result()
    {
        std::optional<FeatureFileJob> result;
        const bool ended = QTest::qWaitFor([&] { return bool(result = m_thread->takeResult()); },
                                           kWindowPatienceMs);
        return ended ? *result : FeatureFileJob();
    }
    // Through its text, as it is from one session to the next.
    FeatureFile save()
    {
        return FeatureFile::parse(done(job(FeatureFileJob::Kind::Save)).file.toBytes({}));
    }
    QVector<Row> compare(const FeatureFile& file)
    {
        FeatureFileJob comparing = job(FeatureFileJob::Kind::Compare);
        comparing.file = file;
        return done(comparing).rows;
    }
    QVector<Row> apply(QVector<Row> rows)
    {
        for (Row& row : rows)
            row.chosen = row.canBeApplied();
        FeatureFileJob applying = job(FeatureFileJob::Kind::Apply);
        applying.rows = rows;
        return done(applying).rows;
    }
    static QStringList differing(const QVector<Row>& rows)
    {
        QStringList names;
        for (const Row& row : rows) {
            if (row.state != Row::State::Same)
                names.append(row.nameWithSelectors());
        }
        return names;
    }
    static const Row* rowOf(const QVector<Row>& rows, const QString& name)
    {
        const auto isIt = [&](const Row& row) { return row.name == name; };
        const auto found = std::find_if(rows.begin(), rows.end(), isIt);
        return found == rows.end() ? nullptr : &*found;
    }
    void changeMuch()
    {
        for (const auto& each : {std::pair("Width", "640"),
                                 {"Height", "480"},
                                 {"OffsetX", "128"},
                                 {"ExposureTime", "1234.567"},
                                 {"GammaEnable", "1"}})
            QCOMPARE(write(each.first, each.second), 0);
        QCOMPARE(m_demo->write(OB_FT_TYPE_STRING, "DeviceUserID", "tab\there"), 0);
        for (const char* trigger : {"0", "1"}) {
            QCOMPARE(write("TriggerSelector", trigger), 0);
            QCOMPARE(write("TriggerDelay", trigger[0] == '0' ? "10" : "20.5"), 0);
        }
    }

    FeatureMutex m_mutex;
    std::unique_ptr<HostCallbacks> m_host;
    std::unique_ptr<LoadedDescription> m_loaded;
    std::unique_ptr<FeatureFileThread> m_thread;

private slots:
    void whatTheCameraDoesNotTakeIsTold()
    {
        const FeatureFile file = save();
        changeMuch();
        QVector<Row> rows = compare(file);
        m_camera->fail("DeviceUserID", CameraError::Transfer, MeddledCamera::Writes);
        MessageGuard::expectMessage("NodeName : DeviceUserID"_s);
        rows = apply(rows);
        const Row* refused = rowOf(rows, "DeviceUserID"_s);
        QCOMPARE(refused->state, Row::State::Refused);
        QCOMPARE(refused->error, int(CameraError::Transfer));
        QCOMPARE(rowOf(rows, "Width"_s)->state, Row::State::Written);
        QCOMPARE(differing(compare(file)), QStringList{"DeviceUserID"_s});
    }

    void endsOnTheWay_data()
    {
        const Rows<int, bool> row("kind", "unplugged");
        row("saving, stopped", int(FeatureFileJob::Kind::Save), false);
        row("comparing, stopped", int(FeatureFileJob::Kind::Compare), false);
        row("applying, stopped", int(FeatureFileJob::Kind::Apply), false);
        row("saving, unplugged", int(FeatureFileJob::Kind::Save), true);
        row("comparing, unplugged", int(FeatureFileJob::Kind::Compare), true);
        row("applying, unplugged", int(FeatureFileJob::Kind::Apply), true);
    }

    void endsOnTheWay()
    {
        const auto [kind, unplugged] = fetchRow<int, bool>();
        const FeatureFile file = save();
        changeMuch();
        FeatureFileJob stopped = job(static_cast<FeatureFileJob::Kind>(kind));
        stopped.file = file;
        stopped.rows = compare(file);
        for (Row& row : stopped.rows)
            row.chosen = row.canBeApplied();
        const qint64 selector = read("TriggerSelector");
        // In the middle of what the selector stands elsewhere for.
        m_camera->closeGate("TriggerDelay", MeddledCamera::ReadsAndWrites);
        m_thread->start(stopped);
        QTRY_VERIFY(m_camera->isHolding());
        if (unplugged)
            m_camera->unplug();
        else
            m_thread->requestStop();
        MessageGuard::expectMessage("Feature Failed"_s);
        m_camera->openGate();
        const FeatureFileJob ended = result();
        QCOMPARE(ended.wasStopped, !unplugged);
        if (!unplugged)
            QCOMPARE(read("TriggerSelector"), selector);
        const auto isOpen = [](const Row& row) {
            return row.state != Row::State::Same && row.state != Row::State::Written;
        };
        QVERIFY(kind == int(FeatureFileJob::Kind::Save) && !unplugged
                    ? ended.file.lines.size() < file.lines.size()
                    : std::any_of(ended.rows.begin(), ended.rows.end(), isOpen));
    }

    // A reading pass has its turn, and sees the selector where the user has it.
    void passesHaveTheirTurn()
    {
        const qint64 selector = read("TriggerSelector");
        m_camera->beforeRead = [](const QString&) {
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        };
        m_thread->start(job(FeatureFileJob::Kind::Save));
        int turns = 0;
        int strange = 0;
        while (!m_thread->takeResult()) {
            const FeatureLock lock(&m_mutex);
            strange += read("TriggerSelector") != selector;
            ++turns;
        }
        QCOMPARE(strange, 0);
        QVERIFY(turns > 20);
    }
};

OBFT_TEST_MAIN(TestFeatureFileWork)
#include "tst_featurefilework.moc"
