// SPDX-License-Identifier: Apache-2.0
#include "model/NodesReadAhead.h"

#include "device/LoadingLane.h"

#include <future>
#include <memory>
#include <mutex>
#include <utility>

namespace NodesReadAhead {

namespace {

struct Begun
{
    quint64 contentNumber = 0;
    std::future<FeatureNodeMap> nodes;
    std::shared_future<InvalidationGraph> invalidation;
};

std::mutex s_mutex;
Begun s_begun;

Begun exchange(Begun next)
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    return std::exchange(s_begun, std::move(next));
}

} // namespace

// The texts of the first rows come before what the first write needs: the graph goes to the end of
// the lane once the nodes are read.
void begin(const XmlDocument& document)
{
    const auto invalidation = std::make_shared<std::promise<InvalidationGraph>>();
    auto nodes = LoadingLane::run([document, invalidation] {
        const FeatureNodeMap read(document.documentElement());
        LoadingLane::run(
            [read, invalidation] { invalidation->set_value(InvalidationGraph(read)); });
        return read;
    });
    exchange({document.contentNumber(), std::move(nodes), invalidation->get_future().share()});
}

Nodes take(const XmlDocument& document)
{
    Begun begun = exchange({});
    if (begun.nodes.valid() && begun.contentNumber == document.contentNumber())
        return {begun.nodes.get(), begun.invalidation};
    return {FeatureNodeMap(document.documentElement()), {}};
}

void drop()
{
    exchange({});
}

} // namespace NodesReadAhead
