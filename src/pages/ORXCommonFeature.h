// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tree/IORXFeatureWidget.h"

// The page of the features that most users need. Owned by the main widget; GUI thread.
// Writes go through the camera's whole tree.
class ORXCommonFeature : public IORXFeatureWidget
{
    Q_OBJECT
public:
    explicit ORXCommonFeature(QWidget* parent);

    bool setFeatureValue(const QString& tagName, const QString& nodeName,
                         const QVariant& value) override;
};
