// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/HostCaller.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

// Runs an action at a steady beat on a thread of its own, which is started when it is first needed.
// Owned by a tree.
//
// Beats stand at fixed multiples of the period after the start, so that they do not drift. A beat
// that falls due while the action still runs is dropped: beats never queue up.
//
// | operation                              | thread  | lock                  |
// |----------------------------------------|---------|-----------------------|
// | start, stop, waitForAction, runOnce,   | any but | m_mutex, inside       |
// | destruction                            | the own |                       |
// | the action                             | the own | none                  |
// | beatAfter                              | any     | none                  |
class SteadyBeat : public HostCaller
{
public:
    using Clock = std::chrono::steady_clock;

    explicit SteadyBeat(std::function<void()> action);
    // Waits for a running action.
    ~SteadyBeat() override;

    // The first beat falls one period (1 ms or more) after now. Replaces an earlier beat.
    void start(std::chrono::milliseconds period);
    // Returns at once; an action that runs is not waited for.
    void stop();
    // No further action until start() or stop(); it still counts as running.
    void requestStop() override;
    // Returns when no action runs; to be called after stop().
    void waitForAction();
    // One action as soon as possible; none more when one runs or waits.
    void runOnce();
    bool isRunning() const;
    // The first multiple of the period (above 0), counted from a beat, that is still to come; the
    // beat itself if it is.
    static Clock::time_point beatAfter(Clock::time_point beat, Clock::duration period,
                                       Clock::time_point now);

private:
    void ensureThread();
    void run();

    const std::function<void()> m_action;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    // Guarded by m_mutex.
    bool m_bRunning = false;
    bool m_bOnce = false;
    bool m_bHeld = false; // requestStop()
    bool m_bInAction = false;
    bool m_bQuit = false;
    Clock::duration m_period{};
    Clock::time_point m_next;

    std::thread m_thread;
};
