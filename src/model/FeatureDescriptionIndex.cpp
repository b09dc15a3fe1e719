// SPDX-License-Identifier: Apache-2.0
#include "model/FeatureDescriptionIndex.h"

#include <QDebug>
#include <QDomElement>

#include <utility>

namespace {

// Features that change together although the description does not say so.
const std::pair<QLatin1String, QLatin1String> kCoupledFeatures[] = {
    {QLatin1String("AcquisitionStart"), QLatin1String("AcquisitionStop")},
    {QLatin1String("DeviceStreamChannelPacketSize"), QLatin1String("GevSCPSPacketSize")},
};

} // namespace

void FeatureDescriptionIndex::GenerateDomElementMap(const QDomElement& root)
{
    m_nodes = FeatureNodeMap(root);
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
    m_invalidation = InvalidationGraph(m_nodes);
}

QList<QString> FeatureDescriptionIndex::GetFeatureInvalidatorList(const QString& name) const
{
    QStringList changed{name};
    // A feature stands behind the node that holds its value, too.
    const auto pValue = m_pValues.constFind(name);
    if (pValue != m_pValues.constEnd())
        changed.append(*pValue);
    QSet<QString> result = m_invalidation.staleAfter(changed);

    QString partner;
    const QSet<QString> collected = result;
    for (const QString& feature : collected) {
        if (GetFeatureInPair(feature, partner))
            result.insert(partner);
    }
    if (GetFeatureInPair(name, partner))
        result.insert(partner);
    result.unite(m_invalidation.sharersOfVariables(name));
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
    return m_invalidation.variablesOf(name);
}

QList<QString> FeatureDescriptionIndex::GetFeaturesHaveSamePVariable(const QString& name) const
{
    return m_invalidation.sharersOfVariables(name).values();
}
