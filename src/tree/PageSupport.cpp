// SPDX-License-Identifier: Apache-2.0
#include "tree/PageSupport.h"

#include "tree/IFeatureTreeFinder.h"

namespace PageSupport {

ORXFeatureTree* treeOf(qint64 cameraId)
{
    IFeatureTreeFinder* finder = IFeatureTreeFinder::instance();
    return finder && cameraId != -1 && finder->hasFeatureTree(cameraId)
               ? finder->featureTree(cameraId, false)
               : nullptr;
}

} // namespace PageSupport
