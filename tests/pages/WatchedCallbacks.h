// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "program/HostCallbacks.h"

// The callbacks of a host with a camera; the GUI thread's reads are told to GuiThreadReads. Must
// outlive the window.
class WatchedCallbacks
{
public:
    // `camera` is not owned.
    explicit WatchedCallbacks(Camera& camera)
        : m_host(camera)
    {
    }

    // Installs them in the window.
    void install();

private:
    static int getFeature(int type, char* name, void* value, void* user);
    static int getMode(char* name, int* mode, void* user);

    HostCallbacks m_host;
};
