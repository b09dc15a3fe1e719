// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureNodeMap.h"

// The nodes of the device's description, taken out of the document on a thread of their own while
// the window goes on being made, for the camera's tree that is built from them. Any thread.
namespace NodesReadAhead {

// Begins to read the nodes of the document, of which it keeps a copy; what was begun before and not
// taken is dropped.
void begin(const XmlDocument& document);
// The nodes of the document: once those begun, if they are of this content, as soon as they are
// read; read now otherwise.
FeatureNodeMap take(const XmlDocument& document);
// Drops what was begun and waits for its end.
void drop();

} // namespace NodesReadAhead
