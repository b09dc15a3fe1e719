// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cameras/Camera.h"
#include "cameras/CameraNodeMap.h"

#include <memory>
#include <mutex>

// What all cameras that work through a node map have in common: one lock around every call (node
// maps are not thread-safe), and hooks around reads and writes. A camera without a node map answers
// every call with NoDescription. Calls to a lost camera do not wait for the lock, which a
// reconnect() may hold for seconds; so isConnected() must not take it.
class NodeMapCamera : public Camera
{
public:
    int read(int type, const std::string& name, void* record) final;
    int write(int type, const std::string& name, const std::string& text) final;
    int accessMode(const std::string& name, int* mode) final;

protected:
    // Hooks; all are called with the lock held.
    // Before every call; anything but Ok refuses it.
    virtual int enter();
    virtual void aboutToRead(const std::string& /*name*/) {}
    // Anything but Ok refuses the write.
    virtual int aboutToWrite(const std::string& /*name*/, const std::string& /*text*/) { return 0; }
    // After a write that succeeded.
    virtual void written(const std::string& /*name*/, const std::string& /*text*/) {}
    // After every call that passed enter(); returns what the caller sees.
    virtual int leave(int result) { return result; }

    mutable std::mutex m_mutex;
    std::unique_ptr<CameraNodeMap> m_map; // Null when there is no node map.
};
