// SPDX-License-Identifier: Apache-2.0
#include "pages/ORXImgProcessingFeature.h"

#include "pages/PageSupport.h"

ORXImgProcessingFeature::ORXImgProcessingFeature(QWidget* parent)
    : IORXFeatureWidget(ORXPropertyTreeItem::ImageProcessingPage, parent)
{
    PageSupport::fillWithView(this);
}

bool ORXImgProcessingFeature::setFeatureValue(const QString& tagName, const QString& nodeName,
    const QVariant& value)
{
    return PageSupport::writeThroughTree(cameraID(), tagName, nodeName, value);
}
