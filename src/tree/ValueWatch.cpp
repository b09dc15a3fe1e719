// SPDX-License-Identifier: Apache-2.0
#include "tree/ValueWatch.h"

#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeItem.h"

#include <QDateTime>

#include <chrono>
#include <utility>

namespace {

qint64 monotonicMs()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

} // namespace

ValueWatch::ValueWatch(QObject* parent)
    : QObject(parent)
    , m_clock(&monotonicMs)
{
    connect(this, &ValueWatch::SigRead, this, &ValueWatch::takeReads, Qt::QueuedConnection);
}

ValueWatch::~ValueWatch()
{
    forget();
}

void ValueWatch::watch(const QVector<ORXPropertyTreeItem*>& items, const IsPolled& isPolled)
{
    forget();
    m_isPolled = isPolled;
    for (ORXPropertyTreeItem* item : items) {
        m_known.insert(item, {item->value()->nodeName(0), {}, {}});
        item->registerView(this);
    }
}

void ValueWatch::forget()
{
    for (auto item = m_known.keyBegin(); item != m_known.keyEnd(); ++item)
        (*item)->removeView(this);
    m_known.clear();
    m_causes.clear();
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_reads.clear();
}

void ValueWatch::noteWritten(const QString& name, const QStringList& invalidated)
{
    for (const QString& each : invalidated)
        m_causes.insert(each, name);
    m_causes.insert(name, name);
}

// The end that is told may be that of the pass before: what the last pass has read waits behind it.
void ValueWatch::noteRereadEnded()
{
    takeReads();
    m_causes.clear();
}

void ValueWatch::noteExecuted(const QString& command)
{
    ValueChange change;
    change.name = command;
    change.cause = ValueChange::Cause::Executed;
    change.when = QDateTime::currentMSecsSinceEpoch();
    change.steadyMs = steadyMs();
    emit SigChanged({change});
}

ValueWatch::Held ValueWatch::held(ORXPropertyTreeItem* item) const
{
    const auto known = m_known.constFind(item);
    return known == m_known.constEnd() ? Held() : known->held;
}

qint64 ValueWatch::steadyMs() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_clock();
}

void ValueWatch::setClock(const Clock& clock)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_clock = clock;
}

void ValueWatch::itemValueChanged(qint64, ORXPropertyTreeItem* item, int column, bool)
{
    // What the user has written is told as the camera has taken it, when it was read back.
    constexpr int kAfterWrite = 2;
    if (column == kAfterWrite || !item->wasRead())
        return;
    QVariant value = item->value()->value();
    bool first = false;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        first = m_reads.isEmpty();
        m_reads.append({item, std::move(value), m_clock()});
    }
    if (first)
        emit SigRead(QPrivateSignal());
}

bool ValueWatch::isPolled(Known& known) const
{
    if (!known.isPolled)
        known.isPolled = m_isPolled && m_isPolled(known.name);
    return *known.isPolled;
}

void ValueWatch::takeReads()
{
    QVector<Read> reads;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        reads.swap(m_reads);
    }
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    QVector<ValueChange> changes;
    changes.reserve(reads.size());
    for (Read& read : reads) {
        const auto known = m_known.find(read.item);
        if (known == m_known.end() || known->held.value == read.value)
            continue;
        Held before = std::exchange(known->held, {read.value, read.steadyMs});
        if (!before.value.isValid())
            continue;
        ValueChange change;
        change.name = known->name;
        change.before = std::move(before.value);
        change.beforeSinceMs = before.sinceMs;
        change.steadyMs = read.steadyMs;
        change.item = read.item;
        change.now = std::move(read.value);
        if (!m_causes.isEmpty())
            change.causedBy = m_causes.value(known->name);
        change.cause = change.causedBy.isEmpty()        ? ValueChange::Cause::Camera
                       : change.causedBy == known->name ? ValueChange::Cause::Edited
                                                        : ValueChange::Cause::Follows;
        change.restless = change.cause == ValueChange::Cause::Camera && isPolled(*known);
        change.when = now;
        changes.append(std::move(change));
    }
    if (!changes.isEmpty())
        emit SigChanged(changes);
}
