// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cameras/CameraNodeMap.h"
#include "cameras/RegisterMemory.h"

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

// Fills the empty registers of a simulated camera so that it looks like a working one: nodes that
// decide on implementation and availability become true, locks false, limits sensible, and values
// lie within their limits. Used once, before anybody reads.
//
// A description that names start values itself gets those and nothing else. They stand in the
// extension element of a register node:
//   <Extension><StartValue>text</StartValue></Extension>            one register
//   <Extension><StartValues>1 2 3</StartValues></Extension>         consecutive registers
class StartValues
{
public:
    StartValues(CameraNodeMap& map, RegisterMemory& memory);

    void apply();

private:
    void pokeDescribed(const DescriptionNode& node);
    void settle(const DescriptionNode& node);
    void settleForEachEntry(const DescriptionNode& selector);
    void settleDeciders(const DescriptionNode& node);
    void settleLimits(const DescriptionNode& node);

    void settleInteger(const DescriptionNode& node);
    void settleFloat(const DescriptionNode& node);
    void settleEnumeration(const DescriptionNode& node);
    void settleString(const DescriptionNode& node);

    void decide(const std::string& decider, bool wanted);
    bool standsAsWanted(const std::string& decider, bool wanted);
    void raise(const std::string& limit, double above, double wish);
    void fillDivisors(const std::string& name);
    std::vector<std::string> registersBehind(const std::string& name) const;

    CameraNodeMap& m_map;            // Not owned.
    RegisterMemory& m_memory;        // Not owned.
    const DescriptionNodes& m_nodes; // Not owned.
    // Deciders that stand as wanted, by the registers they depend on: settling another decider
    // must not turn them round again.
    std::unordered_map<std::string, std::vector<std::pair<std::string, bool>>> m_decided;
};
