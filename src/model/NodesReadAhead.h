// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureNodeMap.h"
#include "model/InvalidationGraph.h"

#include <future>

// The nodes of the device's description and what depends on what among them, taken out of the
// document on the loading lane while the window goes on being made, for the camera's tree that is
// built from them. Any thread.
namespace NodesReadAhead {

struct Nodes
{
    FeatureNodeMap nodes;
    std::shared_future<InvalidationGraph> invalidation; // invalid where it was not begun
};

// Begins to read the nodes of the document, of which it keeps a copy; what was begun before and not
// taken is dropped.
void begin(const XmlDocument& document);
// The nodes of the document: once those begun, if they are of this content, as soon as they are
// read; read now otherwise.
Nodes take(const XmlDocument& document);
// Drops what was begun.
void drop();

} // namespace NodesReadAhead
