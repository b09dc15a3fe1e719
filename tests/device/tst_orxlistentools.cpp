// SPDX-License-Identifier: Apache-2.0
#include "device/IORXListen.h"
#include "device/ORXListenTools.h"
#include "support/TestMain.h"

#include <functional>

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
    void levelsAreCalledInOrder()
    {
        QStringList log;
        Listener low(log, "low"_s);
        Listener high(log, "high"_s);
        Listener normal(log, "normal"_s);
        ORXListenTools* tools = ORXListenTools::instance();
        tools->addListener(&low, ORXListenTools::PriorityLow);
        tools->addListener(&normal, ORXListenTools::PriorityNormal);
        tools->addListener(&high, ORXListenTools::PriorityHigh);
        tools->addListener(&high, static_cast<ORXListenTools::PriorityLevel>(3)); // ignored
        tools->notifyListeners(6, nullptr);
        QCOMPARE(log, QStringList({"high:6"_s, "normal:6"_s, "low:6"_s}));
    }

    void duplicatesCountPerLevel()
    {
        QStringList log;
        Listener listener(log, "a"_s);
        ORXListenTools* tools = ORXListenTools::instance();
        tools->addListener(&listener, ORXListenTools::PriorityNormal);
        tools->addListener(&listener, ORXListenTools::PriorityNormal);
        tools->addListener(&listener, ORXListenTools::PriorityLow);
        tools->notifyListeners(1, nullptr);
        QCOMPARE(log.size(), 2);
    }

    void removalTakesTheLowestLevelOnly()
    {
        QStringList log;
        Listener listener(log, "a"_s);
        Listener unknown(log, "b"_s);
        ORXListenTools* tools = ORXListenTools::instance();
        tools->addListener(&listener, ORXListenTools::PriorityHigh);
        tools->addListener(&listener, ORXListenTools::PriorityNormal);
        tools->removeListener(&unknown);
        tools->removeListener(&listener);
        tools->notifyListeners(1, nullptr);
        QCOMPARE(log.size(), 1);
        tools->removeListener(&listener);
        tools->notifyListeners(1, nullptr);
        QCOMPARE(log.size(), 1);
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
