// SPDX-License-Identifier: Apache-2.0
// The feature tables of FeatureDescriptionIndex: pValues, pairs, selectors, locks, polling.
#include "model/FeatureDescriptionIndex.h"
#include "model/PollingWalk.h"

#include <QDebug>

namespace {

constexpr int kPollingGridMs = 50;
constexpr int kNoCacheIntervalMs = 2000;

PollingWalk::Look pollingTimeIn(const FeatureReference& reference)
{
    if (reference.kind != FeatureReference::PollingTime)
        return {};
    return {true, qMax(0, reference.text.toInt())};
}

PollingWalk::Look noCacheIn(const FeatureReference& reference)
{
    const bool noCache =
        reference.kind == FeatureReference::Cachable && reference.text == QLatin1String("NoCache");
    return {noCache, noCache ? 1 : 0};
}

// t brought to the nearest multiple of 50 ms, half upwards, 50 at the least.
int onPollingGrid(int milliseconds)
{
    const qint64 steps = (static_cast<qint64>(milliseconds) + kPollingGridMs / 2) / kPollingGridMs;
    return static_cast<int>(qMax<qint64>(1, qMin<qint64>(steps, 1000000)) * kPollingGridMs);
}

} // namespace

void FeatureDescriptionIndex::GenerateFeaturePValueList()
{
    m_pValues.clear();
    m_namesByPValue.clear();
    for (const QString& name : qAsConst(m_itemNames)) {
        QString text;
        if (!GetPValueText(m_nodes.node(name), text))
            continue;
        m_pValues.insert(name, text);
        m_namesByPValue[text].append(name);
    }
}

void FeatureDescriptionIndex::GenerateFeaturePairList()
{
    m_pairs.clear();
    for (const QString& name : qAsConst(m_itemNames)) {
        QString target;
        QString second;
        if (!GetPValueText(m_nodes.node(name), target) ||
            !GetPValueText(m_nodes.node(target), second))
            continue;
        if (second == name || !m_itemNameSet.contains(second))
            continue;
        m_pairs.insert(name, second);
        m_pairs.insert(second, name);
    }
}

bool FeatureDescriptionIndex::GetFeatureInPair(const QString& name, QString& partner) const
{
    const auto found = m_pairs.constFind(name);
    if (found == m_pairs.constEnd())
        return false;
    partner = *found;
    return true;
}

void FeatureDescriptionIndex::GenerateFeaturePSelectedList(const QString& name,
                                                           QList<QString>& list) const
{
    const FeatureNodePtr node = m_nodes.node(name);
    list = node ? node->texts(FeatureReference::PSelected) : QStringList();
}

void FeatureDescriptionIndex::GeneratePSelectedList()
{
    m_selected.clear();
    for (const QString& name : qAsConst(m_itemNames)) {
        QList<QString> list;
        GenerateFeaturePSelectedList(name, list);
        if (!list.isEmpty())
            m_selected.insert(name, list);
    }
}

bool FeatureDescriptionIndex::GetFeaturePSelectedList(const QString& name,
                                                      QList<QString>& list) const
{
    const auto found = m_selected.constFind(name);
    if (found == m_selected.constEnd())
        return false;
    list = *found;
    return true;
}

void FeatureDescriptionIndex::GenerateFeaturesTLParamsLocked()
{
    m_lockable.clear();
    for (const QString& name : qAsConst(m_itemNames)) {
        QString text;
        if (GetPIsLockedText(m_nodes.node(name), text))
            m_lockable.append(name);
    }
}

int FeatureDescriptionIndex::GetPollingTime(const QString& name) const
{
    return PollingWalk(m_nodes, pollingTimeIn).follow(name);
}

bool FeatureDescriptionIndex::IsNoCacheFeature(const QString& name) const
{
    return PollingWalk(m_nodes, noCacheIn).follow(name) > 0;
}

void FeatureDescriptionIndex::GenerateFeatureNoCacheList()
{
    m_polling.clear();
    PollingWalk times(m_nodes, pollingTimeIn);
    PollingWalk caching(m_nodes, noCacheIn);
    for (const QString& name : qAsConst(m_itemNames)) {
        const int time = times.follow(name);
        if (time > 0)
            m_polling.insert(name, onPollingGrid(time));
        else if (caching.follow(name) > 0)
            m_polling.insert(name, kNoCacheIntervalMs);
    }
    const QString& circle = times.circleAt();
    if (!circle.isNull())
        qCritical().noquote() << QStringLiteral(
                                     "Feature description: node %1 refers to itself in a circle")
                                     .arg(circle);
}
