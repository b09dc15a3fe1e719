// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

// Marks a stretch of GUI code that calls the host or runs pending events while widgets of the
// library stand below it on the stack. The host may release the library from inside; what would
// destroy those widgets is put off until the outermost scope has ended. GUI thread only.
class ReentrancyScope
{
public:
    ReentrancyScope() { ++s_depth; }
    ~ReentrancyScope();
    ReentrancyScope(const ReentrancyScope&) = delete;
    ReentrancyScope& operator=(const ReentrancyScope&) = delete;

    static bool isActive() { return s_depth > 0; }
    // Runs `action` now, or from the event loop after the outermost scope has ended.
    static void runWhenInactive(const std::function<void()>& action);

private:
    static int s_depth;
};
