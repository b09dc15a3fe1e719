// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tree/IORXFeatureWidget.h"

// The page of image processing features. Owned by the main widget; GUI thread.
// Writes go through the camera's whole tree.
class ORXImgProcessingFeature : public IORXFeatureWidget
{
    Q_OBJECT
public:
    explicit ORXImgProcessingFeature(QWidget* parent);

    bool setFeatureValue(const QString& tagName, const QString& nodeName,
                         const QVariant& value) override;

    // The page has come into sight.
    void afterCurrentTabShow() {}
};
