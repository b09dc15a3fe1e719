// SPDX-License-Identifier: Apache-2.0
#include "cameras/StartValues.h"

#include "cameras/CameraError.h"
#include "cameras/TypicalValues.h"
#include "description/TextNumbers.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <unordered_set>

namespace {

constexpr double kDefaultMaximum = 1000.0;
constexpr double kDefaultLength = 64.0; // bytes
constexpr std::size_t kMaxSelectorEntries = 64;
constexpr std::size_t kMaxText = 64;

} // namespace

StartValues::StartValues(CameraNodeMap& map, RegisterMemory& memory)
    : m_map(map)
    , m_memory(memory)
    , m_nodes(map.nodes())
{
}

void StartValues::apply()
{
    bool described = false;
    for (const DescriptionNode& node : m_nodes.all()) {
        described = described || !node.startValues.empty();
        if (!m_nodes.has(node.name, DescriptionNodes::Faulty))
            pokeDescribed(node);
    }
    if (described)
        return;
    for (const DescriptionNode& node : m_nodes.all())
        settleDeciders(node);
    for (const DescriptionNode& node : m_nodes.all())
        settleLimits(node);
    for (const DescriptionNode& node : m_nodes.all())
        settle(node);
    for (const DescriptionNode& node : m_nodes.all())
        settleForEachEntry(node);
}

void StartValues::pokeDescribed(const DescriptionNode& node)
{
    const auto bytes = static_cast<std::size_t>(node.length);
    std::uint64_t address = node.address;
    for (const std::string& text : node.startValues) {
        std::int64_t integer = 0;
        double real = 0.0;
        if (node.tag == "StringReg")
            m_memory.writeText(address, bytes, text);
        else if (node.tag == "FloatReg" && TextNumbers::parse(text, &real))
            m_memory.writeFloat(address, bytes, node.bigEndian, real);
        else if (node.tag == "IntReg" && TextNumbers::parse(text, &integer))
            m_memory.writeInteger(address, bytes, node.bigEndian, integer);
        else if (TextNumbers::parse(text, &integer))
            m_map.setInteger(node.name, integer); // bit fields share their register with others
        address += bytes;
    }
}

void StartValues::settle(const DescriptionNode& node)
{
    struct Row
    {
        const char* tag;
        void (StartValues::*function)(const DescriptionNode&);
    };
    static constexpr Row kRows[] = {
        {"Integer", &StartValues::settleInteger},
        {"IntReg", &StartValues::settleInteger},
        {"Float", &StartValues::settleFloat},
        {"Converter", &StartValues::settleFloat},
        {"Enumeration", &StartValues::settleEnumeration},
        {"String", &StartValues::settleString},
        {"StringReg", &StartValues::settleString},
    };
    for (const Row& row : kRows) {
        if (node.tag == row.tag)
            (this->*row.function)(node);
    }
}

// Features that a selector multiplies have a register for each of its entries.
void StartValues::settleForEachEntry(const DescriptionNode& selector)
{
    if (selector.tag != "Enumeration" || selector.selected.empty() ||
        selector.entries.size() > kMaxSelectorEntries)
        return;
    std::int64_t before = 0;
    if (m_map.getInteger(selector.name, &before) != CameraError::Ok)
        return;
    for (const DescriptionEntry& entry : selector.entries) {
        if (!m_map.isUsable(entry) ||
            m_map.setInteger(selector.name, entry.value) != CameraError::Ok)
            continue;
        for (const std::string& name : selector.selected) {
            const DescriptionNode* node = m_nodes.find(name);
            if (!node || node->name == selector.name)
                continue;
            settleDeciders(*node);
            settleLimits(*node);
            settle(*node);
        }
    }
    m_map.setInteger(selector.name, before);
}

void StartValues::settleDeciders(const DescriptionNode& node)
{
    decide(node.pIsImplemented, true);
    decide(node.pIsAvailable, true);
    decide(node.pIsLocked, false);
    for (const DescriptionEntry& entry : node.entries) {
        decide(entry.pIsImplemented, true);
        decide(entry.pIsAvailable, true);
        decide(entry.pIsLocked, false);
    }
}

bool StartValues::standsAsWanted(const std::string& decider, bool wanted)
{
    std::int64_t value = 0;
    return m_map.getInteger(decider, &value) == CameraError::Ok && (value != 0) == wanted;
}

void StartValues::decide(const std::string& decider, bool wanted)
{
    if (decider.empty() || m_nodes.has(decider, DescriptionNodes::Faulty))
        return;
    const std::vector<std::string> registers = registersBehind(decider);
    bool decided = standsAsWanted(decider, wanted);
    for (const std::string& name : registers) {
        if (decided)
            break;
        std::int64_t before = 0;
        std::int64_t minimum = 0;
        std::int64_t maximum = 0;
        std::int64_t increment = 1;
        if (m_map.getInteger(name, &before) != CameraError::Ok ||
            m_map.integerLimits(name, &minimum, &maximum, &increment) != CameraError::Ok)
            continue;
        const std::int64_t allOnes = minimum < 0 ? -1 : maximum;
        for (const std::int64_t attempt : {wanted ? allOnes : std::int64_t{0}, std::int64_t{1}}) {
            m_map.setInteger(name, attempt);
            const auto& others = m_decided[name];
            decided = standsAsWanted(decider, wanted) &&
                      std::all_of(others.begin(), others.end(), [this](const auto& other) {
                          return standsAsWanted(other.first, other.second);
                      });
            if (decided)
                break;
            m_map.setInteger(name, before);
        }
    }
    if (!decided)
        return;
    for (const std::string& name : registers) {
        auto& others = m_decided[name];
        const std::pair<std::string, bool> entry(decider, wanted);
        if (std::find(others.begin(), others.end(), entry) == others.end())
            others.push_back(entry);
    }
}

