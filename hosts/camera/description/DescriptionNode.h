// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// One selectable entry of an enumeration node.
struct DescriptionEntry
{
    std::string name;
    std::int64_t value = 0;
    std::string pIsImplemented, pIsAvailable, pIsLocked; // deciding nodes, may be empty
};

// What the host itself needs to know of one node of a feature description.
struct DescriptionNode
{
    std::string name;
    std::string tag;
    std::string displayName, description, visibility; // empty when the node has none
    std::string pPort;
    std::string accessMode; // of a register: "RO", "WO", "RW" or empty
    std::string pValue;
    std::string pMin, pMax, pInc;
    std::string pIsImplemented, pIsAvailable, pIsLocked;
    std::vector<std::string> references; // all nodes that must be read to get the value
    std::vector<std::string> lengths;    // of these, the ones that give a register's length
    std::vector<std::string> selected;   // pSelected
    std::vector<std::string> features;   // pFeature of a category
    std::vector<DescriptionEntry> entries;
    std::vector<std::string> startValues; // from the Extension element, see StartValues
    std::int64_t length = 0;              // of a register, in bytes, the greatest one named
    std::uint64_t address = 0;            // sum of the literal addresses
    bool bigEndian = false;
    bool streamable = false;
    bool isDataPort = false; // a port to chunks or events instead of the camera's registers

    // True for the node kinds that a feature window shows as rows with a value.
    bool isFeature() const;
};
