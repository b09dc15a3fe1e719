// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cameras/CameraClock.h"
#include "cameras/CameraNodeMap.h"
#include "cameras/RegisterMemory.h"
#include "demo/BehaviourTable.h"

#include <cstdint>
#include <string>

// What the behaviours of the demo camera work with. Owned by the camera; used with its lock held.
// Access goes past modes, locks and ranges. Names that the description lacks are programming
// errors: they read as zero and a test finds them (missingNames()).
class DemoContext
{
public:
    DemoContext(CameraNodeMap& map, RegisterMemory& memory, CameraClock& clock,
                BehaviourTable& behaviours);

    CameraClock& clock() { return m_clock; }
    BehaviourTable& behaviours() { return m_behaviours; }
    RegisterMemory& memory() { return m_memory; }

    // Any node, as the node map sees it now.
    std::int64_t integer(const std::string& node);
    void setInteger(const std::string& node, std::int64_t value);
    double number(const std::string& node);
    void setText(const std::string& node, const std::string& text);

    // One place of a register that a selector multiplies, whatever is selected.
    std::int64_t integerAt(const std::string& registerNode, std::int64_t index);
    void setIntegerAt(const std::string& registerNode, std::int64_t index, std::int64_t value);
    double numberAt(const std::string& registerNode, std::int64_t index);
    void setNumberAt(const std::string& registerNode, std::int64_t index, double value);

    // Seconds of camera time since the last power-up.
    double secondsSincePowerUp() const;
    // Nanoseconds of the same.
    std::int64_t timestamp() const;
    void noteTimeOfPowerUp();

    const std::string& missingNames() const { return m_missing; }

    // Where the description keeps settings and what the camera forgets when it restarts.
    static constexpr std::uint64_t kFirstSetting = 0x100000;
    static constexpr std::uint64_t kLastSetting = 0x1FFFFF;
    static constexpr std::uint64_t kFirstState = 0x200000;
    static constexpr std::uint64_t kLastState = 0x2FFFFF;

private:
    const DescriptionNode* described(const std::string& registerNode);
    void check(const std::string& node, int error);

    CameraNodeMap& m_map;         // Not owned.
    RegisterMemory& m_memory;     // Not owned.
    CameraClock& m_clock;         // Not owned.
    BehaviourTable& m_behaviours; // Not owned.
    std::chrono::nanoseconds m_powerUp{0};
    std::string m_missing;
};
