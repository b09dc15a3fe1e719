// SPDX-License-Identifier: Apache-2.0
#include "StormCamera.h"
#include "StormUser.h"
#include "model/ORXPropertyTreeItem.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "support/GuiThreadReads.h"
#include "support/OpenedWindow.h"
#include "support/Periods.h"

#include <QElapsedTimer>
#include <QSet>

#include <vector>

namespace {

constexpr unsigned kSeeds[] = {1, 2, 3};
constexpr int kSeconds = 30; // of all seeds together
constexpr int kActionsOfAPhase = 40;
constexpr int kCalmMs = 8000 * OBFT_TEST_TIMEOUT_FACTOR;

} // namespace

// Everything that a user does, in random order and without pause, on a camera that is slow by turns
// and, in every second phase, faulty. When the storm has calmed down, everything has to be right.
// OBFT_STORM_SEED and OBFT_STORM_SECONDS choose another storm.
class TestStorm : public GuardedTest
{
    Q_OBJECT

protected:
    void finish() override
    {
        OB_FT_Release();
        FakeHost::uninstall();
        OBDeviceControl::SetUserLevel(1);
        ORXInterface::setLanguage("ENG"_s);
    }

private:
    void complain(const StormUser& user, const QString& what)
    {
        // One of a kind is enough.
        const QString kind = what.section(QLatin1Char(':'), 0, 0);
        if (!m_kinds.contains(kind)) {
            m_kinds.insert(kind);
            m_complaints.append("phase %1: "_s.arg(m_phase) + what + "\n    after "_s +
                                user.trace().join(", "_s));
        }
    }

    // The writes that were entered may have been refused or dropped; others may not have been made.
    void checkWrites(StormUser& user, FakeHost& host)
    {
        QStringList entered = user.takeEntered();
        const QStringList writes = host.writes();
        for (const QString& write : writes) {
            if (user.triggersByItself() && write.startsWith("set TriggerSoftware"_s))
                continue;
            const QString pressed = write.section(QLatin1Char(' '), 0, 1) + " ?"_s;
            if (!entered.removeOne(write) && !entered.removeOne(pressed))
                complain(user, "written but not entered: "_s + write);
        }
        host.clearCalls();
    }

    void checkGuiThread(const StormUser& user)
    {
        const QStringList reads = GuiThreadReads::take();
        for (const QString& read : reads)
            complain(user, "the window waits for the camera: "_s + read);
    }

    static QStringList wrongRows(const OpenedWindow& window, const StormCamera& camera)
    {
        QStringList wrong;
        const auto items = window.tree()->AllTreeItemsMap();
        for (ORXPropertyTreeItem* item : items) {
            if (item->childCount() == 0 && item->visible() && !camera.agrees(item))
                wrong.append(item->value()->nodeName(0));
        }
        return wrong;
    }

    // Everything that is shown is what the camera has.
    void checkValues(const OpenedWindow& window, StormUser& user, const StormCamera& camera)
    {
        (void)QTest::qWaitFor([&] { return wrongRows(window, camera).isEmpty(); }, kCalmMs);
        const QStringList wrong = wrongRows(window, camera);
        for (const QString& name : wrong) {
            complain(user, "shown value is not the camera's: "_s + name + " shows "_s +
                               window.item(name.toLatin1())->value()->value().toString());
        }
    }

    void checkSilence(const StormUser& user, FakeHost& host, const char* after)
    {
        const qint64 calls = host.callCount();
        QVERIFY(twentyPeriodsPass());
        if (host.callCount() != calls)
            complain(user, "calls of the host after %1"_s.arg(QLatin1String(after)));
    }

    void phase(const OpenedWindow& window, StormCamera& camera, StormUser& user,
               std::mt19937& random)
    {
        FakeHost& host = camera.host();
        const bool faulty = m_phase % 2 == 1;
        camera.setFaulty(faulty, random);
        camera.setMoving(true);
        for (int i = 0; i < kActionsOfAPhase; ++i)
            user.act(window);
        user.rest(window);
        camera.setMoving(false);
        if (faulty) {
            // What could not be read stays as it was until somebody asks again.
            camera.setFaulty(false, random);
            OB_FT_UpdateFeatures();
        }
        checkValues(window, user, camera);
        const auto boxes = window.widget()->findChildren<ZELCustomMessageBox*>();
        for (auto* box : boxes)
            box->close();
        OB_FT_Close();
        checkSilence(user, host, "OB_FT_Close");
        checkWrites(user, host);
        checkGuiThread(user);
    }

    void storm(unsigned seed, int milliseconds)
    {
        qInfo("storm with seed %u for %d ms", seed, milliseconds);
        MessageGuard::expectMessage("Read Feature Failed"_s);
        MessageGuard::expectMessage("0xFFFFFFF9"_s); // a refused command, in either language
        std::mt19937 random(seed);
        StormCamera camera(seed);
        StormUser user(random);
        QElapsedTimer timer;
        timer.start();
        m_phase = 0;
        while (timer.elapsed() < milliseconds) {
            OBDeviceControl::SetUserLevel(static_cast<int>(random() % 2));
            {
                const OpenedWindow window(camera.host(), StormCamera::description());
                camera.follow(window.tree()->descriptionIndex());
                window.widget()->activateWindow();
                // The window is opened anew after a few phases.
                for (int i = 0; i < 3 && timer.elapsed() < milliseconds; ++i, ++m_phase) {
                    phase(window, camera, user, random);
                    OB_FT_Start(nullptr, 0);
                }
                camera.host().clearCalls();
                user.takeEntered();
            }
            checkSilence(user, camera.host(), "OB_FT_Release");
            checkGuiThread(user);
        }
    }

    int m_phase = 0;
    QSet<QString> m_kinds;
    QStringList m_complaints;

private slots:
    void everythingIsRightWhenItCalmsDown_data()
    {
        const Rows<unsigned, int> row("seed", "milliseconds");
        const QByteArray wanted = qgetenv("OBFT_STORM_SEED");
        const QByteArray seconds = qgetenv("OBFT_STORM_SECONDS");
        const int all = (seconds.isEmpty() ? kSeconds : seconds.toInt()) * 1000;
        std::vector<unsigned> seeds(std::begin(kSeeds), std::end(kSeeds));
        if (!wanted.isEmpty())
            seeds = {wanted.toUInt()};
        for (const unsigned seed : seeds)
            row(qPrintable("seed %1"_s.arg(seed)), seed, all / static_cast<int>(seeds.size()));
    }

    void everythingIsRightWhenItCalmsDown()
    {
        const auto [seed, milliseconds] = fetchRow<unsigned, int>();
        m_kinds.clear();
        m_complaints.clear();
        GuiThreadReads::take();
        storm(seed, milliseconds);
        QVERIFY2(m_complaints.isEmpty(), qPrintable(m_complaints.join(QLatin1Char('\n'))));
    }
};

OBFT_TEST_MAIN(TestStorm)
#include "tst_storm.moc"
