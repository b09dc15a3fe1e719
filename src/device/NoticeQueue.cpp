// SPDX-License-Identifier: Apache-2.0
#include "device/NoticeQueue.h"

#include <QElapsedTimer>
#include <QThread>

#include <algorithm>
#include <utility>

NoticeQueue::NoticeQueue()
{
    connect(this, &NoticeQueue::SigAwake, this, &NoticeQueue::takeTurns, Qt::QueuedConnection);
}

std::shared_ptr<NoticeQueue> NoticeQueue::shared()
{
    static std::weak_ptr<NoticeQueue> standing;
    std::shared_ptr<NoticeQueue> queue = standing.lock();
    if (!queue) {
        queue.reset(new NoticeQueue);
        standing = queue;
    }
    return queue;
}

bool NoticeQueue::isOnItsThread() const
{
    return QThread::currentThread() == thread();
}

void NoticeQueue::add(const void* owner, Notice notice)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_waiting.push_back({owner, std::move(notice)});
        if (std::exchange(m_bAwake, true))
            return;
    }
    emit SigAwake(QPrivateSignal());
}

bool NoticeQueue::addBehindWaiting(const void* owner, const Notice& notice)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_waiting.empty())
        return false;
    m_waiting.push_back({owner, notice});
    return true;
}

void NoticeQueue::drop(const void* owner)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_waiting.erase(std::remove_if(m_waiting.begin(), m_waiting.end(),
                                   [owner](const Waiting& each) { return each.owner == owner; }),
                    m_waiting.end());
}

// Turns are a timer's: Qt goes on with posted events for as long as new ones come, and paints
// nothing meanwhile.
void NoticeQueue::takeTurns()
{
    m_turns.start(0, this);
}

void NoticeQueue::timerEvent(QTimerEvent*)
{
    // A notice may be the end of all who have something to tell.
    const std::shared_ptr<NoticeQueue> self = shared_from_this();
    // A timer does not fire inside itself; an event loop that a notice opens goes on by a new one.
    takeTurns();
    QElapsedTimer turn;
    turn.start();
    do {
        const Notice notice = takeFirst();
        if (!notice) {
            m_turns.stop();
            return;
        }
        notice();
    } while (!turn.hasExpired(kTurnMs));
}

// The notice that waits the longest; none, and the queue sleeps, when none does.
NoticeQueue::Notice NoticeQueue::takeFirst()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_waiting.empty()) {
        m_bAwake = false;
        return nullptr;
    }
    const Notice notice = std::move(m_waiting.front().notice);
    m_waiting.pop_front();
    return notice;
}
