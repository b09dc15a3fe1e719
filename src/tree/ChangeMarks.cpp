// SPDX-License-Identifier: Apache-2.0
#include "tree/ChangeMarks.h"

#include "model/ORXPropertyTreeItem.h"
#include "tree/ValueWatch.h"

namespace {

constexpr int kTickMs = 100;
constexpr int kWholeMs = 1000;

} // namespace

ChangeMarks::ChangeMarks(ValueWatch* watch)
    : m_pWatch(watch)
{
    m_timer.setInterval(kTickMs);
    connect(&m_timer, &QTimer::timeout, this, &ChangeMarks::fade);
    connect(watch, &ValueWatch::SigChanged, this, &ChangeMarks::mark);
}

bool ChangeMarks::isMarked(const ValueChange& change)
{
    return change.item && (change.cause == ValueChange::Cause::Camera ||
                           change.cause == ValueChange::Cause::Follows);
}

void ChangeMarks::mark(const QVector<ValueChange>& changes)
{
    const qint64 now = m_pWatch->steadyMs();
    bool any = false;
    for (const ValueChange& change : changes) {
        if (!isMarked(change))
            continue;
        m_marks.insert(change.item, now);
        any = true;
    }
    if (!any)
        return;
    if (!m_timer.isActive())
        m_timer.start();
    emit SigFaded();
}

// What has ended is painted once more, without its mark.
void ChangeMarks::fade()
{
    emit SigFaded();
    const qint64 now = m_pWatch->steadyMs();
    for (auto mark = m_marks.begin(); mark != m_marks.end();) {
        if (now - *mark >= kFadeMs)
            mark = m_marks.erase(mark);
        else
            ++mark;
    }
    if (m_marks.isEmpty())
        m_timer.stop();
}

const qint64* ChangeMarks::markOf(const ORXPropertyTreeItem* item) const
{
    if (m_marks.isEmpty())
        return nullptr;
    auto mark = m_marks.constFind(item);
    if (mark == m_marks.constEnd())
        mark = m_marks.constFind(item->mappingItem());
    return mark == m_marks.constEnd() ? nullptr : &mark.value();
}

qreal ChangeMarks::strength(const ORXPropertyTreeItem* item) const
{
    const qint64* since = markOf(item);
    if (!since)
        return 0;
    const qint64 left = kFadeMs - (m_pWatch->steadyMs() - *since);
    return qBound(0.0, qreal(left) / (kFadeMs - kWholeMs), 1.0);
}

void ChangeMarks::clear()
{
    emit SigCleared();
    if (m_marks.isEmpty())
        return;
    // The rows are painted without their marks.
    for (qint64& since : m_marks)
        since = m_pWatch->steadyMs() - kFadeMs;
    emit SigFaded();
    m_marks.clear();
    m_timer.stop();
}
