// SPDX-License-Identifier: Apache-2.0
#include "pages/ORXTriggerFeature.h"

#include "pages/PageSupport.h"

ORXTriggerFeature::ORXTriggerFeature(QWidget* parent)
    : IORXFeatureWidget(ORXPropertyTreeItem::TriggerPage, parent)
{
    PageSupport::fillWithView(this);
}

bool ORXTriggerFeature::setFeatureValue(const QString& tagName, const QString& nodeName,
    const QVariant& value)
{
    return PageSupport::writeThroughTree(cameraID(), tagName, nodeName, value);
}
