// SPDX-License-Identifier: Apache-2.0
#include "demo/DemoContext.h"

DemoContext::DemoContext(CameraNodeMap& map, RegisterMemory& memory, CameraClock& clock,
                         BehaviourTable& behaviours)
    : m_map(map)
    , m_memory(memory)
    , m_clock(clock)
    , m_behaviours(behaviours)
{
}

std::int64_t DemoContext::integer(const std::string& node)
{
    std::int64_t value = 0;
    check(node, m_map.getInteger(node, &value));
    return value;
}

void DemoContext::setInteger(const std::string& node, std::int64_t value)
{
    check(node, m_map.setInteger(node, value));
}

double DemoContext::number(const std::string& node)
{
    double value = 0.0;
    check(node, m_map.getFloat(node, &value));
    return value;
}

void DemoContext::setText(const std::string& node, const std::string& text)
{
    check(node, m_map.setString(node, text));
}

std::int64_t DemoContext::integerAt(const std::string& registerNode, std::int64_t index)
{
    const DescriptionNode* node = described(registerNode);
    if (!node)
        return 0;
    const auto bytes = static_cast<std::size_t>(node->length);
    return m_memory.readInteger(node->address + static_cast<std::uint64_t>(index) * bytes, bytes,
                                node->bigEndian);
}

void DemoContext::setIntegerAt(const std::string& registerNode, std::int64_t index,
                               std::int64_t value)
{
    const DescriptionNode* node = described(registerNode);
    if (!node)
        return;
    const auto bytes = static_cast<std::size_t>(node->length);
    m_memory.writeInteger(node->address + static_cast<std::uint64_t>(index) * bytes, bytes,
                          node->bigEndian, value);
}

double DemoContext::numberAt(const std::string& registerNode, std::int64_t index)
{
    const DescriptionNode* node = described(registerNode);
    if (!node)
        return 0.0;
    const auto bytes = static_cast<std::size_t>(node->length);
    return m_memory.readFloat(node->address + static_cast<std::uint64_t>(index) * bytes, bytes,
                              node->bigEndian);
}

void DemoContext::setNumberAt(const std::string& registerNode, std::int64_t index, double value)
{
    const DescriptionNode* node = described(registerNode);
    if (!node)
        return;
    const auto bytes = static_cast<std::size_t>(node->length);
    m_memory.writeFloat(node->address + static_cast<std::uint64_t>(index) * bytes, bytes,
                        node->bigEndian, value);
}

double DemoContext::secondsSincePowerUp() const
{
    return static_cast<double>(timestamp()) * 1e-9;
}

std::int64_t DemoContext::timestamp() const
{
    return (m_behaviours.now() - m_powerUp).count();
}

void DemoContext::noteTimeOfPowerUp()
{
    m_powerUp = m_behaviours.now();
}

const DescriptionNode* DemoContext::described(const std::string& registerNode)
{
    const DescriptionNode* node = m_map.nodes().find(registerNode);
    check(registerNode, node ? 0 : -1);
    return node;
}

void DemoContext::check(const std::string& node, int error)
{
    if (error != 0 && m_missing.find(node) == std::string::npos)
        m_missing += node + " ";
}
