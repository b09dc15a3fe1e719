// SPDX-License-Identifier: Apache-2.0
#include "model/InvalidationGraph.h"

#include "model/FeatureNodeMap.h"

namespace {

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

} // namespace

InvalidationGraph::InvalidationGraph(const FeatureNodeMap& nodes)
{
    const auto& all = nodes.nodes();
    for (auto it = all.cbegin(); it != all.cend(); ++it) {
        const FeatureNode& described = **it;
        const int id = idOf(it.key());
        m_nodes[id].isFeature =
            isFeatureElement(described.tag) && described.tag != FeatureTag::Category;
        for (const QString& invalidator : described.precedingInvalidators)
            m_nodes[idOf(invalidator)].declaredBy.append(id);
        for (const FeatureReference& reference : described.references) {
            const bool isVariable = reference.kind == FeatureReference::PVariable;
            const bool isFollowed = leadsOn(reference.kind);
            if (!isVariable && !isFollowed && reference.kind != FeatureReference::PInvalidator)
                continue;
            const int target = idOf(reference.text);
            if (isVariable) {
                m_nodes[id].variables.append(target);
                m_nodes[target].variableOf.append(id);
            } else if (isFollowed) {
                m_nodes[id].leads.append(target);
                m_nodes[target].ledFrom.append(id);
            }
            if (reference.kind == FeatureReference::PValue ||
                reference.kind == FeatureReference::PInvalidator)
                m_nodes[target].declaredBy.append(id);
        }
    }
}

int InvalidationGraph::idOf(const QString& name)
{
    const auto known = m_ids.constFind(name);
    if (known != m_ids.constEnd())
        return *known;
    const int id = int(m_names.size());
    m_ids.insert(name, id);
    m_names.append(name);
    m_nodes.append(Node());
    return id;
}

// A feature's own "pInvalidator" and "pValue" do not count, but its own "pVariable" does, which
// leads no further.
QSet<QString> InvalidationGraph::staleAfter(const QStringList& names) const
{
    QSet<QString> features;
    QVector<int> declaring;
    for (const QString& name : names) {
        const int id = m_ids.value(name, -1);
        if (id < 0)
            continue;
        for (const int user : m_nodes.at(id).variableOf)
            addFeature(user, features);
        declaring += m_nodes.at(id).variableOf + m_nodes.at(id).declaredBy;
    }
    addFeaturesBefore(declaring, features);
    return features;
}

QStringList InvalidationGraph::variablesOf(const QString& feature) const
{
    const int start = m_ids.value(feature, -1);
    if (start < 0 || !m_nodes.at(start).isFeature)
        return {};
    QStringList names;
    QSet<int> found;
    const auto add = [&](int id) {
        if (!found.contains(id)) {
            found.insert(id);
            names.append(m_names.at(id));
        }
    };
    for (const int variable : m_nodes.at(start).variables)
        add(variable);
    QSet<int> visited;
    QVector<int> pending = m_nodes.at(start).leads;
    while (!pending.isEmpty()) {
        const int id = pending.takeLast();
        if (visited.contains(id))
            continue;
        visited.insert(id);
        const Node& node = m_nodes.at(id);
        for (const int variable : node.variables)
            add(variable);
        pending += node.leads + node.variables;
    }
    return names;
}

QSet<QString> InvalidationGraph::sharersOfVariables(const QString& feature) const
{
    QSet<QString> features;
    QVector<int> users;
    for (const QString& variable : variablesOf(feature))
        users += m_nodes.at(m_ids.value(variable)).variableOf;
    for (const int user : qAsConst(users))
        addFeature(user, features);
    addFeaturesBefore(users, features);
    return features;
}

// The first step from a feature is no "pVariable"; all others may be.
void InvalidationGraph::addFeaturesBefore(const QVector<int>& nodes, QSet<QString>& features) const
{
    QSet<int> visited;
    QVector<int> pending = nodes;
    while (!pending.isEmpty()) {
        const int id = pending.takeLast();
        if (visited.contains(id))
            continue;
        visited.insert(id);
        const Node& node = m_nodes.at(id);
        for (const int before : node.ledFrom)
            addFeature(before, features);
        pending += node.ledFrom + node.variableOf;
    }
}

void InvalidationGraph::addFeature(int id, QSet<QString>& features) const
{
    if (m_nodes.at(id).isFeature)
        features.insert(m_names.at(id));
}
