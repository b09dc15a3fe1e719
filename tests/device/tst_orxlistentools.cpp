// SPDX-License-Identifier: Apache-2.0
#include "device/IORXListen.h"
#include "device/ORXListenTools.h"
#include "support/TestMain.h"

#include <functional>
#include <map>

namespace {

class Listener : public IORXListen
{
public:
    Listener(QStringList& log, const QString& name)
        : m_log(log)
        , m_name(name)
    {
    }
    int notify(int code, void*) override
    {
        m_log.append("%1:%2"_s.arg(m_name).arg(code));
        if (onNotify)
            onNotify(code);
        return 0;
    }
    std::function<void(int)> onNotify;

private:
    QStringList& m_log;
    QString m_name;
};

} // namespace

class TestORXListenTools : public GuardedTest
{
    Q_OBJECT

protected:
    void finish() override { ORXListenTools::release(); }

private slots:
    void entries_data()
    {
        // Each entry is a listener's name and its level.
        const Rows<QStringList, QString, QString> row("added", "removed", "called");
        row("in the order of the levels", "low2 normal1 high0", "", "high:6 normal:6 low:6");
        row("once at each level", "a1 a1 a2", "", "a:6 a:6");
        row("no such level", "a3", "", "");
        row("removal takes the lowest level only", "a1 a0", "a", "a:6");
        row("removed with its last entry", "a1 b1", "a", "b:6");
        row("removal of an unknown one", "a1", "b", "a:6");
    }

    void entries()
    {
        const auto [added, removed] = fetchRow<QStringList, QString>();
        QStringList log;
        std::map<QString, Listener> listeners;
        const auto listener = [&](const QString& name) {
            return &listeners.try_emplace(name, log, name).first->second;
        };
        ORXListenTools* tools = ORXListenTools::instance();
        for (const QString& entry : qAsConst(added))
            tools->addListener(listener(entry.chopped(1)),
                               static_cast<ORXListenTools::PriorityLevel>(entry.right(1).toInt()));
        tools->removeListener(listener(removed));
        tools->notifyListeners(6, nullptr);
        QTEST(log.join(QLatin1Char(' ')), "called");
    }

    void listenersMayComeDuringANotification()
    {
        QStringList log;
        Listener first(log, "first"_s);
        Listener late(log, "late"_s);
        ORXListenTools* tools = ORXListenTools::instance();
        first.onNotify = [&](int) { tools->addListener(&late, ORXListenTools::PriorityNormal); };
        tools->addListener(&first, ORXListenTools::PriorityNormal);
        tools->notifyListeners(3, nullptr);
        QCOMPARE(log, QStringList({"first:3"_s, "late:3"_s}));
    }

    void innerNotificationsRunToTheirEnd()
    {
        QStringList log;
        Listener a(log, "a"_s);
        Listener b(log, "b"_s);
        ORXListenTools* tools = ORXListenTools::instance();
        a.onNotify = [&](int code) {
            if (code == 1)
                tools->notifyListeners(2, nullptr);
        };
        tools->addListener(&a, ORXListenTools::PriorityNormal);
        tools->addListener(&b, ORXListenTools::PriorityNormal);
        tools->notifyListeners(1, nullptr);
        QCOMPARE(log.join(QLatin1Char(' ')), "a:1 a:2 b:2 b:1"_s);
    }
};

OBFT_TEST_MAIN(TestORXListenTools)
#include "tst_orxlistentools.moc"
