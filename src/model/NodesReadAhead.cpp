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
    std::future<FeatureNodeMap> nodes; // Waits when it is destroyed.
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
    exchange({document.contentNumber(),
              LoadingLane::run([document] { return FeatureNodeMap(document.documentElement()); })});
}

FeatureNodeMap take(const XmlDocument& document)
{
    Begun begun = exchange({});
    if (begun.nodes.valid() && begun.contentNumber == document.contentNumber())
        return begun.nodes.get();
    return FeatureNodeMap(document.documentElement());
}

void drop()
{
    exchange({});
}

} // namespace NodesReadAhead
