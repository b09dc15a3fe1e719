// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <future>
#include <memory>
#include <system_error>
#include <utility>

// What is loaded while a window is being made, piece after piece in the order in which it was
// asked for: more than one thread beside the one that makes the window would only take the
// processor from it. Any thread.
class LoadingLane
{
public:
    LoadingLane() = delete;

    // Calls `load()` on a thread of its own when the pieces before it have ended; at once, on the
    // caller's and waiting for nobody, where the system gives no thread: the caller may be a piece
    // itself. The result's destruction waits for the end.
    template <typename Load>
    static auto run(const Load& load) -> std::future<decltype(load())>
    {
        // Told, or dropped untold, with the piece.
        const auto ended = std::make_shared<std::promise<void>>();
        const End before = exchange(ended->get_future().share());
        try {
            return std::async(std::launch::async, [before, ended, load] {
                if (before.valid())
                    before.wait();
                const std::shared_ptr<void> tell(nullptr, [&](void*) { ended->set_value(); });
                return load();
            });
        } catch (const std::system_error&) {
            ended->set_value();
            auto now = std::async(std::launch::deferred, load);
            now.wait();
            return now;
        }
    }

private:
    using End = std::shared_future<void>;
    // The end of the piece that was the last one so far.
    static End exchange(End next);
};
