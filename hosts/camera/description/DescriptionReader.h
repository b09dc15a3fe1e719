// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "description/DescriptionNode.h"

#include <QXmlStreamReader>

#include <string>
#include <vector>

// Reads the nodes out of a description's text in one pass, without a DOM and without recursion.
// Used once, by DescriptionNodes.
class DescriptionReader
{
public:
    // False when the text is not well-formed, is no register description, or nests deeper than
    // kMaxNesting elements; nodes() is empty then.
    bool read(const std::string& xml);

    std::vector<DescriptionNode>& nodes() { return m_nodes; }
    const std::string& vendorName() const { return m_vendorName; }
    const std::string& modelName() const { return m_modelName; }

    static constexpr std::size_t kMaxNesting = 200; // the node-map library gives up at 256

private:
    // How an element is taken: as a wrapper of nodes, as a node, or as part of a node.
    enum class Role { Wrapper, Struct, Node, Entry, Part };

    struct Level
    {
        Role role;
        QString tag;
        QString text; // collected for parts
    };

    void startElement();
    void endElement();
    Role roleOf(const QString& tag, bool named) const;
    void takePart(const QString& tag, const std::string& text);
    void finishNode();

    QXmlStreamReader m_xml;
    std::vector<Level> m_levels;
    std::vector<DescriptionNode> m_nodes;
    DescriptionNode m_node;   // the one being read
    DescriptionNode m_struct; // what a structure register gives to its entries
    std::string m_vendorName, m_modelName;
    bool m_usable = true;
    bool m_inStruct = false;
    bool m_inEntry = false;
};
