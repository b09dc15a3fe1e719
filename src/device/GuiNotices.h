// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>

class NoticeQueue;

// What worker threads have to tell an object of the GUI thread, which owns this one. The notices of
// all objects wait in one queue, in the order in which they were given, and are told in turns of
// the event loop that leave room for painting and input: however fast a camera is read, the window
// answers. What still waits when this object goes is never told.
//
// | operation                            | thread | lock                                       |
// |--------------------------------------|--------|--------------------------------------------|
// | tell                                 | any    | the queue's, inside; no notice is told     |
// |                                      |        | under it                                   |
// | GuiNotices, ~GuiNotices,             | GUI    | the queue's, inside                        |
// | behindWaiting                        |        |                                            |
class GuiNotices
{
public:
    using Notice = std::function<void()>;

    GuiNotices();
    ~GuiNotices();
    GuiNotices(const GuiNotices&) = delete;
    GuiNotices& operator=(const GuiNotices&) = delete;

    // On the GUI thread at once, from any other in a later turn.
    void tell(Notice notice);
    // Behind every notice that waits; at once when none does.
    void behindWaiting(const Notice& notice);

private:
    const std::shared_ptr<NoticeQueue> m_queue;
};
