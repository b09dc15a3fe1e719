// SPDX-License-Identifier: Apache-2.0
#include "device/GuiNotices.h"
#include "device/NoticeQueue.h"
#include "support/TestMain.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QTimer>

#include <functional>
#include <memory>
#include <thread>

namespace {

// On a thread that has ended at the return.
void onWorker(const std::function<void()>& work)
{
    std::thread(work).join();
}

} // namespace

class TestGuiNotices : public GuardedTest
{
    Q_OBJECT

private slots:
    void noticesOfAllAreToldInTheirOrder()
    {
        GuiNotices one;
        GuiNotices other;
        QVector<int> told;
        const auto note = [&told](int number) { return [&told, number] { told.append(number); }; };
        one.tell(note(0));
        onWorker([&] { one.tell(note(2)); });
        onWorker([&] { other.tell(note(3)); });
        one.tell(note(1));
        other.behindWaiting(note(4));
        QCOMPARE(told, QVector<int>({0, 1}));
        QVERIFY(QTest::qWaitFor([&] { return told.size() == 5; }));
        QCOMPARE(told, QVector<int>({0, 1, 2, 3, 4}));
        other.behindWaiting(note(5));
        QCOMPARE(told.last(), 5);
    }

    // Painting and input wait for no more than one turn.
    void otherEventsComeBetweenTurns()
    {
        constexpr int kNotices = 4 * NoticeQueue::kTurnMs;
        GuiNotices notices;
        int told = 0;
        int toldBefore = -1;
        onWorker([&] {
            for (int i = 0; i < kNotices; ++i) {
                notices.tell([&told] {
                    QElapsedTimer work;
                    work.start();
                    while (!work.hasExpired(1))
                        continue;
                    ++told;
                });
            }
        });
        QTimer::singleShot(1, [&] { toldBefore = told; });
        QVERIFY(QTest::qWaitFor([&] { return told == kNotices; }));
        QVERIFY(toldBefore >= 0);
        QVERIFY2(toldBefore < kNotices, "all notices were told in one turn");
    }

    void whatIsLeftOfOneThatWentIsNotTold()
    {
        GuiNotices stays;
        auto goes = std::make_unique<GuiNotices>();
        int told = 0;
        onWorker([&] {
            stays.tell([&goes] { goes.reset(); });
            goes->tell([&told] { told += 100; });
            stays.tell([&told] { ++told; });
        });
        QVERIFY(QTest::qWaitFor([&] { return told > 0; }));
        QCOMPARE(told, 1);
    }

    // As when a host closes the window from inside a notice.
    void lastOneMayGoWithItsNotice()
    {
        auto last = std::make_unique<GuiNotices>();
        onWorker([&] {
            last->tell([&last] { last.reset(); });
            last->tell([] { QFAIL("told to nobody"); });
        });
        QVERIFY(QTest::qWaitFor([&] { return !last; }));
        QCoreApplication::processEvents();
        // And begins anew.
        GuiNotices next;
        bool told = false;
        onWorker([&] { next.tell([&told] { told = true; }); });
        QVERIFY(QTest::qWaitFor([&] { return told; }));
    }

    // A message box that stands on a notice does not keep the others from the window.
    void eventLoopInsideANoticeGoesOnWithTheOthers()
    {
        GuiNotices notices;
        int told = 0;
        bool within = false;
        onWorker([&] {
            notices.tell([&] { within = QTest::qWaitFor([&] { return told == 2; }); });
            notices.tell([&told] { ++told; });
            notices.tell([&told] { ++told; });
        });
        QVERIFY(QTest::qWaitFor([&] { return told == 2; }));
        QVERIFY(within);
        // What comes later finds the queue awake.
        onWorker([&] { notices.tell([&told] { ++told; }); });
        QVERIFY(QTest::qWaitFor([&] { return told == 3; }));
    }
};

OBFT_TEST_MAIN(TestGuiNotices)
#include "tst_guinotices.moc"
