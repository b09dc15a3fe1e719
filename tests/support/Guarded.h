// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <mutex>

// Base of what several threads touch.
class Guarded
{
protected:
    // Runs the function with the mutex held; what it returns.
    template <typename Function>
    auto locked(const Function& function) const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return function();
    }
    template <typename Value>
    Value copied(const Value& value) const
    {
        return locked([&] { return value; });
    }

    mutable std::mutex m_mutex;
};
