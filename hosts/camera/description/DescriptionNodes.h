// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "description/DescriptionNode.h"

#include <string>
#include <unordered_map>
#include <vector>

// The nodes of a feature description, read once from its text and immutable afterwards; safe to
// read from any thread. It knows which nodes cannot be evaluated: the node-map library follows
// references without guarding against circles, absent nodes or absurd register lengths.
class DescriptionNodes
{
public:
    // UTF-8 text. A text that is no well-formed description gives no nodes.
    explicit DescriptionNodes(const std::string& xml);

    // False when the text is not well-formed, is no register description or nests too deep.
    bool isValid() const { return m_valid; }

    // Null for an unknown name. Of several nodes of one name the first one counts, with the
    // references of all.
    const DescriptionNode* find(const std::string& name) const;

    // In document order.
    const std::vector<DescriptionNode>& all() const { return m_nodes; }

    // Names of the features that a user can reach from the category "Root", in the order of the
    // categories, each once. Categories are not among them.
    std::vector<std::string> reachableFeatures() const;

    // What reading a node leads to, over any number of references.
    enum Trait : unsigned {
        // A node that does not exist, or itself, or more than kMaxReferenceDepth nodes in a row or
        // kMaxSteps in all, or a register whose length is not 1 to kMaxRegisterBytes.
        Faulty = 1,
        // The same for a limit that the node has itself or takes over through its pValue chain.
        FaultyLimits = 2,
        // A register whose length another node gives: it can only be checked when it is read.
        OpenLength = 4,
        // A port to chunks or events: there is no value before an image or event arrives.
        NeedsData = 8
    };
    // Unknown names are faulty.
    bool has(const std::string& name, Trait trait) const;

    // Attributes of the root element.
    const std::string& vendorName() const { return m_vendorName; }
    const std::string& modelName() const { return m_modelName; }

    static constexpr int kMaxReferenceDepth = 200;
    static constexpr double kMaxSteps = 20000; // references that meet again count each time
    static constexpr std::int64_t kMaxRegisterBytes = 1048576;

private:
    unsigned ownTraits(const DescriptionNode& node) const;
    void findTraits();
    void findFaultyLimits();

    std::vector<DescriptionNode> m_nodes;
    std::unordered_map<std::string, std::size_t> m_positions;
    std::vector<unsigned> m_traits; // by position
    std::string m_vendorName, m_modelName;
    bool m_valid = false;
};
