// SPDX-License-Identifier: Apache-2.0
#pragma once

// Whatever calls the host from a thread of its own: the reading threads and the workers of pages.
// All of them are known here, so that a window that closes can ask every one to stop before it
// waits for the first.
//
// | operation              | thread | lock |
// |------------------------|--------|------|
// | everything             | GUI    | none |
class HostCaller
{
public:
    HostCaller();
    virtual ~HostCaller();
    HostCaller(const HostCaller&) = delete;
    HostCaller& operator=(const HostCaller&) = delete;

    // Asks for the end of all calls but the one under way; returns at once.
    virtual void requestStop() = 0;

    // The same of everyone.
    static void requestStopOfAll();
};
