// SPDX-License-Identifier: Apache-2.0
// Feature files against the simulated camera, as the worker does it.
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
    FeatureMutex m_mutex;
    std::unique_ptr<HostCallbacks> m_host;
    std::unique_ptr<LoadedDescription> m_loaded;
    std::unique_ptr<FeatureFileThread> m_thread;

private slots:
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
        const FeatureFile file = done(job(FeatureFileJob::Kind::Save)).file;
        QCOMPARE(write("Width", "640"), 0);
        for (const char* trigger : {"0", "1"}) {
            QCOMPARE(write("TriggerSelector", trigger), 0);
            QCOMPARE(write("TriggerDelay", "20.5"), 0);
        }
        FeatureFileJob stopped = job(FeatureFileJob::Kind::Compare);
        stopped.file = file;
        stopped.rows = done(stopped).rows;
        for (Row& row : stopped.rows)
            row.chosen = row.canBeApplied();
        stopped.kind = static_cast<FeatureFileJob::Kind>(kind);
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
