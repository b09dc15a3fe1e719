// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

class FeatureNodeMap;

// Who refers to whom in a description, kept against the direction of the references: from a node
// back to the features that stand on it. Built in linear time; a question follows each reference
// once at the most, so that neither long chains nor circles cost more. Immutable once built;
// unknown names give empty results.
class InvalidationGraph
{
public:
    InvalidationGraph() = default;
    explicit InvalidationGraph(const FeatureNodeMap& nodes);

    // The features that one of the names makes stale: they, or a node that they refer to, declare
    // it an invalidator, a variable or the holder of their value.
    QSet<QString> staleAfter(const QStringList& names) const;
    // The names that a feature reaches through "pVariable", each once.
    QStringList variablesOf(const QString& feature) const;
    // The features that reach one of the feature's variables.
    QSet<QString> sharersOfVariables(const QString& feature) const;

private:
    struct Node
    {
        bool isFeature = false;
        QVector<int> variables;  // nodes it takes as variables
        QVector<int> leads;      // nodes it leads to by any other reference that is followed
        QVector<int> variableOf; // the reverse of `variables`
        QVector<int> ledFrom;    // the reverse of `leads`
        QVector<int> declaredBy; // nodes that name it as value or invalidator
    };

    int idOf(const QString& name);
    // The features from which one of the nodes is reached.
    void addFeaturesBefore(const QVector<int>& nodes, QSet<QString>& features) const;
    void addFeature(int id, QSet<QString>& features) const;

    QHash<QString, int> m_ids;
    QVector<QString> m_names;
    QVector<Node> m_nodes;
};
