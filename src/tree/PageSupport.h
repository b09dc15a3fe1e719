// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

class ORXFeatureTree;

// What pages and dialogs have in common. GUI thread.
namespace PageSupport {

// The whole tree of the camera; null when it has none.
ORXFeatureTree* treeOf(qint64 cameraId);

} // namespace PageSupport
