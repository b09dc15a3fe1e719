// SPDX-License-Identifier: Apache-2.0
#include "device/OBDeviceControl.h"
#include "model/CTreeIntergerItemValue.h"
#include "reading/FeatureMutex.h"
#include "reading/IFeatureReadingOwner.h"
#include "reading/QGetFeaturesThread.h"
#include "support/DescriptionBuilder.h"
#include "support/FakeHost.h"
#include "support/LoadedDescription.h"
#include "support/TestMain.h"

#include <QSemaphore>
#include <QTimer>

#include <thread>

using namespace DescriptionBuilder;
using Flags = QGetFeaturesThread::UpdateFlags;

namespace {

const char kDescription[] = R"(
<Category Name="Root"><pFeature>Device</pFeature></Category>
<Category Name="Device"><pFeature>A</pFeature><pFeature>B</pFeature><pFeature>C</pFeature>
<pFeature>Guru</pFeature><pFeature>Locked</pFeature><pFeature>Polled</pFeature>
<pFeature>Gone</pFeature><pFeature>Idle</pFeature><pFeature>Slow</pFeature>
<pFeature>Closed</pFeature></Category>
<Category Name="Closed"><pIsAvailable>Never</pIsAvailable></Category>
<Integer Name="A"><Representation>HexNumber</Representation></Integer><Integer Name="B"/><Integer Name="C"/>
<Integer Name="Guru"><Visibility>Guru</Visibility></Integer>
<Integer Name="Locked"><pIsLocked>TLParamsLocked</pIsLocked></Integer>
<Integer Name="Polled"><PollingTime>50</PollingTime></Integer>
<Integer Name="Slow"><PollingTime>150</PollingTime></Integer>
<Integer Name="Idle"><pIsAvailable>Never</pIsAvailable></Integer>
<Integer Name="Gone"><pIsAvailable>Never</pIsAvailable><pIsImplemented>Never</pIsImplemented></Integer>
<Integer Name="TLParamsLocked"/><Integer Name="Never"/>)";

class Owner : public IFeatureReadingOwner
{
public:
    FeatureMutex* GetFeatureMutex() override { return &mutex; }
    void EmitPollingFeatureChanged(const QString& name) override
    {
        if (name == QLatin1String("Polled"))
            ++polled;
    }
    FeatureMutex mutex;
    std::atomic<int> polled{0};
};

} // namespace

class TestQGetFeaturesThread : public GuardedTest
{
    Q_OBJECT

protected:
    void prepare() override
    {
        m_description =
            std::make_unique<LoadedDescription>(wrap(QString::fromLatin1(kDescription)));
        m_host = std::make_unique<FakeHost>();
        for (const char* name : {"A", "B", "C", "Guru", "Locked", "Polled", "Gone", "Idle", "Slow"})
            m_host->set(QString::fromLatin1(name), FakeHost::integerFeature(1));
        for (const char* name : {"Root", "Device", "Closed"})
            m_host->set(QString::fromLatin1(name), FakeHost::integerFeature(0));
        for (const char* name : {"TLParamsLocked", "Never"})
            m_host->set(QString::fromLatin1(name), FakeHost::integerFeature(0));
        m_host->install();
        m_host->clearCalls();
        OBDeviceControl::SetUserLevel(1);
        m_owner.polled = 0;
        m_thread = std::make_unique<QGetFeaturesThread>(&m_owner, nullptr);
        m_ended = 0;
        connect(
            m_thread.get(), &QGetFeaturesThread::sigThreadEnd, this, [this] { ++m_ended; },
            Qt::DirectConnection);
        arm();
    }
    void finish() override
    {
        release();
        m_thread.reset();
        m_gate.acquire(m_gate.available());
        m_reached.acquire(m_reached.available());
        FakeHost::uninstall();
        OBDeviceControl::SetUserLevel(1);
    }

private:
    void arm(bool pollingEmits = false)
    {
        m_thread->SetInitThreadInfo(
            1, pollingEmits, m_description->index.nodes(), m_description->builder.AllTreeItemsMap(),
            m_description->index.lockableFeatures(), m_description->index.pollingMap());
    }
    void request(_FEATURES_UPDATE_TYPE_ type, const QStringList& names, int flags)
    {
        m_thread->SetThreadInfo(type, names, Flags(flags));
        m_thread->startPass();
    }
    // Holds the worker inside reads of `name` until release() is called.
    void holdAt(const char* name)
    {
        const QString held = QString::fromLatin1(name);
        m_holding = true;
        m_host->beforeGet = [this, held](const QString& read) {
            if (read != held || !m_holding)
                return;
            m_reached.release();
            m_gate.acquire();
        };
    }
    void release()
    {
        m_holding = false;
        m_gate.release(1000);
    }
    int passesEnded() const { return m_ended; }

