// SPDX-License-Identifier: Apache-2.0
#include "demo/BehaviourTable.h"

#include <algorithm>
#include <utility>

namespace {

template <typename Map>
const typename Map::mapped_type* actionsOf(const Map& map, const std::string& feature)
{
    const auto found = map.find(feature);
    return found == map.end() ? nullptr : &found->second;
}

} // namespace

void BehaviourTable::beforeRead(const std::string& feature, Action action)
{
    m_beforeRead[feature].push_back(std::move(action));
}

void BehaviourTable::beforeWrite(const std::string& feature, Check check)
{
    m_beforeWrite[feature].push_back(std::move(check));
}

void BehaviourTable::afterWrite(const std::string& feature, Action action)
{
    m_afterWrite[feature].push_back(std::move(action));
}

void BehaviourTable::onTick(Action action)
{
    m_ticks.push_back(std::move(action));
}

void BehaviourTable::onPowerUp(Action action)
{
    m_powerUps.push_back(std::move(action));
}

void BehaviourTable::after(std::chrono::nanoseconds delay, Action action)
{
    m_due.push_back({m_now + delay, std::move(action)});
}

void BehaviourTable::runBeforeRead(const std::string& feature) const
{
    if (const auto* actions = actionsOf(m_beforeRead, feature)) {
        for (const Action& action : *actions)
            action();
    }
}

int BehaviourTable::runBeforeWrite(const std::string& feature) const
{
    if (const auto* checks = actionsOf(m_beforeWrite, feature)) {
        for (const Check& check : *checks) {
            if (const int error = check())
                return error;
        }
    }
    return 0;
}

void BehaviourTable::runAfterWrite(const std::string& feature) const
{
    if (const auto* actions = actionsOf(m_afterWrite, feature)) {
        for (const Action& action : *actions)
            action();
    }
}

void BehaviourTable::run(std::chrono::nanoseconds now)
{
    for (;;) {
        const auto next = std::min_element(m_due.begin(), m_due.end(),
                                           [](const Due& a, const Due& b) { return a.at < b.at; });
        if (next == m_due.end() || next->at > now)
            break;
        const Due due = std::move(*next);
        m_due.erase(next); // before the action, which may add new ones
        m_now = std::max(m_now, due.at);
        due.action();
    }
    m_now = now;
    if (now - m_lastTick < kTickMs)
        return;
    for (const Action& tick : m_ticks)
        tick();
    m_lastTick = now;
}

void BehaviourTable::powerUp(std::chrono::nanoseconds now)
{
    m_due.clear();
    m_now = now;
    m_lastTick = now;
    for (const Action& action : m_powerUps)
        action();
}
