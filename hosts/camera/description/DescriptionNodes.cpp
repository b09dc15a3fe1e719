// SPDX-License-Identifier: Apache-2.0
#include "description/DescriptionNodes.h"

#include "description/DescriptionReader.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace {

bool isRegister(const DescriptionNode& node)
{
    constexpr std::array<std::string_view, 6> kTags{"IntReg",    "MaskedIntReg", "FloatReg",
                                                    "StringReg", "StructEntry",  "Register"};
    return std::find(kTags.begin(), kTags.end(), node.tag) != kTags.end();
}

bool hasBadLength(const DescriptionNode& node)
{
    if (!isRegister(node) || (!node.lengths.empty() && node.length == 0))
        return false;
    return node.length < 1 || node.length > DescriptionNodes::kMaxRegisterBytes;
}

} // namespace

DescriptionNodes::DescriptionNodes(const std::string& xml)
{
    DescriptionReader reader;
    m_valid = reader.read(xml);
    m_vendorName = reader.vendorName();
    m_modelName = reader.modelName();
    m_nodes = std::move(reader.nodes());
    for (std::size_t i = 0; i < m_nodes.size(); ++i) {
        const auto [known, inserted] = m_positions.emplace(m_nodes[i].name, i);
        if (inserted)
            continue;
        // Which one the node-map library takes is its own affair, so all must be sound: a bad one
        // refers to nothing.
        DescriptionNode& first = m_nodes[known->second];
        const DescriptionNode& other = m_nodes[i];
        first.references.insert(first.references.end(), other.references.begin(),
                                other.references.end());
        first.lengths.insert(first.lengths.end(), other.lengths.begin(), other.lengths.end());
        if (hasBadLength(other))
            first.references.emplace_back();
    }
    findTraits();
    findFaultyLimits();
}

const DescriptionNode* DescriptionNodes::find(const std::string& name) const
{
    const auto found = m_positions.find(name);
    return found == m_positions.end() ? nullptr : &m_nodes[found->second];
}

std::vector<std::string> DescriptionNodes::reachableFeatures() const
{
    std::vector<std::string> result;
    std::unordered_set<std::string> seen;
    std::vector<std::string> open{"Root"};
    while (!open.empty()) {
        const std::string name = open.back();
        open.pop_back();
        const DescriptionNode* node = find(name);
        if (!node || !seen.insert(name).second)
            continue;
        if (node->tag == "Category")
            open.insert(open.end(), node->features.rbegin(), node->features.rend());
        else
            result.push_back(name);
    }
    return result;
}

bool DescriptionNodes::has(const std::string& name, Trait trait) const
{
    const auto found = m_positions.find(name);
    const unsigned traits = found == m_positions.end() ? Faulty : m_traits[found->second];
    return (traits & trait) != 0;
}

unsigned DescriptionNodes::ownTraits(const DescriptionNode& node) const
{
    unsigned traits = hasBadLength(node) ? Faulty : 0U;
    if (!node.lengths.empty())
        traits |= OpenLength;
    const DescriptionNode* port = node.pPort.empty() ? nullptr : find(node.pPort);
    if (port && port->isDataPort)
        traits |= NeedsData;
    return traits;
}

// Depth first with a stack of its own: chains may be as long as the description.
void DescriptionNodes::findTraits()
{
    enum State : char { Unseen, Open, Done };
    struct Step
    {
        std::size_t node;
        std::size_t next; // reference to look at next
    };
    m_traits.assign(m_nodes.size(), 0);
    std::vector<char> state(m_nodes.size(), Unseen);
    std::vector<int> depth(m_nodes.size(), 0);
    std::vector<double> steps(m_nodes.size(), 1.0);
    for (std::size_t start = 0; start < m_nodes.size(); ++start) {
        if (state[start] != Unseen)
            continue;
        std::vector<Step> stack{{start, 0}};
        state[start] = Open;
        while (!stack.empty()) {
            Step& step = stack.back();
            const std::size_t current = step.node;
            const DescriptionNode& node = m_nodes[current];
            if (step.next == node.references.size()) {
                m_traits[current] |= ownTraits(node);
                if (depth[current] > kMaxReferenceDepth || steps[current] > kMaxSteps)
                    m_traits[current] |= Faulty;
                state[current] = Done;
                stack.pop_back();
                continue;
            }
            const auto target = m_positions.find(node.references[step.next]);
            if (target == m_positions.end() || state[target->second] == Open) {
                m_traits[current] |= Faulty;
                ++step.next;
            } else if (state[target->second] == Unseen) {
                state[target->second] = Open;
                stack.push_back({target->second, 0}); // comes back to the same reference
            } else {
                m_traits[current] |= m_traits[target->second];
                depth[current] = std::max(depth[current], depth[target->second] + 1);
                steps[current] += steps[target->second];
                ++step.next;
            }
        }
    }
}

void DescriptionNodes::findFaultyLimits()
{
    for (std::size_t start = 0; start < m_nodes.size(); ++start) {
        if ((m_traits[start] & Faulty) != 0) {
            m_traits[start] |= FaultyLimits;
            continue;
        }
        // Sound nodes have short chains; limits come from along the chain of pValue.
        const DescriptionNode* node = &m_nodes[start];
        while (node) {
            for (const std::string* limit : {&node->pMin, &node->pMax, &node->pInc}) {
                if (!limit->empty() && has(*limit, Faulty))
                    m_traits[start] |= FaultyLimits;
            }
            node = node->pValue.empty() ? nullptr : find(node->pValue);
        }
    }
}
