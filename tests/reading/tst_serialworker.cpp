// SPDX-License-Identifier: Apache-2.0
#include "reading/FeatureMutex.h"
#include "reading/SerialWorker.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QSemaphore>
#include <QVector>

#include <thread>
#include <vector>

namespace {

// Notes the numbers of its jobs; a job below 0 is held until it is let go.
class Worker : public SerialWorker<int>
{
public:
    Worker()
        : SerialWorker("Test worker", nullptr)
    {
    }
    ~Worker() override { finish(); }
    using SerialWorker<int>::post;

    QVector<int> done() const
    {
        return locked([this](const Waiting&, const int*) { return m_done; });
    }
    std::atomic<int> count{0};
    std::atomic<int> otherThreads{0};
    std::atomic<bool> stoppedOnTheWay{false};
    QSemaphore held;
    QSemaphore letGo;

protected:
    void work(int& job) override
    {
        if (QThread::currentThread() != this)
            ++otherThreads;
        if (job < 0) {
            held.release();
            letGo.acquire();
            stoppedOnTheWay = stopRequested();
        }
        locked([&](Waiting&, int*) { m_done.append(job); });
        ++count;
    }

private:
    QVector<int> m_done; // guarded by the worker's lock
};

} // namespace

class TestSerialWorker : public GuardedTest
{
    Q_OBJECT

private slots:
    void jobsRunInOrderOnOneThread()
    {
        Worker worker;
        QVector<int> posted;
        for (int job = 0; job < 100; ++job) {
            worker.post(job);
            posted.append(job);
        }
        worker.waitUntilIdle();
        QCOMPARE(worker.done(), posted);
        QCOMPARE(worker.otherThreads.load(), 0);
        QVERIFY(!worker.isBusy());
    }

    // What waits never runs, the running one learns of it, and what comes later runs without a
    // stop.
    void stopEndsTheRunningJobAndDropsTheWaitingOnes()
    {
        Worker worker;
        worker.post(-1);
        worker.post(2);
        worker.held.acquire();
        worker.requestStop();
        worker.post(-3);
        QVERIFY(worker.isBusy());
        worker.letGo.release();
        worker.held.acquire();
        QVERIFY(worker.stoppedOnTheWay);
        worker.letGo.release();
        worker.waitUntilIdle();
        QCOMPARE(worker.done(), (QVector<int>{-1, -3}));
        QVERIFY(!worker.stoppedOnTheWay);
    }

    // Each job is posted exactly while the one before ends.
    void noJobIsLostAtTheEndOfAnother()
    {
        Worker worker;
        for (int job = 1; job <= 20000; ++job) {
            worker.post(job);
            QElapsedTimer waiting;
            waiting.start();
            while (worker.count < job && waiting.elapsed() < 10000)
                ;
            QCOMPARE(worker.count.load(), job);
        }
    }

    // Feature mutex -------------------------------------------------------------------------------

    // Whoever leaves it and takes it again at once stands behind all who wait.
    void firstComeFirstServed()
    {
        constexpr int kTurns = 200;
        FeatureMutex mutex;
        QVector<int> order; // guarded by the mutex
        bool bEnds = false; // guarded by the mutex
        const auto takeTurns = [&](int thread) {
            for (int turn = 0; turn < kTurns; ++turn) {
                const FeatureLock lock(&mutex);
                order.append(thread);
                // A turn ends when everybody waits, until the first one comes to his last turns.
                bEnds = bEnds || turn >= kTurns - 2;
                while (!bEnds && mutex.waiting() < 2)
                    std::this_thread::yield();
            }
        };
        std::vector<std::thread> threads;
        for (int thread = 0; thread < 3; ++thread)
            threads.emplace_back(takeTurns, thread);
        for (std::thread& each : threads)
            each.join();
        QCOMPARE(order.size(), 3 * kTurns);
        for (int turn = 3; turn < 3 * (kTurns - 2); ++turn)
            QCOMPARE(order.at(turn), order.at(turn - 3));
    }

    // Between two steps of long work the others come first, and it goes on afterwards; without
    // others nothing happens.
    void givingWayLetsTheOthersGoFirst()
    {
        FeatureMutex mutex;
        FeatureLock lock(&mutex);
        lock.giveWay();
        QVERIFY(lock.holds());
        std::atomic<int> turns{0};
        const auto takeTurn = [&] {
            const FeatureLock other(&mutex);
            ++turns;
        };
        std::thread first(takeTurn);
        std::thread second(takeTurn);
        while (mutex.waiting() < 2)
            std::this_thread::yield();
        QCOMPARE(turns.load(), 0);
        lock.giveWay();
        QVERIFY(lock.holds());
        QCOMPARE(turns.load(), 2);
        first.join();
        second.join();
    }

    // Whoever gives up leaves the queue, so that the next one gets his turn.
    void waitingIsGivenUpOnAStop()
    {
        FeatureMutex mutex;
        StopRequest stop;
        auto holder = std::make_unique<FeatureLock>(&mutex);
        std::atomic<int> held{0};
        const auto takeTurn = [&](const StopRequest* request) {
            if (FeatureLock(&mutex, request).holds())
                ++held;
        };
        std::thread stopped(takeTurn, &stop);
        while (!holder->isWaitedFor())
            std::this_thread::yield();
        std::thread patient(takeTurn, nullptr);
        stop.request();
        stopped.join();
        QCOMPARE(held.load(), 0);
        holder.reset();
        patient.join();
        QCOMPARE(held.load(), 1);
        // Also of a lock that is free.
        takeTurn(&stop);
        QCOMPARE(held.load(), 1);
    }
};

OBFT_TEST_MAIN(TestSerialWorker)
#include "tst_serialworker.moc"
