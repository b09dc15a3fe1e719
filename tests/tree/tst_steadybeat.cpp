// SPDX-License-Identifier: Apache-2.0
#include "tree/SteadyBeat.h"

#include "support/Periods.h"
#include "support/TestMain.h"

#include <QSemaphore>

#include <atomic>
#include <future>
#include <memory>

using std::chrono::milliseconds;

namespace {

// An action that a test holds in its middle.
class Gate
{
public:
    void pass()
    {
        entered.release();
        m_open.acquire();
        ++left;
    }
    void open() { m_open.release(1000); }
    bool waitUntilEntered() { return entered.tryAcquire(1, 20000); }

    QSemaphore entered;
    std::atomic<int> left{0};

private:
    QSemaphore m_open;
};

} // namespace

class TestSteadyBeat : public GuardedTest
{
    Q_OBJECT

private slots:
    // One that is only held counts as running.
    void beatsUntilStoppedOrHeld()
    {
        std::atomic<int> count{0};
        SteadyBeat beat([&] { ++count; });
        QVERIFY(!beat.isRunning());
        for (const bool held : {false, true, false}) {
            const int before = count;
            beat.start(milliseconds(1));
            QVERIFY(beat.isRunning());
            QTRY_VERIFY(count > before + 50);
            held ? beat.requestStop() : beat.stop();
            beat.waitForAction();
            const int last = count;
            QVERIFY(twentyPeriodsPass());
            QCOMPARE(count.load(), last);
            QCOMPARE(beat.isRunning(), held);
        }
    }

    // Multiples of 10 ms after a beat at 0, however late it is.
    void beatsDoNotDrift_data()
    {
        const Rows<int, int> row("nowMs", "nextMs");
        row("early, as after one run out of turn", -3, 0);
        row("at once", 0, 10);
        row("late", 7, 10);
        row("a period late", 10, 20);
        row("many missed", 58, 60);
    }

    void beatsDoNotDrift()
    {
        const auto [nowMs, nextMs] = fetchRow<int, int>();
        const SteadyBeat::Clock::time_point beat{milliseconds(1000)};
        const auto next = SteadyBeat::beatAfter(beat, milliseconds(10), beat + milliseconds(nowMs));
        QCOMPARE((next - beat).count(), std::chrono::nanoseconds(milliseconds(nextMs)).count());
    }

    // An action that takes many periods is followed by one beat at the next multiple, not by those
    // that it missed: beats then lie at least a period apart again.
    void missedBeatsAreDropped()
    {
        using Clock = std::chrono::steady_clock;
        constexpr milliseconds kPeriod(20);
        std::mutex mutex;
        std::vector<Clock::time_point> beats;
        Clock::time_point start;
        SteadyBeat beat([&] {
            const std::lock_guard<std::mutex> lock(mutex);
            beats.push_back(Clock::now());
            if (beats.size() == 1)
                std::this_thread::sleep_for(kPeriod * 5);
        });
        start = Clock::now();
        beat.start(kPeriod);
        QTRY_VERIFY((std::lock_guard<std::mutex>(mutex), beats.size() >= 4));
        beat.stop();
        beat.waitForAction();
        // However late each one was: a queue of missed beats would be more beats than periods.
        const auto periods = (beats.back() - start) / kPeriod;
        QVERIFY(static_cast<std::ptrdiff_t>(beats.size()) <= periods - 4);
    }

    void longPeriodDoesNotBeatAtOnce()
    {
        for (const qint64 periodMs : {60000, 1000000000}) {
            std::atomic<int> count{0};
            SteadyBeat beat([&] { ++count; });
            beat.start(milliseconds(periodMs));
            beat.runOnce();
            QTRY_COMPARE(count.load(), 1);
            QVERIFY(twentyPeriodsPass());
            QCOMPARE(count.load(), 1);
            beat.start(milliseconds(1)); // takes the long one's place
            QTRY_VERIFY(count > 3);
        }
    }

    void onceWhileRunningIsDropped()
    {
        Gate gate;
        SteadyBeat beat([&] { gate.pass(); });
        beat.runOnce();
        QVERIFY(gate.waitUntilEntered());
        beat.runOnce();
        beat.runOnce();
        gate.open();
        beat.waitForAction();
        QCOMPARE(gate.left.load(), 1);
        QCOMPARE(gate.entered.available(), 0);
    }

    void endsAfterTheRunningAction()
    {
        for (const bool destroyed : {false, true}) {
            Gate gate;
            auto beat = std::make_unique<SteadyBeat>([&] { gate.pass(); });
            beat->start(milliseconds(1));
            QVERIFY(gate.waitUntilEntered());
            if (!destroyed)
                beat->stop(); // does not wait
            QCOMPARE(gate.left.load(), 0);
            const std::future<void> opener = std::async(std::launch::async, [&] { gate.open(); });
            destroyed ? beat.reset() : beat->waitForAction();
            QCOMPARE(gate.left.load(), 1 + gate.entered.available());
            QVERIFY(destroyed || gate.left == 1);
        }
    }
};

OBFT_TEST_MAIN(TestSteadyBeat)
#include "tst_steadybeat.moc"
