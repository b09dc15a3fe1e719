// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureNodeMap.h"

// The nodes of the device's description, taken out of the document by the thread that parses it,
// for the camera's tree that is made from them a little later. Any thread.
namespace NodesReadAhead {

// Reads the nodes of the document and keeps them, those of one content at a time.
void read(const XmlDocument& document);
// The nodes of the document: those kept, once, if they are of this content; read now otherwise.
FeatureNodeMap take(const XmlDocument& document);

} // namespace NodesReadAhead
