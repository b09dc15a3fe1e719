// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "changes/FeatureFile.h"
#include "model/FeatureNodeMap.h"

// What is wrong with a feature file that only the camera's description can tell. Any thread.
namespace FeatureFileCheck {

// Lines that give a feature a second value for the same settings of its selectors: nobody can tell
// which of the two is meant. A selector's own lines may come as often as they like.
QVector<FeatureFile::Fault> repeatedLines(const FeatureFile& file, const FeatureNodeMap& nodes);

} // namespace FeatureFileCheck