    std::unique_ptr<LoadedDescription> m_description;
    std::unique_ptr<FakeHost> m_host;
    Owner m_owner;
    std::unique_ptr<QGetFeaturesThread> m_thread;
    // Counted on the worker itself: a QSignalSpy would be written there and read here.
    std::atomic<int> m_ended{0};
    std::atomic<bool> m_holding{false};
    QSemaphore m_gate;
    QSemaphore m_reached;

private slots:
    void fullPassAsksForEachThingOnce()
    {
        request(FEATURES_UPDATE_ALL, {}, 13);
        QTRY_COMPARE(passesEnded(), 1);
        QTRY_VERIFY(!m_thread->isPassRunning());
        for (const char* name : {"A", "B", "C", "Guru", "Locked", "Polled"}) {
            const QString text = QString::fromLatin1(name);
            QCOMPARE(m_host->count("mode "_s + text), 1);
            QCOMPARE(m_host->count("get "_s + text), 1);
        }
        QCOMPARE(m_host->count("get TLParamsLocked"_s), 1);
        const auto* hexadecimal =
            dynamic_cast<const CTreeIntergerItemValue*>(m_description->item("A")->value());
        QCOMPARE(hexadecimal->representation(), "HexNumber"_s);
        // Three features name it, one of them twice: it is asked once for each item.
        QCOMPARE(m_host->count("get Never"_s), 3);
    }

    void oneItemUpdate_data()
    {
        const Rows<QByteArray, int, int, bool, bool, QString> row(
            "name", "mode", "locked", "visible", "readOnly", "visibility");
        const QString beginner = "Beginner"_s;
        const QString invisible = "Invisible"_s;
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
        QFETCH(QByteArray, name);
        QFETCH(int, mode);
        QFETCH(int, locked);
        QFETCH(bool, visible);
        QFETCH(bool, readOnly);
        FakeHost::Feature feature = FakeHost::integerFeature(1);
        feature.mode = mode;
        m_host->set(QString::fromLatin1(name), feature);
        m_host->set("TLParamsLocked"_s, FakeHost::integerFeature(locked));
        ORXPropertyTreeItem* item = m_description->item(name.constData());
        m_thread->UpdateFeature(item, Flags(13));
        QCOMPARE(item->visible(), visible);
        QCOMPARE(item->readOnly(), readOnly);
        QTEST(item->visibilityString(), "visibility");
    }

    void visibilityLevels_data()
    {
        const Rows<QString, bool, bool> row("visibility", "guru", "beginner");
        row.of("Beginner", true, true);
        row.of("Expert", true, false);
        row.of("Guru", true, false);
        row.of("Invisible", false, false);
        row("none", "", true, true);
        row("other", "guru", false, false);
    }

    void visibilityLevels()
    {
        QFETCH(QString, visibility);
        QTEST(QGetFeaturesThread::IsItemVisible(visibility, 0), "guru");
        QTEST(QGetFeaturesThread::IsItemVisible(visibility, 1), "beginner");
        QCOMPARE(QGetFeaturesThread::IsItemVisible(visibility, 2), visibility.isEmpty());
    }

    void hiddenByLevelIsReadOnTheFirstPassOnly()
    {
        ORXPropertyTreeItem* guru = m_description->item("Guru");
        m_thread->UpdateFeature(guru, Flags(13));
        QCOMPARE(m_host->count("get Guru"_s), 1);
        m_thread->UpdateFeature(guru, Flags(14));
        QCOMPARE(m_host->count("get Guru"_s), 1);
        OBDeviceControl::SetUserLevel(0);
        request(FEATURES_UPDATE_ALL, {}, 4);
        QTRY_VERIFY(guru->visible());
        QCOMPARE(m_host->count("get Guru"_s), 1);
    }

    void rowThatBeginsToShowIsRead()
    {
        ORXPropertyTreeItem* guru = m_description->item("Guru");
        m_thread->takeUserLevel();
        m_thread->UpdateFeature(guru, Flags(4));
        QVERIFY(!guru->visible() && !guru->wasRead());
        OBDeviceControl::SetUserLevel(0);
        m_thread->takeUserLevel();
        m_thread->UpdateFeature(guru, Flags(4));
        QVERIFY(guru->visible() && guru->wasRead());
        QCOMPARE(m_host->count("get Guru"_s), 1);
    }

    // Polling never shows or hides by the level, but it tells a feature that is back.
    void pollingTellsAccess()
    {
        ORXPropertyTreeItem* polled = m_description->item("Polled");
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
        request(FEATURES_UPDATE_ALL, {}, 13);
        QTRY_VERIFY(!m_thread->isPassRunning());
        QCOMPARE(m_host->count("get A"_s), 1);
        QTRY_COMPARE(passesEnded(), 1);
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
        QFETCH(int, running);
        QFETCH(int, wanted);
        QFETCH(int, passes);
        const char* const heldAt[] = {"A", "B", "TLParamsLocked", "Polled"};
        holdAt(heldAt[running]);
        request(static_cast<_FEATURES_UPDATE_TYPE_>(running), {"B"_s}, running == 3 ? 10 : 13);
        m_reached.acquire();
        const auto type = static_cast<_FEATURES_UPDATE_TYPE_>(wanted);
        QTEST(m_thread->SetThreadInfo(type, {"C"_s}, Flags(13)), "accepted");
        m_thread->startPass();
        release();
        if (passes == 0) {
            QTRY_VERIFY(m_host->count("get Polled"_s) > 2);
            QCOMPARE(passesEnded(), 0);
            return;
        }
        QTRY_COMPARE(passesEnded(), passes);
        QTRY_VERIFY(!m_thread->isPassRunning());
        if (wanted == 1)
            QVERIFY(m_host->count("get C"_s) >= 1);
    }

