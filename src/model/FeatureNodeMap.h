// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/XmlDocument.h"
#include "model/FeatureNode.h"

#include <QHash>
#include <QVector>

class FeatureNodeReader;

// All nodes of a description, taken out of the document in one pass. Copies share the records; a
// copy may be read by any thread.
class FeatureNodeMap
{
public:
    FeatureNodeMap() = default;
    // Reads the subtree of `root`; the root itself is no node. Wrappers such as "Group" are walked
    // through, enumeration entries stay inside their enumeration.
    explicit FeatureNodeMap(pugi::xml_node root);

    // The node that describes a name: a feature wins over a register of the same name, a later
    // feature over an earlier one. Null when the name is unknown.
    FeatureNodePtr node(const QString& name) const { return m_nodes.value(name); }
    // The first category of a name in the order of the description.
    FeatureNodePtr category(const QString& name) const { return m_categories.value(name); }
    // Every feature element in the order of the description, also those that another one of the
    // same name replaced.
    const QVector<FeatureNodePtr>& featureElements() const { return m_featureElements; }
    const QHash<QString, FeatureNodePtr>& nodes() const { return m_nodes; }
    int size() const { return int(m_nodes.size()); }
    bool isEmpty() const { return m_nodes.isEmpty(); }

private:
    void addChildren(pugi::xml_node parent, FeatureNodeReader& reader);
    void addNode(const FeatureNodePtr& node);

    QHash<QString, FeatureNodePtr> m_nodes;
    QHash<QString, FeatureNodePtr> m_categories;
    QVector<FeatureNodePtr> m_featureElements;
};
