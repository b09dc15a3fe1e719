// SPDX-License-Identifier: Apache-2.0
// The feature tables of FeatureDescriptionIndex: pValues, pairs, selectors, locks, polling.
#include "model/FeatureDescriptionIndex.h"

#include <QDebug>

namespace {

constexpr int kPollingGridMs = 50;
constexpr int kNoCacheIntervalMs = 2000;
constexpr int kMaxPollingDepth = 500;

// What a look at one reference means for the walk along a polling chain.
enum class Walk { GoOn, LeaveNode, Found };

// Walks a polling chain depth-first in the order of the description: `look` judges each reference
// that does not lead on. Cycles are cut.
template <typename Look>
bool walkPollingChain(const FeatureNodeMap& nodes, const QString& name, QSet<QString>& visited,
                      const Look& look)
{
    if (visited.contains(name) || visited.size() >= kMaxPollingDepth)
        return false;
    visited.insert(name);
    const FeatureNodePtr node = nodes.node(name);
    if (!node)
        return false;
    for (const FeatureReference& reference : node->references) {
        const bool leadsOn = reference.kind == FeatureReference::PValue
                             || reference.kind == FeatureReference::PVariable;
        if (leadsOn) {
            if (walkPollingChain(nodes, reference.text, visited, look))
                return true;
            continue;
        }
        const Walk step = look(reference);
        if (step != Walk::GoOn)
            return step == Walk::Found;
    }
    return false;
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
        if (!GetPValueText(m_nodes.node(name), target)
            || !GetPValueText(m_nodes.node(target), second))
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
    int result = 0;
    QSet<QString> visited;
    walkPollingChain(m_nodes, name, visited, [&result](const FeatureReference& reference) {
        if (reference.kind != FeatureReference::PollingTime)
            return Walk::GoOn;
        result = reference.text.toInt();
        return result > 0 ? Walk::Found : Walk::LeaveNode;
    });
    return result;
}

bool FeatureDescriptionIndex::IsNoCacheFeature(const QString& name) const
{
    QSet<QString> visited;
    return walkPollingChain(m_nodes, name, visited, [](const FeatureReference& reference) {
        const bool noCache = reference.kind == FeatureReference::Cachable
                             && reference.text == QLatin1String("NoCache");
        return noCache ? Walk::Found : Walk::GoOn;
    });
}

void FeatureDescriptionIndex::GenerateFeatureNoCacheList()
{
    m_polling.clear();
    for (const QString& name : qAsConst(m_itemNames)) {
        const int time = GetPollingTime(name);
        if (time > 0)
            m_polling.insert(name, onPollingGrid(time));
        else if (IsNoCacheFeature(name))
            m_polling.insert(name, kNoCacheIntervalMs);
    }
}
