// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureTag.h"

class EditorKind;

// Which kind of editor stands in the rows of a tag.
namespace EditorKinds {

// Null when the tag's rows have no editor. Not owned by the caller, lives as long as the process.
const EditorKind* of(FeatureTag tag);

} // namespace EditorKinds
