// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureNodeMap.h"

#include <QHash>
#include <QString>

// Asks the camera for the nodes that decide whether a feature or an entry is implemented, available
// or locked. Belongs to one reading thread. Answers are kept for the update of one item, so that
// each decider is asked once per update however many entries share it.
class FeatureDecider
{
public:
    void setNodes(const FeatureNodeMap& nodes) { m_nodes = nodes; }
    // Forgets the answers: the update of another item begins.
    void beginItem() { m_answers.clear(); }

    // An empty name decides nothing: implemented, available, not locked. A node that cannot be read
    // counts as false.
    bool IsFeatureImplemented(const QString& name) { return name.isEmpty() || isLarge0(name); }
    bool IsFeatureAvailable(const QString& name) { return name.isEmpty() || isLarge0(name); }
    bool IsFeatureLocked(const QString& name) { return !name.isEmpty() && isLarge0(name); }
    // Whether the node's value (a boolean or an integer) is not 0. Asks the camera every time.
    bool IsFeatureValueLarge0(const QString& name) const;

private:
    bool isLarge0(const QString& name);

    FeatureNodeMap m_nodes;
    QHash<QString, bool> m_answers;
};
