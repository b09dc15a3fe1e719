// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QBasicTimer>
#include <QObject>

#include <deque>
#include <functional>
#include <memory>
#include <mutex>

// The queue behind all GuiNotices of the process: lives on the GUI thread as long as one of them
// does. `owner` is the one that gives the notice. The operations are described there.
class NoticeQueue : public QObject, public std::enable_shared_from_this<NoticeQueue>
{
    Q_OBJECT
public:
    using Notice = std::function<void()>;

    // After a turn of this length, in milliseconds, the event loop has its way.
    static constexpr int kTurnMs = 4;

    // The one that stands, or a new one. GUI thread.
    static std::shared_ptr<NoticeQueue> shared();

    // Whether the caller is on the GUI thread, also after the application has gone.
    bool isOnItsThread() const;
    void add(const void* owner, Notice notice);
    // False, and nothing is added, when no notice waits.
    bool addBehindWaiting(const void* owner, const Notice& notice);
    void drop(const void* owner);

signals:
    // The first notice waits. Emitted on the thread that gives it.
    void SigAwake(QPrivateSignal);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    struct Waiting
    {
        const void* owner;
        Notice notice;
    };

    NoticeQueue();

    void takeTurns();
    Notice takeFirst();

    std::mutex m_mutex;
    std::deque<Waiting> m_waiting; // guarded by m_mutex
    bool m_bAwake = false;         // turns go on or were asked for; guarded by m_mutex
    QBasicTimer m_turns;
};
