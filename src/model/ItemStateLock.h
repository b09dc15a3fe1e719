// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <mutex>

// The short lock around the state of all items and their values: texts, flags, typed values, links
// between items, sets of views. One for the process, since mirror items tie trees together.
//
// Never held across a call to the host, a wait, an event loop or a slot of the GUI thread; a worker
// holds it while it calls a view, whose operations only give notice there. Recursive, so that a
// compound operation can use the single ones.
class ItemStateLock
{
public:
    ItemStateLock()
        : m_lock(mutex())
    {
    }

private:
    static std::recursive_mutex& mutex();

    std::lock_guard<std::recursive_mutex> m_lock;
};
