// SPDX-License-Identifier: Apache-2.0
#include "reading/PassTest.h"

#include <QTimer>

#include <thread>

using namespace DescriptionBuilder;

namespace {

const char kDescription[] =
    "Category Root pFeature=Device;"
    "Category Device pFeature=A,B,C,Guru,Locked,Polled,Gone,Idle,Slow,Closed;"
    "Category Closed pIsAvailable=Never; Integer A Representation=HexNumber; Integer B; Integer C;"
    "Integer Guru Visibility=Guru; Integer Locked pIsLocked=TLParamsLocked;"
    "Integer Polled PollingTime=50; Integer Slow PollingTime=150; Integer Idle pIsAvailable=Never;"
    "Integer Gone pIsAvailable=Never pIsImplemented=Never; Integer TLParamsLocked; Integer Never";

} // namespace

class TestQGetFeaturesThread : public PassTest
{
    Q_OBJECT

public:
    TestQGetFeaturesThread()
        : PassTest(wrap(elements(kDescription)))
    {
    }

protected:
    void prepare() override
    {
        PassTest::prepare();
        m_host->set("Never"_s, FakeHost::integerFeature(0));
    }

private slots:
    void fullPassAsksForEachThingOnce()
    {
        request(13);
        QTRY_COMPARE(m_ended.load(), 1);
        QTRY_VERIFY(!m_thread->isPassRunning());
        for (const char* name : {"A", "B", "C", "Guru", "Locked", "Polled"}) {
            const QString text = QString::fromLatin1(name);
            QCOMPARE(m_host->count("mode "_s + text), 1);
            QCOMPARE(m_host->count("get "_s + text), 1);
        }
        QCOMPARE(reads("TLParamsLocked"), 1);
        const auto* hexadecimal = dynamic_cast<const CTreeIntergerItemValue*>(item("A"_s)->value());
        QCOMPARE(hexadecimal->representation(), "HexNumber"_s);
        // Three features name it, one of them twice: it is asked once for each item.
        QCOMPARE(reads("Never"), 3);
    }

    void oneItemUpdate_data()
    {
        const Rows<QString, int, int, bool, bool, QString> row("name", "mode", "locked", "visible",
                                                               "readOnly", "visibility");
        const char* const beginner = "Beginner";
        const char* const invisible = "Invisible";
        row("read-write", "A", 4, 0, true, false, beginner);
        row("read-only", "A", 3, 0, true, true, beginner);
        row("write-only", "A", 2, 0, true, false, beginner);
        row("not available", "A", 1, 0, false, true, invisible);
        row("nonsense mode", "A", 77, 0, false, true, invisible);
        row("locked", "Locked", 4, 1, true, true, beginner);
        row("unlocked", "Locked", 4, 0, true, false, beginner);
        row("not implemented node", "Gone", 4, 0, false, true, invisible);
        row("other level", "Guru", 4, 0, false, false, "Guru");
        row("not available by its node", "Idle", 4, 0, true, true, beginner);
        row("category without access", "Device", 0, 0, true, false, beginner);
        row("category that is not available", "Closed", 4, 0, false, true, invisible);
    }

    void oneItemUpdate()
    {
        const auto [name, mode, locked, visible, readOnly, visibility] =
            fetchRow<QString, int, int, bool, bool, QString>();
        m_host->set(name, FakeHost::integerFeature(1).withMode(mode));
        m_host->set("TLParamsLocked"_s, FakeHost::integerFeature(locked));
        ORXPropertyTreeItem* item = this->item(name);
        m_thread->UpdateFeature(item, Flags(13));
        QCOMPARE(item->visible(), visible);
        QCOMPARE(item->readOnly(), readOnly);
        QCOMPARE(item->visibilityString(), visibility);
    }

