// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

// What a simulated camera does beyond storing numbers: actions keyed by feature, actions that run
// as time passes, and actions that are due at a moment. Owned by the camera, which calls it with
// its lock held; actions must not call the camera.
class BehaviourTable
{
public:
    using Action = std::function<void()>;
    using Check = std::function<int()>; // a CameraError code, 0 lets the write through

    void beforeRead(const std::string& feature, Action action);
    void beforeWrite(const std::string& feature, Check check);
    void afterWrite(const std::string& feature, Action action);
    // At most once every kTickMs of camera time, when the camera is called.
    void onTick(Action action);
    // When the camera starts, and again after each restart.
    void onPowerUp(Action action);

    // Once, `delay` after the present moment of the last run(). Forgotten by powerUp().
    void after(std::chrono::nanoseconds delay, Action action);

    void runBeforeRead(const std::string& feature) const;
    int runBeforeWrite(const std::string& feature) const;
    void runAfterWrite(const std::string& feature) const;
    // Runs what is due, in the order of its moments, then the ticks.
    void run(std::chrono::nanoseconds now);
    void powerUp(std::chrono::nanoseconds now);

    // The moment of the last run() or powerUp(); of the due action while one runs.
    std::chrono::nanoseconds now() const { return m_now; }

    static constexpr std::chrono::milliseconds kTickMs{20};

private:
    struct Due
    {
        std::chrono::nanoseconds at;
        Action action;
    };

    std::unordered_map<std::string, std::vector<Action>> m_beforeRead;
    std::unordered_map<std::string, std::vector<Check>> m_beforeWrite;
    std::unordered_map<std::string, std::vector<Action>> m_afterWrite;
    std::vector<Action> m_ticks;
    std::vector<Action> m_powerUps;
    std::vector<Due> m_due;
    std::chrono::nanoseconds m_now{0};
    std::chrono::nanoseconds m_lastTick{0};
};
