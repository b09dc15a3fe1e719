// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

class ORXFeatureTree;

// Finds the whole tree of a camera, for pages and trees. Implemented by the main widget, which
// installs itself while it lives; GUI thread.
class IFeatureTreeFinder
{
public:
    virtual ~IFeatureTreeFinder() = default;

    // The camera's tree. Where there is none it is made, whatever `create` says: who wants none
    // asks hasFeatureTree() first.
    virtual ORXFeatureTree* featureTree(qint64 cameraId, bool create) = 0;
    // Whether the camera has a tree; makes none.
    virtual bool hasFeatureTree(qint64 cameraId) const = 0;

    // The installed finder, null while there is no main widget.
    static IFeatureTreeFinder* instance();
    static void install(IFeatureTreeFinder* finder);
};
