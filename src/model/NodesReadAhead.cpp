// SPDX-License-Identifier: Apache-2.0
#include "model/NodesReadAhead.h"

#include "device/LoadingLane.h"

#include <future>
#include <mutex>
#include <utility>

namespace NodesReadAhead {

namespace {

struct Begun
{
    quint64 contentNumber = 0;
    std::shared_future<FeatureNodeMap> nodes;
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

void begin(const XmlDocument& document)
{
    const auto nodes =
        LoadingLane::run([document] { return FeatureNodeMap(document.documentElement()); }).share();
    const auto invalidation =
        LoadingLane::run([nodes] { return InvalidationGraph(nodes.get()); }).share();
    exchange({document.contentNumber(), nodes, invalidation});
}

Nodes take(const XmlDocument& document)
{
    const Begun begun = exchange({});
    if (begun.nodes.valid() && begun.contentNumber == document.contentNumber())
        return {begun.nodes.get(), begun.invalidation};
    return {FeatureNodeMap(document.documentElement()), {}};
}

void drop()
{
    exchange({});
}

} // namespace NodesReadAhead
