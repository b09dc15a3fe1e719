// SPDX-License-Identifier: Apache-2.0
#include "model/FeatureDescriptionIndex.h"

#include <QDebug>
#include <QDomElement>

#include <utility>

namespace {

// A chain of references longer than this is an error of the description; the walk is cut there.
constexpr int kMaxWalkedNodes = 2000;

// References of a feature, or of a node on the way, that lead on to another node.
bool leadsOn(FeatureReference::Kind kind)
{
    switch (kind) {
    case FeatureReference::PValue:
    case FeatureReference::PMin:
    case FeatureReference::PMax:
    case FeatureReference::PInc:
    case FeatureReference::PIsLocked:
    case FeatureReference::PIsImplemented:
    case FeatureReference::PIsAvailable:
        return true;
    default:
        return false;
    }
}

void appendOnce(QHash<QString, QStringList>& map, const QString& key, const QString& value)
{
    QStringList& list = map[key];
    // Values arrive grouped, so a repeat is always the last one.
    if (list.isEmpty() || list.constLast() != value)
        list.append(value);
}

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
    m_invalidators.clear();
    m_variables.clear();
    for (const FeatureNodePtr& feature : m_nodes.featureElements())
        InsertFeatureInvalidator(*feature);
    buildReverseMaps();
}

// The feature's own "pInvalidator" children do not count: only what the nodes that it refers to
// declare.
void FeatureDescriptionIndex::InsertFeatureInvalidator(const FeatureNode& feature)
{
    QStringList invalidators;
    QStringList variables;
    for (const FeatureReference& reference : feature.references) {
        if (reference.kind == FeatureReference::PVariable) {
            invalidators.append(reference.text);
            variables.append(reference.text);
        } else if (leadsOn(reference.kind)) {
            GenerateInvalidatorListByProperty(reference.text, invalidators, variables);
        }
    }
    if (invalidators.isEmpty())
        return;
    m_invalidators.insert(feature.name, invalidators);
    m_variables.insert(feature.name, variables);
}

void FeatureDescriptionIndex::GenerateInvalidatorListByProperty(const QString& name,
                                                                QStringList& invalidators,
                                                                QStringList& variables) const
{
    // An own stack instead of recursion: a description may chain references without end.
    QSet<QString> visited;
    QVector<QString> pending{name};
    while (!pending.isEmpty()) {
        const QString current = pending.takeLast();
        if (visited.contains(current))
            continue;
        visited.insert(current);
        if (visited.size() > kMaxWalkedNodes) {
            qCritical().noquote() << QStringLiteral(
                                         "Feature description: node %1 refers to too many others")
                                         .arg(name);
            return;
        }
        const FeatureNodePtr node = m_nodes.node(current);
        if (!node)
            continue;
        invalidators += node->precedingInvalidators;
        for (const FeatureReference& reference : node->references) {
            const bool variable = reference.kind == FeatureReference::PVariable;
            if (variable)
                variables.append(reference.text);
            if (variable || reference.kind == FeatureReference::PValue
                || reference.kind == FeatureReference::PInvalidator)
                invalidators.append(reference.text);
            if (variable || leadsOn(reference.kind))
                pending.append(reference.text);
        }
    }
}

void FeatureDescriptionIndex::buildReverseMaps()
{
    m_invalidatedBy.clear();
    m_variableUsers.clear();
    for (auto it = m_invalidators.cbegin(); it != m_invalidators.cend(); ++it) {
        for (const QString& invalidator : it.value())
            appendOnce(m_invalidatedBy, invalidator, it.key());
    }
    for (auto it = m_variables.cbegin(); it != m_variables.cend(); ++it) {
        for (const QString& variable : it.value())
            appendOnce(m_variableUsers, variable, it.key());
    }
}

QList<QString> FeatureDescriptionIndex::GetFeatureInvalidatorList(const QString& name) const
{
    QSet<QString> result;
    const auto add = [&result](const QStringList& names) {
        for (const QString& each : names)
            result.insert(each);
    };
    add(m_invalidatedBy.value(name));
    // A feature stands behind the node that holds its value, too.
    const auto pValue = m_pValues.constFind(name);
    if (pValue != m_pValues.constEnd())
        add(m_invalidatedBy.value(*pValue));

    QString partner;
    const QSet<QString> collected = result;
    for (const QString& feature : collected) {
        if (GetFeatureInPair(feature, partner))
            result.insert(partner);
    }
    if (GetFeatureInPair(name, partner))
        result.insert(partner);
    add(GetFeaturesHaveSamePVariable(name));
    add(m_selected.value(name));
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
    return m_variables.value(name);
}

QList<QString> FeatureDescriptionIndex::GetFeaturesHaveSamePVariable(const QString& name) const
{
    QSet<QString> result;
    const QStringList variables = m_variables.value(name);
    for (const QString& variable : variables) {
        for (const QString& user : m_variableUsers.value(variable))
            result.insert(user);
    }
    return result.values();
}
