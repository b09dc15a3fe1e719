// SPDX-License-Identifier: Apache-2.0
// In which order passes read, what a request leaves to be read again, and what of a camera that
// fails in the middle stays.
#include "device/OBDeviceControl.h"
#include "model/CTreeIntergerItemValue.h"
#include "reading/FeatureMutex.h"
#include "reading/IFeatureReadingOwner.h"
#include "reading/QGetFeaturesThread.h"
#include "support/DescriptionBuilder.h"
#include "support/FakeHost.h"
#include "support/LoadedDescription.h"
#include "support/TestMain.h"

using namespace DescriptionBuilder;
using Flags = QGetFeaturesThread::UpdateFlags;

namespace {

const QStringList kNames = words("A B C D E F G H");

class Owner : public IFeatureReadingOwner
{
public:
    FeatureMutex* GetFeatureMutex() override { return &mutex; }
    void EmitPollingFeatureChanged(const QString&) override {}
    FeatureMutex mutex;
};

QByteArray description()
{
    QString all = category("Root"_s, kNames);
    for (const QString& name : kNames)
        all += node("Integer"_s, name);
    return wrap(all);
}

} // namespace

class TestReadingOrder : public GuardedTest
{
    Q_OBJECT

protected:
    void prepare() override
    {
        m_host = std::make_unique<FakeHost>();
        for (int i = 0; i < kNames.size(); ++i)
            m_host->set(kNames.at(i), FakeHost::integerFeature(i));
        m_host->install();
        m_host->clearCalls();
        m_thread = std::make_unique<QGetFeaturesThread>(&m_owner, nullptr);
        m_description = std::make_unique<LoadedDescription>(description());
        m_thread->SetInitThreadInfo(1, false, m_description->index.nodes(),
                                    m_description->builder.AllTreeItemsMap(), {}, {});
    }
    void finish() override
    {
        m_host->pace().openAllGates();
        m_thread.reset();
        m_description.reset();
        FakeHost::uninstall();
        OBDeviceControl::SetUserLevel(1);
    }

private:
    void request(int flags)
    {
        m_thread->SetThreadInfo(FEATURES_UPDATE_ALL, {}, Flags(flags));
        m_thread->startPass();
    }
    // Asks for a pass and holds it at the feature.
    void requestAndHold(int flags, const QString& name)
    {
        m_host->pace().closeGate(name);
        request(flags);
        QTRY_COMPARE(m_host->pace().waitingAt(name), 1);
    }
    // The pass goes on and is held again, at another one.
    void goOnTo(const QString& held, const QString& next)
    {
        m_host->pace().closeGate(next);
        m_host->pace().openGate(held);
        QTRY_COMPARE(m_host->pace().waitingAt(next), 1);
    }
    void end()
    {
        m_host->pace().openAllGates();
        m_thread->waitUntilIdle();
    }
    // The features in the order in which the host was asked about them.
    QString order() const
    {
        QString names;
        for (const QString& call : m_host->calls()) {
            const QString name = call.section(QLatin1Char(' '), 1);
            if (call.startsWith("mode "_s) && kNames.contains(name))
                names += name;
        }
        return names;
    }
    QStringList sortedCalls() const
    {
        QStringList calls = m_host->calls();
        calls.sort();
        return calls;
    }
    ORXPropertyTreeItem* item(const char* name) const { return m_description->item(name); }

    std::unique_ptr<FakeHost> m_host;
    Owner m_owner;
    std::unique_ptr<LoadedDescription> m_description;
    std::unique_ptr<QGetFeaturesThread> m_thread;

private slots:
    // What the user sees now comes next, in its order, as far as it was not read yet; what he saw
    // before waits for its place. Every feature is asked for the same as ever, once.
    void whatIsInSightComesFirst()
    {
        request(13);
        end();
        QCOMPARE(order(), "ABCDEFGH"_s);
        const QStringList calls = sortedCalls();
        m_host->clearCalls();
        m_thread->setInSight(words("C Nobody B"));
        requestAndHold(13, "B"_s);
        m_thread->setInSight(words("C G E"));
        goOnTo("B"_s, "G"_s);
        m_thread->setInSight(words("H"));
        end();
        QCOMPARE(order(), "CBGHADEF"_s);
        QCOMPARE(sortedCalls(), calls);
        // The next pass begins with it, too.
        m_host->clearCalls();
        request(13);
        end();
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
        QFETCH(int, running);
        QFETCH(int, wanted);
        if (running == 4) {
            // Rows that show already: the level changes nothing about them.
            request(13);
            end();
            m_host->clearCalls();
        }
        requestAndHold(running, "C"_s);
        request(wanted);
        end();
        QTEST(order(), "asked");
        QString read;
        for (const QString& call : m_host->calls().filter("get "_s))
            read += call.mid(4);
        QTEST(read, "read");
    }