void StartValues::settleLimits(const DescriptionNode& node)
{
    double minimum = 0.0;
    if (!node.pMin.empty())
        m_map.getFloat(node.pMin, &minimum);
    if (!node.pMax.empty())
        raise(node.pMax, std::max(minimum, 0.0),
              TypicalValues::number(node.name).value_or(kDefaultMaximum));
    if (!node.pInc.empty())
        raise(node.pInc, 0.0, 1.0);
    for (const std::string& length : node.lengths)
        raise(length, 0.0, kDefaultLength);
}

void StartValues::raise(const std::string& limit, double above, double wish)
{
    double value = 0.0;
    if (m_nodes.has(limit, DescriptionNodes::Faulty) ||
        m_map.getFloat(limit, &value) != CameraError::Ok || value > above)
        return;
    for (const std::string& name : registersBehind(limit)) {
        double before = 0.0;
        std::int64_t minimum = 0;
        std::int64_t maximum = std::numeric_limits<std::int32_t>::max();
        std::int64_t increment = 1;
        if (m_map.getFloat(name, &before) != CameraError::Ok)
            continue;
        if (m_map.setFloat(name, wish) != CameraError::Ok) {
            m_map.integerLimits(name, &minimum, &maximum, &increment);
            m_map.setInteger(name, std::min(static_cast<std::int64_t>(wish), maximum));
        }
        if (m_map.getFloat(limit, &value) == CameraError::Ok && value > above)
            return;
        if (m_map.setFloat(name, before) != CameraError::Ok)
            m_map.setInteger(name, static_cast<std::int64_t>(before));
    }
}

// The registers that a value is computed from, read-only ones first: those belong to the camera,
// while writable ones are settings that a user sees.
std::vector<std::string> StartValues::registersBehind(const std::string& name) const
{
    std::vector<std::string> result;
    std::vector<std::string> open{name};
    std::unordered_set<std::string> seen;
    while (!open.empty()) {
        const DescriptionNode* node = m_nodes.find(open.back());
        open.pop_back();
        if (!node || !seen.insert(node->name).second)
            continue;
        // A register's own references only choose its address.
        if (node->length > 0 || node->references.empty())
            result.push_back(node->name);
        else
            open.insert(open.end(), node->references.begin(), node->references.end());
    }
    std::stable_partition(result.begin(), result.end(), [this](const std::string& candidate) {
        return m_nodes.find(candidate)->accessMode == "RO";
    });
    return result;
}

void StartValues::settleInteger(const DescriptionNode& node)
{
    std::int64_t value = 0;
    std::int64_t minimum = 0;
    std::int64_t maximum = 0;
    std::int64_t increment = 1;
    if (m_map.getInteger(node.name, &value) != CameraError::Ok ||
        m_map.integerLimits(node.name, &minimum, &maximum, &increment) != CameraError::Ok ||
        minimum > maximum)
        return;
    if (value != 0 && value >= minimum && value <= maximum)
        return;
    const std::optional<double> typical = TypicalValues::number(node.name);
    std::int64_t start =
        std::clamp(typical ? static_cast<std::int64_t>(*typical) : value, minimum, maximum);
    if (minimum != std::numeric_limits<std::int64_t>::min())
        start -= (start - minimum) % increment;
    if (start != value)
        m_map.setInteger(node.name, start);
}

void StartValues::settleFloat(const DescriptionNode& node)
{
    double value = 0.0;
    double minimum = 0.0;
    double maximum = 0.0;
    const std::optional<double> typical = TypicalValues::number(node.name);
    if (m_map.getFloat(node.name, &value) != CameraError::Ok) {
        fillDivisors(node.name);
        m_map.setFloat(node.name, typical.value_or(1.0));
        return;
    }
    if (m_map.floatLimits(node.name, &minimum, &maximum) != CameraError::Ok ||
        !(minimum <= maximum) || (value != 0.0 && value >= minimum && value <= maximum))
        return;
    m_map.setFloat(node.name, std::clamp(typical.value_or(value), minimum, maximum));
}

// A formula that divides by a register fails as long as the register is empty.
void StartValues::fillDivisors(const std::string& name)
{
    for (const std::string& divisor : registersBehind(name)) {
        std::int64_t value = 0;
        double result = 0.0;
        if (m_map.getInteger(divisor, &value) == CameraError::Ok && value == 0)
            m_map.setInteger(divisor, 1);
        if (m_map.getFloat(name, &result) == CameraError::Ok)
            return;
    }
}

void StartValues::settleEnumeration(const DescriptionNode& node)
{
    std::int64_t value = 0;
    if (m_map.getInteger(node.name, &value) != CameraError::Ok)
        return;
    const DescriptionEntry* first = nullptr;
    for (const DescriptionEntry& entry : node.entries) {
        if (!m_map.isUsable(entry))
            continue;
        if (entry.value == value)
            return;
        if (!first)
            first = &entry;
    }
    if (first)
        m_map.setInteger(node.name, first->value);
}

void StartValues::settleString(const DescriptionNode& node)
{
    std::string text;
    if (m_map.getString(node.name, &text) != CameraError::Ok || !text.empty())
        return;
    text = TypicalValues::text(node.name, m_nodes.vendorName(), m_nodes.modelName());
    const std::size_t room = node.length > 1 ? static_cast<std::size_t>(node.length - 1) : kMaxText;
    m_map.setString(node.name, text.substr(0, room));
}
