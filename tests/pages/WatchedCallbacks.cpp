// SPDX-License-Identifier: Apache-2.0
#include "pages/WatchedCallbacks.h"

#include "support/GuiThreadReads.h"

#include <QString>

void WatchedCallbacks::install()
{
    const GuiThreadReads::InstallingCallbacks installing;
    OB_FT_SetCallBackFunc(getFeature, HostCallbacks::setFeature, getMode, HostCallbacks::invalidate,
                          HostCallbacks::action, &m_host);
}

int WatchedCallbacks::getFeature(int type, char* name, void* value, void* user)
{
    GuiThreadReads::note("get", QString::fromLocal8Bit(name));
    return HostCallbacks::getFeature(type, name, value, user);
}

int WatchedCallbacks::getMode(char* name, int* mode, void* user)
{
    GuiThreadReads::note("mode", QString::fromLocal8Bit(name));
    return HostCallbacks::getMode(name, mode, user);
}
