// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "program/CallCounter.h"

#include <OBFeatureTree/OBFeatureTree.h>

#include <functional>

class Camera;

// Makes a Camera fit the callbacks of the feature window: hand the static functions and the address
// of this object (as `user`) to OB_FT_SetCallBackFunc. Must outlive the window.
//
// The functions may be called from any thread, several at once. They never throw: an exception of
// the camera becomes CameraError::Internal. Texts are converted between the local 8-bit code page
// of the window and the UTF-8 of the camera.
class HostCallbacks
{
public:
    // `camera` is not owned.
    explicit HostCallbacks(Camera& camera);

    static int getFeature(int type, char* name, void* value, void* user);
    static int setFeature(int type, char* name, char* value, void* user);
    static int getMode(char* name, int* mode, void* user);
    static int invalidate(void* user);
    static int action(int action, void* user);

    CallCounter& calls() { return m_calls; }
    const CallCounter& calls() const { return m_calls; }

    // Called with the action code, on the thread of the window. Set it before the window starts.
    void setActionHandler(std::function<void(int)> handler);

private:
    Camera& m_camera; // Not owned.
    CallCounter m_calls;
    std::function<void(int)> m_actionHandler;
};
