// SPDX-License-Identifier: Apache-2.0
#include "model/NodesReadAhead.h"

#include <mutex>
#include <utility>

namespace NodesReadAhead {

namespace {

std::mutex s_mutex;
quint64 s_contentNumber = 0; // 0: nothing is kept
FeatureNodeMap s_nodes;

} // namespace

void read(const XmlDocument& document)
{
    FeatureNodeMap nodes(document.documentElement());
    const std::lock_guard<std::mutex> lock(s_mutex);
    s_contentNumber = document.contentNumber();
    s_nodes = std::move(nodes);
}

FeatureNodeMap take(const XmlDocument& document)
{
    {
        const std::lock_guard<std::mutex> lock(s_mutex);
        if (s_contentNumber != 0 && s_contentNumber == document.contentNumber()) {
            s_contentNumber = 0;
            return std::exchange(s_nodes, {});
        }
    }
    return FeatureNodeMap(document.documentElement());
}

} // namespace NodesReadAhead
