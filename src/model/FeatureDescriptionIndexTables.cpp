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
// that does not lead on. Cycles are cut; the first node that closes one is kept in `cycleAt`.
template <typename Look>
class PollingWalk
{
public:
    PollingWalk(const FeatureNodeMap& nodes, QString& cycleAt, const Look& look)
        : m_nodes(nodes)
        , m_cycleAt(cycleAt)
        , m_look(look)
    {
    }

    bool follow(const QString& name)
    {
        const auto seen = m_onPath.constFind(name);
        if (seen != m_onPath.constEnd() && *seen && m_cycleAt.isEmpty())
            m_cycleAt = name;
        if (seen != m_onPath.constEnd() || m_onPath.size() >= kMaxPollingDepth)
            return false;
        m_onPath.insert(name, true);
        const FeatureNodePtr node = m_nodes.node(name);
        const bool found = node && lookAt(*node);
        m_onPath.insert(name, false);
        return found;
    }

private:
    bool lookAt(const FeatureNode& node)
    {
        for (const FeatureReference& reference : node.references) {
            const bool leadsOn = reference.kind == FeatureReference::PValue
                                 || reference.kind == FeatureReference::PVariable;
            if (leadsOn) {
                if (follow(reference.text))
                    return true;
                continue;
            }
            const Walk step = m_look(reference);
            if (step != Walk::GoOn)
                return step == Walk::Found;
        }
        return false;
    }

    const FeatureNodeMap& m_nodes;
    QString& m_cycleAt;
    const Look& m_look;
    QHash<QString, bool> m_onPath; // every node met: whether the walk is still below it
};

int pollingTime(const FeatureNodeMap& nodes, const QString& name, QString& cycleAt)
{
    int result = 0;
    const auto look = [&result](const FeatureReference& reference) {
        if (reference.kind != FeatureReference::PollingTime)
            return Walk::GoOn;
        result = reference.text.toInt();
        return result > 0 ? Walk::Found : Walk::LeaveNode;
    };
    return PollingWalk(nodes, cycleAt, look).follow(name) ? result : 0;
}

bool isNoCache(const FeatureNodeMap& nodes, const QString& name, QString& cycleAt)
{
    const auto look = [](const FeatureReference& reference) {
        const bool noCache = reference.kind == FeatureReference::Cachable
                             && reference.text == QLatin1String("NoCache");
        return noCache ? Walk::Found : Walk::GoOn;
    };
    return PollingWalk(nodes, cycleAt, look).follow(name);
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
    QString cycleAt;
    return pollingTime(m_nodes, name, cycleAt);
}

bool FeatureDescriptionIndex::IsNoCacheFeature(const QString& name) const
{
    QString cycleAt;
    return isNoCache(m_nodes, name, cycleAt);
}

void FeatureDescriptionIndex::GenerateFeatureNoCacheList()
{
    m_polling.clear();
    QString cycleAt;
    for (const QString& name : qAsConst(m_itemNames)) {
        const int time = pollingTime(m_nodes, name, cycleAt);
        if (time > 0)
            m_polling.insert(name, onPollingGrid(time));
        else if (isNoCache(m_nodes, name, cycleAt))
            m_polling.insert(name, kNoCacheIntervalMs);
    }
    if (!cycleAt.isEmpty())
        qCritical().noquote()
            << QStringLiteral("Feature description: node %1 refers to itself in a circle")
                   .arg(cycleAt);
}
