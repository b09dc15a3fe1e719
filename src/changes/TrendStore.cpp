// SPDX-License-Identifier: Apache-2.0
#include "changes/TrendStore.h"

#include <QMetaType>

namespace {

constexpr qint64 kRecentMs = 60 * 1000;

} // namespace

bool TrendStore::isNumber(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::Float:
    case QMetaType::Double:
        return true;
    default:
        return false;
    }
}

TrendNumber TrendStore::number(const QVariant& value)
{
    const int type = value.userType();
    const bool isReal = type == QMetaType::Float || type == QMetaType::Double;
    return isReal ? TrendNumber(value.toDouble()) : TrendNumber(value.toLongLong());
}

void TrendStore::append(const QVector<ValueChange>& changes)
{
    for (const ValueChange& change : changes) {
        if (!isNumber(change.before) || !isNumber(change.now))
            continue;
        auto series = m_series.find(change.name);
        if (series == m_series.end()) {
            if (!makeRoom(change.name, change.steadyMs))
                continue;
            series = m_series.insert(change.name, TrendSeries());
            series->add(change.beforeSinceMs, number(change.before));
        }
        series->add(change.steadyMs, number(change.now));
    }
}

bool TrendStore::makeRoom(const QString& name, qint64 ms)
{
    const bool isShown = name == m_strShown;
    if (m_series.size() < kMaxSeries)
        return true;
    if (ms < m_fullUntilMs && !isShown)
        return false;
    auto oldest = m_series.end();
    for (auto each = m_series.begin(); each != m_series.end(); ++each) {
        if (each.key() != m_strShown &&
            (oldest == m_series.end() || each->lastMs() < oldest->lastMs()))
            oldest = each;
    }
    if (!isShown && ms - oldest->lastMs() < kRecentMs) {
        m_fullUntilMs = oldest->lastMs() + kRecentMs;
        return false;
    }
    m_series.erase(oldest);
    return true;
}

void TrendStore::clear()
{
    m_series.clear();
    m_fullUntilMs = 0;
}

TrendSeries TrendStore::series(const QString& name, const ValueWatch::Held& held) const
{
    const auto kept = m_series.constFind(name);
    if (kept != m_series.constEnd())
        return *kept;
    TrendSeries series;
    if (isNumber(held.value))
        series.add(held.sinceMs, number(held.value));
    return series;
}
