// SPDX-License-Identifier: Apache-2.0
#include "model/FeatureNodeMap.h"

#include "model/FeatureNodeReader.h"

#include <QDomElement>

FeatureNodeMap::FeatureNodeMap(const QDomElement& root)
{
    if (root.isNull())
        return;
    FeatureNodeReader reader;
    addChildren(root, reader);
}

// The nesting is bounded: deeper descriptions are refused before they are parsed.
void FeatureNodeMap::addChildren(const QDomElement& parent, FeatureNodeReader& reader)
{
    for (QDomElement child = parent.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        if (child.tagName() == QLatin1String("EnumEntry"))
            continue;
        if (child.hasAttribute(QStringLiteral("Name")))
            addNode(reader.read(child));
        // Elements that hold only text, the most by far, need no walk.
        if (!child.firstChildElement().isNull())
            addChildren(child, reader);
    }
}

void FeatureNodeMap::addNode(const FeatureNodePtr& node)
{
    if (isFeatureElement(node->tag) && node->tag != FeatureTag::Category)
        m_featureElements.append(node);
    if (node->name.isEmpty())
        return;
    if (node->tag == FeatureTag::Category && !m_categories.contains(node->name))
        m_categories.insert(node->name, node);
    if (!m_nodes.contains(node->name) || isFeatureElement(node->tag))
        m_nodes.insert(node->name, node);
}
