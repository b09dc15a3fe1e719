// SPDX-License-Identifier: Apache-2.0
#include "program/CallCounter.h"

void CallCounter::begin(Kind kind, const std::string& name)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    ++m_running;
    m_used = true;
    long& count = m_counts[{kind, name}];
    if (count == 0)
        m_lastNews = Clock::now();
    ++count;
    ++m_threads[{std::this_thread::get_id(), kind}];
    if (!name.empty())
        m_names.insert(name);
}

void CallCounter::end(Kind kind, const std::string& name, int result)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    --m_running;
    if (result == 0)
        return;
    ++m_errors;
    m_refusals[{name, kind}] = result;
}

void CallCounter::noteWrite(int type, const std::string& name, const std::string& text, int result)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_writes.push_back({type, name, text, result});
}

long CallCounter::count(Kind kind) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    long sum = 0;
    for (const auto& [key, count] : m_counts)
        sum += key.first == kind ? count : 0;
    return sum;
}

long CallCounter::count(Kind kind, const std::string& name) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_counts.find({kind, name});
    return found == m_counts.end() ? 0 : found->second;
}

long CallCounter::errors() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_errors;
}

std::vector<CallCounter::Refusal> CallCounter::refusals() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<Refusal> result;
    for (const auto& [question, code] : m_refusals)
        result.push_back({question.second, question.first, code});
    return result;
}

long CallCounter::countOnThread(std::thread::id thread) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    long sum = 0;
    for (const auto& [key, count] : m_threads)
        sum += key.first == thread ? count : 0;
    return sum;
}

long CallCounter::countOnThread(std::thread::id thread, Kind kind) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_threads.find({thread, kind});
    return found == m_threads.end() ? 0 : found->second;
}

std::vector<CallCounter::WriteCall> CallCounter::writes() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_writes;
}

long CallCounter::names() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return static_cast<long>(m_names.size());
}

void CallCounter::clear()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_counts.clear();
    m_threads.clear();
    m_writes.clear();
    m_refusals.clear();
    m_names.clear();
    m_errors = 0;
}

std::chrono::milliseconds CallCounter::timeSinceNews() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_used || m_running > 0)
        return std::chrono::milliseconds(0);
    return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - m_lastNews);
}