    void namesJoinTheRunningQueue()
    {
        holdAt("A");
        request(FEATURES_UPDATE_INVALIDATED, {"A"_s, "B"_s, "Guru"_s}, 13);
        m_reached.acquire();
        request(FEATURES_UPDATE_INVALIDATED, {"B"_s, "C"_s, "Guru"_s}, 14);
        release();
        QTRY_COMPARE(passesEnded(), 1);
        // B stood in both requests before it was read: once is enough.
        QCOMPARE(m_host->count("get B"_s), 1);
        QCOMPARE(m_host->count("get C"_s), 1);
        // It is hidden, so only the first request wants its value.
        QCOMPARE(m_host->count("get Guru"_s), 1);
    }

    void pollingKeepsEachPeriod()
    {
        request(FEATURES_UPDATE_POLLING, {}, 10);
        QTRY_VERIFY(m_host->count("get Slow"_s) >= 2);
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
        QFETCH(bool, emits);
        QFETCH(bool, goes);
        QFETCH(int, reports);
        arm(emits);
        if (goes)
            m_host->failMode("Polled"_s, 5);
        std::atomic<qint64> value{0};
        m_host->beforeGet = [this, &value](const QString& name) {
            if (name == QLatin1String("Polled"))
                m_host->set(name, FakeHost::integerFeature(++value));
        };
        request(FEATURES_UPDATE_POLLING, {}, 10);
        QTRY_VERIFY(m_host->count("mode Polled"_s) > 3 && m_owner.polled >= reports);
        if (reports < 3)
            QCOMPARE(m_owner.polled.load(), reports);
        QCOMPARE(m_host->count("get A"_s), 0);
        m_thread->StopThread(true, true);
        QTRY_COMPARE(passesEnded(), 1);
    }

    void stopEndsThePassAndRefusesRequests()
    {
        holdAt("B");
        request(FEATURES_UPDATE_ALL, {}, 13);
        m_reached.acquire();
        // The stop waits for the host's call, so the call has to end while it waits: from the
        // moment on in which requests are refused.
        std::thread host([this] {
            while (m_thread->SetThreadInfo(FEATURES_UPDATE_INVALIDATED, {}, Flags(13)))
                std::this_thread::yield();
            release();
        });
        m_thread->StopThread(true, true);
        host.join();
        QCOMPARE(m_host->count("get C"_s), 0);
        QVERIFY(!m_thread->SetThreadInfo(FEATURES_UPDATE_ALL, {}, Flags(13)));
        m_thread->StopThread(false, true);
        request(FEATURES_UPDATE_ALL, {}, 13);
        QTRY_COMPARE(m_host->count("get C"_s), 1);
    }

    void disabledNamesAreLeftAlone()
    {
        m_thread->SetDisableUpdateList({"B"_s});
        request(FEATURES_UPDATE_ALL, {}, 13);
        QTRY_COMPARE(passesEnded(), 1);
        QCOMPARE(m_host->count("mode B"_s), 0);
        QVERIFY(m_description->item("B")->visible());
        m_thread->SetDisableUpdateList({});
        QVERIFY(m_thread->UpdateFeature(m_description->item("B"), Flags(13)));
        m_thread->SetDisableUpdateList({"B"_s}); // nothing to wait for
    }

    void disablingWaitsForTheFeatureUnderWay()
    {
        holdAt("B");
        request(FEATURES_UPDATE_ALL, {}, 13);
        m_reached.acquire();
        bool released = false;
        QTimer::singleShot(0, this, [&] {
            released = true;
            release();
        });
        m_thread->SetDisableUpdateList({"B"_s});
        QVERIFY(released);
    }

    // Requests come exactly while passes end; each must be carried out.
    void noRequestIsLostAtTheEndOfAPass()
    {
        for (int round = 1; round <= 60; ++round) {
            request(FEATURES_UPDATE_INVALIDATED, {"A"_s}, 13);
            if (round % 3 == 0)
                QThread::yieldCurrentThread();
            QTRY_VERIFY(m_host->count("get A"_s) >= 1);
            m_host->clearCalls();
            QTRY_VERIFY(!m_thread->isPassRunning());
        }
    }
};

OBFT_TEST_MAIN(TestQGetFeaturesThread)
#include "tst_qgetfeaturesthread.moc"
