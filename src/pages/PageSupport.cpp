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

bool writeThroughTree(qint64 cameraId, const QString& tagName, const QString& nodeName,
                      const QVariant& value)
{
    IFeatureTreeFinder* finder = IFeatureTreeFinder::instance();
    ORXFeatureTree* tree = finder && finder->hasFeatureTree(cameraId)
                               ? finder->featureTree(cameraId, false)
                               : nullptr;
    return tree ? tree->setFeatureValue(tagName, nodeName, value) : true;
}

} // namespace PageSupport