    // The later the last request, the more is read again, in one more pass.
    void requestsDuringAPassAreOne()
    {
        requestAndHold(14, "B"_s);
        request(14);
        goOnTo("B"_s, "D"_s);
        request(14);
        request(14);
        end();
        QCOMPARE(order(), "ABCDEFGHABCD"_s);
    }

    // What waits takes over what the next request refreshes besides.
    void levelAndRefreshDuringAPassAreOne()
    {
        requestAndHold(14, "C"_s);
        request(4);
        request(14);
        end();
        QCOMPARE(order(), "ABCDEFGHABC"_s);
        QCOMPARE(m_host->count("get C"_s), 2);
    }

    // A request that comes late in what another left to be read again.
    void requestDuringTheRest()
    {
        requestAndHold(14, "F"_s);
        request(14);
        m_host->pace().closeGate("B"_s);
        m_host->pace().openGate("F"_s);
        QTRY_COMPARE(m_host->pace().waitingAt("B"_s), 1);
        QCOMPARE(m_thread->progress().total, 6);
        request(14);
        end();
        QCOMPARE(order(), "ABCDEFGHABCDEFABCDEFGH"_s);
    }

    // A level chosen while a pass runs holds for what it passed, and for what comes.
    void levelDuringAPass()
    {
        const QByteArray xml = wrap(category("Root"_s, words("A B C")) +
                                    node("Integer"_s, "A"_s, child("Visibility"_s, "Guru"_s)) +
                                    node("Integer"_s, "B"_s) +
                                    node("Integer"_s, "C"_s, child("Visibility"_s, "Guru"_s)));
        m_description = std::make_unique<LoadedDescription>(xml);
        m_thread->SetInitThreadInfo(1, false, m_description->index.nodes(),
                                    m_description->builder.AllTreeItemsMap(), {}, {});
        OBDeviceControl::SetUserLevel(0);
        requestAndHold(13, "B"_s);
        OBDeviceControl::SetUserLevel(1);
        request(4);
        end();
        QVERIFY(!item("A")->visible() && item("B")->visible() && !item("C")->visible());
    }

    // A stop in the middle of a feature's access mode stores nothing of its answer.
    void stoppedQuestionIsNoAnswer()
    {
        request(13);
        end();
        QVERIFY(item("C")->visible());
        FakeHost::Feature gone = FakeHost::integerFeature(7);
        gone.mode = OB_FT_ACCESS_NOT_AVAILABLE;
        m_host->set("C"_s, gone);
        requestAndHold(14, "C"_s);
        m_thread->requestStop();
        end();
        QVERIFY(item("C")->visible());
        m_thread->StopThread(true, true);
        m_thread->StopThread(false, true);
        request(14);
        end();
        QVERIFY(!item("C")->visible());
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
        request(13);
        end();
        m_host->clearCalls();
        m_host->faults().failAfter(calls, -5);
        request(13);
        end();
        QCOMPARE(order(), "ABCDEFGH"_s);
        for (int i = 0; i < kNames.size(); ++i) {
            const auto* value = dynamic_cast<const CTreeIntergerItemValue*>(
                item(kNames.at(i).toLatin1().constData())->value());
            QCOMPARE(value->numbers().m_nValue, qint64(i));
        }
        m_host->faults().failAfter(0, 0);
        request(13);
        end();
        for (const QString& name : kNames)
            QVERIFY(item(name.toLatin1().constData())->visible());
    }

    // The host says that a feature exists and then that it does not, or the other way round: what
    // it said last about its access counts, and a value that was never told is not claimed.
    void answersThatContradictEachOther()
    {
        m_host->faults().takeTurns("B"_s, {OB_FT_ACCESS_READ_WRITE, OB_FT_ACCESS_NOT_IMPLEMENTED});
        m_host->fail("B"_s, -1);
        for (const bool exists : {true, false, true, false}) {
            request(13);
            end();
            QCOMPARE(item("B")->visible(), exists);
            QCOMPARE(int(item("B")->value()->lastRead()), int(CTreeItemValue::LastRead::Failed));
        }
        QVERIFY(item("C")->visible());
        m_host->fail("B"_s, 0);
        request(13);
        end();
        QVERIFY(item("B")->visible());
        QCOMPARE(int(item("B")->value()->lastRead()), int(CTreeItemValue::LastRead::Done));
    }
};

OBFT_TEST_MAIN(TestReadingOrder)
#include "tst_readingorder.moc"
