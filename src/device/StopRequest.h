// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>

// Ends a worker's calls of the host. While a StopRequest::Scope stands on a thread and its request
// is set, OBDeviceControl answers every read, write and question about access with
// DeviceError::kStopped, without calling the host: a stop takes effect within the one call that is
// under way, also in code that does not ask. What puts the camera back as it was found passes (see
// PuttingBack).
//
// | operation                   | thread | lock          |
// |-----------------------------|--------|---------------|
// | request, clear, isRequested | any    | none (atomic) |
// | Scope, PuttingBack, isHere  | each thread for itself | none |
class StopRequest
{
public:
    StopRequest() = default;
    StopRequest(const StopRequest&) = delete;
    StopRequest& operator=(const StopRequest&) = delete;

    void request() { m_bRequested = true; }
    void clear() { m_bRequested = false; }
    bool isRequested() const { return m_bRequested; }

    // Makes this thread's calls of the host subject to `request` while it stands. A local.
    class Scope
    {
    public:
        explicit Scope(const StopRequest& request);
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        const StopRequest* const m_before; // Not owned.
    };

    // Lets this thread's calls pass whatever is requested, while it stands. A local, around the
    // writes that put a selector or a switch back.
    class PuttingBack
    {
    public:
        PuttingBack();
        ~PuttingBack();
        PuttingBack(const PuttingBack&) = delete;
        PuttingBack& operator=(const PuttingBack&) = delete;
    };

    // Whether a call of the host that this thread would make now is refused.
    static bool isHere();

private:
    std::atomic<bool> m_bRequested{false};
};
