// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <future>
#include <memory>

// What is loaded while a window is being made, piece after piece in the order in which it was
// asked for: more than one thread beside the one that makes the window would only take the
// processor from it, and so does each start of one. The thread ends with the last piece. Any
// thread.
class LoadingLane
{
public:
    LoadingLane() = delete;

    // Calls `load()`, which may ask for further pieces, on the lane's thread when the pieces before
    // it have ended; at once, on the caller's, where the system gives no thread. The result may be
    // dropped: who lends something to `load` waits for it.
    template <typename Load>
    static auto run(const Load& load) -> std::future<decltype(load())>
    {
        const auto piece = std::make_shared<std::packaged_task<decltype(load())()>>(load);
        auto result = piece->get_future();
        add([piece] { (*piece)(); });
        return result;
    }
    // Waits until all pieces have ended, and the thread with them. Not from a piece.
    static void finish();

private:
    static void add(const std::function<void()>& piece);
    static void work();
};
