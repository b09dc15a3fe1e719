// SPDX-License-Identifier: Apache-2.0
#include "pages/PageSupport.h"

#include "tree/IFeatureTreeFinder.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXFeatureTreeView.h"

#include <QHBoxLayout>

namespace PageSupport {

void fillWithView(IORXFeatureWidget* page)
{
    auto* layout = new QHBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(page->treeView());
}

ORXFeatureTree* treeOf(qint64 cameraId)
{
    IFeatureTreeFinder* finder = IFeatureTreeFinder::instance();
    return finder && finder->hasFeatureTree(cameraId) ? finder->featureTree(cameraId, false)
                                                      : nullptr;
}

bool writeThroughTree(qint64 cameraId, const QString& tagName, const QString& nodeName,
                      const QVariant& value)
{
    ORXFeatureTree* tree = treeOf(cameraId);
    return tree ? tree->setFeatureValue(tagName, nodeName, value) : true;
}

} // namespace PageSupport