    void readingWhatTheLevelHides()
    {
        ORXPropertyTreeItem* guru = item("Guru"_s);
        m_thread->takeUserLevel();
        m_thread->UpdateFeature(guru, Flags(4));
        QVERIFY(!guru->visible() && !guru->wasRead());
        OBDeviceControl::SetUserLevel(0);
        m_thread->takeUserLevel();
        m_thread->UpdateFeature(guru, Flags(4));
        QVERIFY(guru->visible() && guru->wasRead()); // it begins to show
        QCOMPARE(reads("Guru"), 1);
        OBDeviceControl::SetUserLevel(1);
        m_thread->takeUserLevel();
        m_thread->UpdateFeature(guru, Flags(13));
        QCOMPARE(reads("Guru"), 2); // the first pass reads all
        m_thread->UpdateFeature(guru, Flags(14));
        OBDeviceControl::SetUserLevel(0);
        request(4);
        QTRY_VERIFY(guru->visible());
        QCOMPARE(reads("Guru"), 2);
    }

    // Polling never shows or hides by the level, but it tells a feature that is back.
    void pollingTellsAccess()
    {
        ORXPropertyTreeItem* polled = item("Polled"_s);
        for (const bool there : {true, false, true}) {
            m_host->failMode("Polled"_s, there ? 0 : 5);
            m_thread->UpdateFeature(polled, Flags(10));
            QCOMPARE(polled->visibilityString(), there ? "Beginner"_s : "Invisible"_s);
            QVERIFY(there || polled->value()->lastRead() == CTreeItemValue::LastRead::Failed);
        }
    }

    // A full read that comes when polling was asked for and the thread has not begun it.
    void pollingThatWaitsGivesWay()
    {
        QVERIFY(m_thread->SetThreadInfo(FEATURES_UPDATE_POLLING, {}, Flags(10)));
        request(13);
        QTRY_VERIFY(!m_thread->isPassRunning());
        QCOMPARE(reads("A"), 1);
        QTRY_COMPARE(m_ended.load(), 1);
    }

    void requestsMeetTheRunningPass_data()
    {
        // passes that end by themselves once the worker goes on
        const Rows<int, int, bool, int> row("running", "wanted", "accepted", "passes");
        row("full, full", 0, 0, true, 2);
        row("full, polling", 0, 3, false, 1);
        row("full, invalidated", 0, 1, true, 2);
        row("full, lockable", 0, 2, true, 2);
        row("invalidated, invalidated", 1, 1, true, 1);
        row("invalidated, full", 1, 0, true, 2);
        row("lockable, lockable", 2, 2, true, 2);
        row("lockable, full", 2, 0, true, 2);
        row("polling, polling", 3, 3, false, 0);
        row("polling, full", 3, 0, true, 2);
    }

    void requestsMeetTheRunningPass()
    {
        const auto [running, wanted, accepted, passes] = fetchRow<int, int, bool, int>();
        requestAndHold(words("A B TLParamsLocked Polled").at(running), running == 3 ? 10 : 13,
                       static_cast<_FEATURES_UPDATE_TYPE_>(running), {"B"_s});
        const auto type = static_cast<_FEATURES_UPDATE_TYPE_>(wanted);
        QCOMPARE(m_thread->SetThreadInfo(type, {"C"_s}, Flags(13)), accepted);
        m_thread->startPass();
        goOn();
        if (passes == 0) {
            QTRY_VERIFY(reads("Polled") > 2);
            QCOMPARE(m_ended.load(), 0);
            return;
        }
        QTRY_COMPARE(m_ended.load(), passes);
        QTRY_VERIFY(!m_thread->isPassRunning());
        if (wanted == 1)
            QVERIFY(reads("C") >= 1);
    }

    void namesJoinTheRunningQueue()
    {
        requestAndHold("A"_s, 13, FEATURES_UPDATE_INVALIDATED, words("A B Guru"));
        request(14, FEATURES_UPDATE_INVALIDATED, words("B C Guru"));
        goOn();
        QTRY_COMPARE(m_ended.load(), 1);
        // B stood in both requests before it was read: once is enough.
        QCOMPARE(reads("B"), 1);
        QCOMPARE(reads("C"), 1);
        // It is hidden, so only the first request wants its value.
        QCOMPARE(reads("Guru"), 1);
    }

