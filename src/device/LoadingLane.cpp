// SPDX-License-Identifier: Apache-2.0
#include "device/LoadingLane.h"

#include <deque>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace {

struct Lane
{
    std::mutex mutex;
    std::deque<std::function<void()>> pieces;
    std::thread thread;
    bool works = false; // the thread takes what is added

    ~Lane() { LoadingLane::finish(); }
};

Lane& lane()
{
    static Lane lane;
    return lane;
}

} // namespace

void LoadingLane::add(const std::function<void()>& piece)
{
    Lane& own = lane();
    {
        const std::lock_guard<std::mutex> lock(own.mutex);
        if (own.works) {
            own.pieces.push_back(piece);
            return;
        }
        if (own.thread.joinable())
            own.thread.join(); // nothing but its end is left of it
        try {
            own.thread = std::thread(work);
            own.works = true;
            own.pieces.push_back(piece);
            return;
        } catch (const std::system_error&) {
            // No thread to be had.
        }
    }
    piece();
}

void LoadingLane::work()
{
    Lane& own = lane();
    for (;;) {
        std::function<void()> piece;
        {
            const std::lock_guard<std::mutex> lock(own.mutex);
            if (own.pieces.empty()) {
                own.works = false;
                return;
            }
            piece = std::move(own.pieces.front());
            own.pieces.pop_front();
        }
        piece();
    }
}

void LoadingLane::finish()
{
    std::thread ending;
    {
        const std::lock_guard<std::mutex> lock(lane().mutex);
        ending = std::move(lane().thread);
    }
    if (ending.joinable())
        ending.join();
}
