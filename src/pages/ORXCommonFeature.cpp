// SPDX-License-Identifier: Apache-2.0
#include "pages/ORXCommonFeature.h"

#include "pages/PageSupport.h"

ORXCommonFeature::ORXCommonFeature(QWidget* parent)
    : IORXFeatureWidget(ORXPropertyTreeItem::CommonPage, parent)
{
    PageSupport::fillWithView(this);
}

bool ORXCommonFeature::setFeatureValue(const QString& tagName, const QString& nodeName,
    const QVariant& value)
{
    return PageSupport::writeThroughTree(cameraID(), tagName, nodeName, value);
}
