// SPDX-License-Identifier: Apache-2.0
#include "model/FeatureNodeMap.h"

#include "model/FeatureNodeReader.h"

FeatureNodeMap::FeatureNodeMap(pugi::xml_node root)
{
    if (!root)
        return;
    FeatureNodeReader reader;
    addChildren(root, reader);
}

// The nesting is bounded: deeper descriptions are refused before they are parsed.
void FeatureNodeMap::addChildren(pugi::xml_node parent, FeatureNodeReader& reader)
{
    constexpr std::string_view kEntry = "EnumEntry";
    for (pugi::xml_node child = XmlText::firstElement(parent); child;
         child = XmlText::nextElement(child)) {
        if (child.name() == kEntry)
            continue;
        if (child.attribute("Name"))
            addNode(reader.read(child));
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
