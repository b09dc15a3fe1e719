// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureNodeMap.h"

#include <QHash>
#include <QString>
#include <QVector>

// Looks along the "pValue" and "pVariable" references of features, depth-first in the order of the
// description, for the first node that tells something of its polling. What was found below a node
// is remembered: all features together follow each reference once. A circle is cut where it closes.
class PollingWalk
{
public:
    // What one reference that does not lead on means for the walk.
    struct Look
    {
        bool endsNode = false; // the node's further references do not count
        int found = 0;         // more than 0 ends the walk
    };
    using Judge = Look (*)(const FeatureReference& reference);

    // `nodes` must outlive the walk.
    PollingWalk(const FeatureNodeMap& nodes, Judge judge)
        : m_nodes(nodes)
        , m_judge(judge)
    {
    }

    // What was found from the node on; 0 for nothing.
    int follow(const QString& name);
    // The first node that was found to close a circle; null for none.
    const QString& circleAt() const { return m_circleAt; }

private:
    struct Step
    {
        QString name;
        FeatureNodePtr node;
        int next = 0; // of the node's references
    };

    void begin(const QString& name);
    void goOn();

    const FeatureNodeMap& m_nodes;
    const Judge m_judge;
    QVector<Step> m_path;
    QHash<QString, int> m_found; // by node; kOnPath while the walk is below it
    QString m_circleAt;
};