    void pollingKeepsEachPeriod()
    {
        request(10, FEATURES_UPDATE_POLLING);
        QTRY_VERIFY(reads("Slow") >= 2);
        m_thread->StopThread(true, true);
        QString order;
        for (const QString& call : m_host->calls().filter("get "_s))
            order += call.at(4);
        QVERIFY2(order.startsWith("PPPSPPPS"_s), qPrintable(order));
    }

    void pollingReportsChanges_data()
    {
        const Rows<bool, bool, int> row("emits", "goes", "reports");
        row("value", true, false, 3);
        row("feature that goes", true, true, 1);
        row("not wanted", false, false, 0);
    }

    void pollingReportsChanges()
    {
        const auto [emits, goes, reports] = fetchRow<bool, bool, int>();
        load(m_xml, emits);
        if (goes)
            m_host->failMode("Polled"_s, 5);
        std::atomic<qint64> value{0};
        m_host->beforeGet = [this, &value](const QString& name) {
            if (name == QLatin1String("Polled"))
                m_host->set(name, FakeHost::integerFeature(++value));
        };
        request(10, FEATURES_UPDATE_POLLING);
        QTRY_VERIFY(m_host->count("mode Polled"_s) > 3 && m_polled >= reports);
        if (reports < 3)
            QCOMPARE(m_polled.load(), reports);
        QCOMPARE(reads("A"), 0);
        m_thread->StopThread(true, true);
        QTRY_COMPARE(m_ended.load(), 1);
    }

    void stopEndsThePassAndRefusesRequests()
    {
        requestAndHold("B"_s, 13);
        // The stop waits for the host's call, so the call has to end while it waits.
        std::atomic<bool> refused{false};
        std::thread host([&] {
            while (!MessageGuard::contains("waiting for a call of the host"_s))
                std::this_thread::yield();
            refused = !m_thread->SetThreadInfo(FEATURES_UPDATE_INVALIDATED, {}, Flags(13));
            goOn();
        });
        m_thread->StopThread(true, true);
        host.join();
        QVERIFY(refused);
        QCOMPARE(reads("C"), 0);
        QVERIFY(!m_thread->SetThreadInfo(FEATURES_UPDATE_ALL, {}, Flags(13)));
        m_thread->StopThread(false, true);
        request(13);
        QTRY_COMPARE(reads("C"), 1);
    }

    void disabledNamesAreLeftAlone()
    {
        requestAndHold("B"_s, 13);
        bool released = false;
        QTimer::singleShot(0, this, [&] {
            released = true;
            goOn();
        });
        m_thread->SetDisableUpdateList({"B"_s}); // waits for the feature under way
        QVERIFY(released);
        QTRY_COMPARE(m_ended.load(), 1);
        m_host->clearCalls();
        request(13);
        QTRY_COMPARE(m_ended.load(), 2);
        QCOMPARE(m_host->count("mode B"_s), 0);
        QVERIFY(item("B"_s)->visible());
        m_thread->SetDisableUpdateList({});
        m_host->set("B"_s, FakeHost::integerFeature(9));
        QVERIFY(m_thread->UpdateFeature(item("B"_s), Flags(13)));
        m_thread->SetDisableUpdateList({"B"_s}); // nothing to wait for
    }

    // Requests come exactly while passes end; each must be carried out.
    void noRequestIsLostAtTheEndOfAPass()
    {
        for (int round = 1; round <= 60; ++round) {
            request(13, FEATURES_UPDATE_INVALIDATED, {"A"_s});
            if (round % 3 == 0)
                QThread::yieldCurrentThread();
            QTRY_VERIFY(reads("A") >= 1);
            m_host->clearCalls();
            QTRY_VERIFY(!m_thread->isPassRunning());
        }
    }
};

OBFT_TEST_MAIN(TestQGetFeaturesThread)
#include "tst_qgetfeaturesthread.moc"
