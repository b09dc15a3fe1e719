// SPDX-License-Identifier: Apache-2.0
#include "model/FeatureDescriptionIndex.h"

#include "device/LoadingLane.h"
#include "model/FeaturePolling.h"

#include <utility>

namespace {

// Features that change together although the description does not say so.
const std::pair<QLatin1String, QLatin1String> kCoupledFeatures[] = {
    {QLatin1String("AcquisitionStart"), QLatin1String("AcquisitionStop")},
    {QLatin1String("DeviceStreamChannelPacketSize"), QLatin1String("GevSCPSPacketSize")},
};

} // namespace

void FeatureDescriptionIndex::GenerateDomElementMap(pugi::xml_node root)
{
    GenerateDomElementMap(NodesReadAhead::Nodes{FeatureNodeMap(root), {}});
}

void FeatureDescriptionIndex::GenerateDomElementMap(const NodesReadAhead::Nodes& read)
{
    m_nodes = read.nodes;
    m_invalidation = read.invalidation;
}

QString FeatureDescriptionIndex::GetValueAccessMode(const FeatureNodePtr& node)
{
    return node ? node->accessMode : QString();
}

bool FeatureDescriptionIndex::GetPValueText(const FeatureNodePtr& node, QString& text)
{
    const QString found = node ? node->firstText(FeatureReference::PValue) : QString();
    if (found.isNull())
        return false;
    text = found;
    return true;
}

bool FeatureDescriptionIndex::GetPIsLockedText(const FeatureNodePtr& node, QString& text)
{
    const QString found = node ? node->firstText(FeatureReference::PIsLocked) : QString();
    if (found.isNull())
        return false;
    text = found;
    return true;
}

void FeatureDescriptionIndex::setItemNames(const QStringList& names)
{
    m_itemNames = names;
    m_itemNameSet = QSet<QString>(names.cbegin(), names.cend());
}

// Invalidators ------------------------------------------------------------------------------------

void FeatureDescriptionIndex::ResetFeaturesInvalidatorMap()
{
    if (m_invalidation.valid())
        return;
    m_invalidation =
        LoadingLane::run([nodes = m_nodes] { return InvalidationGraph(nodes); }).share();
}

const InvalidationGraph& FeatureDescriptionIndex::invalidation() const
{
    static const InvalidationGraph empty;
    return m_invalidation.valid() ? m_invalidation.get() : empty;
}

QList<QString> FeatureDescriptionIndex::GetFeatureInvalidatorList(const QString& name) const
{
    QStringList changed{name};
    // A feature stands behind the node that holds its value, too.
    const auto pValue = m_pValues.constFind(name);
    if (pValue != m_pValues.constEnd())
        changed.append(*pValue);
    QSet<QString> result = invalidation().staleAfter(changed);

    QString partner;
    const QSet<QString> collected = result;
    for (const QString& feature : collected) {
        if (GetFeatureInPair(feature, partner))
            result.insert(partner);
    }
    if (GetFeatureInPair(name, partner))
        result.insert(partner);
    result.unite(invalidation().sharersOfVariables(name));
    for (const QString& selected : m_selected.value(name))
        result.insert(selected);
    for (const auto& coupled : kCoupledFeatures) {
        if (name == coupled.first || name == coupled.second) {
            result.insert(coupled.first);
            result.insert(coupled.second);
        }
    }
    result.insert(name);
    return result.values();
}

bool FeatureDescriptionIndex::IsFeatureInQList(const QString& name,
                                               const QList<QString>& list) const
{
    if (list.contains(name))
        return true;
    const auto pValue = m_pValues.constFind(name);
    return pValue != m_pValues.constEnd() && list.contains(*pValue);
}

QList<QString> FeatureDescriptionIndex::GetFeaturesNameByPValue(const QString& value) const
{
    return m_namesByPValue.value(value);
}

QList<QString> FeatureDescriptionIndex::GetFeaturePVariableList(const QString& name) const
{
    return invalidation().variablesOf(name);
}

QList<QString> FeatureDescriptionIndex::GetFeaturesHaveSamePVariable(const QString& name) const
{
    return invalidation().sharersOfVariables(name).values();
}

// Pairs and selectors -----------------------------------------------------------------------------

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

// Locks and polling -------------------------------------------------------------------------------

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
    return FeaturePolling::pollingTime(m_nodes, name);
}

bool FeatureDescriptionIndex::IsNoCacheFeature(const QString& name) const
{
    return FeaturePolling::isNoCache(m_nodes, name);
}

void FeatureDescriptionIndex::GenerateFeatureNoCacheList()
{
    m_polling = LoadingLane::run([nodes = m_nodes, names = m_itemNames] {
                    return FeaturePolling::intervals(nodes, names);
                }).share();
}

const QMap<QString, int>& FeatureDescriptionIndex::pollingMap() const
{
    static const QMap<QString, int> empty;
    return m_polling.valid() ? m_polling.get() : empty;
}
