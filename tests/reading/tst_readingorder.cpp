// SPDX-License-Identifier: Apache-2.0
// In which order passes read, what a request leaves to be read again, and what of a camera that
// fails in the middle stays.
#include "reading/PassTest.h"

using namespace DescriptionBuilder;

namespace {

const QStringList kNames = words("A B C D E F G H");

const char kDescription[] = "Category Root pFeature=A,B,C,D,E,F,G,H; Integer A; Integer B;"
                            "Integer C; Integer D; Integer E; Integer F; Integer G; Integer H";

} // namespace

class TestReadingOrder : public PassTest
{
    Q_OBJECT

public:
    TestReadingOrder()
        : PassTest(wrap(elements(kDescription)))
    {
    }

private:
    // The features in the order in which the host was asked about them.
    QString order(const QString& question = "mode "_s) const
    {
        QString names;
        for (const QString& call : m_host->calls().filter(question)) {
            if (kNames.contains(call.mid(question.size())))
                names += call.mid(question.size());
        }
        return names;
    }
    // Reads everything, once.
    void readAll(int flags = 13)
    {
        m_host->clearCalls();
        request(flags);
        end();
    }

private slots:
    // What the user sees now comes next, in its order, as far as it was not read yet; what he saw
    // before waits for its place. Every feature is asked for the same as ever, once.
    void whatIsInSightComesFirst()
    {
        readAll();
        QCOMPARE(order(), "ABCDEFGH"_s);
        m_host->clearCalls();
        m_thread->setInSight(words("C Nobody B"));
        requestAndHold("B"_s, 13);
        m_thread->setInSight(words("C G E"));
        goOnTo("B"_s, "G"_s);
        m_thread->setInSight(words("H"));
        end();
        QCOMPARE(order(), "CBGHADEF"_s);
        QCOMPARE(order("get "_s), "CBGHADEF"_s);
        // The next pass begins with it, too.
        readAll();
        QCOMPARE(order(), "HABCDEFG"_s);
    }

    // A request that comes while a pass runs: what it passed, or did not refresh, is done again
    // afterwards, and nothing else.
    void requestDuringAPass_data()
    {
        const Rows<int, int, QString, QString> row("running", "wanted", "asked", "read");
        row("refresh in a refresh", 14, 14, "ABCDEFGHABC", "ABCDEFGHABC");
        row("refresh in the first read", 13, 14, "ABCDEFGHABC", "ABCDEFGHABC");
        row("first read in a refresh", 14, 13, "ABCDEFGHABCDEFGH", "ABCDEFGHABCDEFGH");
        row("refresh in a level pass", 4, 14, "ABCDEFGHABCDEFGH", "ABCDEFGH");
        row("level in a refresh", 14, 4, "ABCDEFGHABC", "ABCDEFGH");
        row("level in a level pass", 4, 4, "ABCDEFGHABC", "");
    }

    void requestDuringAPass()
    {
        const auto [running, wanted, asked, read] = fetchRow<int, int, QString, QString>();
        if (running == 4)
            readAll(); // of rows that show already the level changes nothing
        m_host->clearCalls();
        requestAndHold("C"_s, running);
        request(wanted);
        end();
        QCOMPARE(order(), asked);
        QCOMPARE(order("get "_s), read);
    }

    // The later the last request, the more is read again, in one more pass. What waits takes over
    // what the next request refreshes besides.
    void requestsDuringAPassAreOne()
    {
        requestAndHold("B"_s, 14);
        request(4);
        goOnTo("B"_s, "D"_s);
        request(14);
        request(14);
        end();
        QCOMPARE(order(), "ABCDEFGHABCD"_s);
        QCOMPARE(reads("C"), 2);
    }

    // A request that comes late in what another left to be read again.
    void requestDuringTheRest()
    {
        requestAndHold("F"_s, 14);
        request(14);
        goOnTo("F"_s, "B"_s);
        QCOMPARE(m_thread->progress().total, 6);
        request(14);
        end();
        QCOMPARE(order(), "ABCDEFGHABCDEFABCDEFGH"_s);
    }

    // A level chosen while a pass runs holds for what it passed, and for what comes.
    void levelDuringAPass()
    {
        load(wrap(elements("Category Root pFeature=A,B,C; Integer A Visibility=Guru; Integer B;"
                           "Integer C Visibility=Guru")));
        OBDeviceControl::SetUserLevel(0);
        requestAndHold("B"_s, 13);
        OBDeviceControl::SetUserLevel(1);
        request(4);
        end();
        QVERIFY(!item("A"_s)->visible() && item("B"_s)->visible() && !item("C"_s)->visible());
    }

    // A stop in the middle of a feature's access mode stores nothing of its answer.
    void stoppedQuestionIsNoAnswer()
    {
        readAll();
        QVERIFY(item("C"_s)->visible());
        m_host->set("C"_s, FakeHost::integerFeature(7).withMode(OB_FT_ACCESS_NOT_AVAILABLE));
        requestAndHold("C"_s, 14);
        m_thread->requestStop();
        end();
        QVERIFY(item("C"_s)->visible());
        m_thread->StopThread(true, true);
        m_thread->StopThread(false, true);
        readAll(14);
        QVERIFY(!item("C"_s)->visible());
    }

    // From the middle of a pass on every call fails: the pass ends, what was read stays, and the
    // next one that is answered brings everything back.
    void cameraFailsFromTheMiddleOn_data()
    {
        const Rows<int> row("calls");
        row("at once", 0);
        row("at a value", 7);
        row("at an access mode", 8);
    }

    void cameraFailsFromTheMiddleOn()
    {
        QFETCH(int, calls);
        readAll();
        m_host->faults().failAfter(calls, -5);
        readAll();
        QCOMPARE(order(), "ABCDEFGH"_s);
        for (const QString& name : kNames)
            QCOMPARE(item(name)->value()->value().toInt(), 1);
        m_host->faults().failAfter(0, 0);
        readAll();
        for (const QString& name : kNames)
            QVERIFY(item(name)->visible());
    }

    // The host says that a feature exists and then that it does not, or the other way round: what
    // it said last about its access counts, and a value that was never told is not claimed.
    void answersThatContradictEachOther()
    {
        m_host->faults().takeTurns("B"_s, {OB_FT_ACCESS_READ_WRITE, OB_FT_ACCESS_NOT_IMPLEMENTED});
        m_host->fail("B"_s, -1);
        for (const bool exists : {true, false, true, false}) {
            readAll();
            QCOMPARE(item("B"_s)->visible(), exists);
            QCOMPARE(int(item("B"_s)->value()->lastRead()), int(CTreeItemValue::LastRead::Failed));
        }
        QVERIFY(item("C"_s)->visible());
        m_host->fail("B"_s, 0);
        readAll();
        QVERIFY(item("B"_s)->visible());
        QCOMPARE(int(item("B"_s)->value()->lastRead()), int(CTreeItemValue::LastRead::Done));
    }
};

OBFT_TEST_MAIN(TestReadingOrder)
#include "tst_readingorder.moc"
