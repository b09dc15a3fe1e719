// SPDX-License-Identifier: Apache-2.0
#pragma once

// A widget that wants to hear of events raised elsewhere in the library. Registered with
// ORXListenTools, which never deletes it. Called on the sender's thread, always the GUI thread.
class IORXListen
{
public:
    virtual ~IORXListen() = default;

    // `data` belongs to the sender and is valid only during the call; what it points to depends on
    // `code` (see ListenCode in ORXListenTools.h). The result is not used.
    virtual int notify(int code, void* data) = 0;
};
