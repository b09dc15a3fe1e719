// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>

// From the moment at which the host gives its callbacks to the release of the library, which ends
// all calls until the host gives callbacks again. A release may come from inside a callback, and so
// may the next opening; code that stands below such a call holds a HostOpening and goes on without
// calling when it is over.
//
// | operation    | thread | lock          |
// |--------------|--------|---------------|
// | begin, end   | GUI    | none          |
// | everything   | any    | none (atomic) |
class HostOpening
{
public:
    // The one under way now.
    HostOpening()
        : m_number(s_number)
    {
    }
    // Whether it has ended since, also when another one has begun.
    bool isOver() const { return m_number != s_number || !isOpen(); }

    static void begin();
    static void end();
    static bool isOpen() { return s_open; }

private:
    const unsigned m_number;

    static std::atomic<unsigned> s_number;
    static std::atomic<bool> s_open;
};
