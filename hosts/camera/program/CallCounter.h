// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

// Counts what a feature window asks of its host. Every operation is safe from any thread.
class CallCounter
{
public:
    enum Kind { Read, Write, Mode, Invalidate, Action };

    // One write or command, in the order of arrival.
    struct WriteCall
    {
        int type; // OB_FT_TYPE_
        std::string name;
        std::string text;
        int result;
    };

    // A question that was answered with an error, and the last code.
    struct Refusal
    {
        Kind kind;
        std::string name;
        int code;
    };

    // Brackets one call: begin() when it arrives, end() with its result when it is answered.
    void begin(Kind kind, const std::string& name);
    void end(Kind kind, const std::string& name, int result);
    void noteWrite(int type, const std::string& name, const std::string& text, int result);

    long count(Kind kind) const;
    long count(Kind kind, const std::string& name) const;
    long errors() const;
    // Each question once, by name.
    std::vector<Refusal> refusals() const;
    // Calls that arrived on a given thread, of one kind or of all.
    long countOnThread(std::thread::id thread) const;
    long countOnThread(std::thread::id thread, Kind kind) const;
    std::vector<WriteCall> writes() const;
    // Number of different names that were asked for.
    long names() const;

    // Forgets all counts.
    void clear();

    // Time since something was asked for the first time: a pass over all features asks ever new
    // questions, polling repeats old ones. Zero before the first call and while a call runs.
    std::chrono::milliseconds timeSinceNews() const;

private:
    using Clock = std::chrono::steady_clock;

    mutable std::mutex m_mutex;
    std::map<std::pair<Kind, std::string>, long> m_counts;
    std::map<std::pair<std::thread::id, Kind>, long> m_threads;
    std::vector<WriteCall> m_writes;
    std::map<std::pair<std::string, Kind>, int> m_refusals;
    std::set<std::string> m_names;
    Clock::time_point m_lastNews;
    long m_errors = 0;
    long m_running = 0;
    bool m_used = false;
};
