// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tree/IORXFeatureWidget.h"

// The page of trigger, line and encoder features. Owned by the main widget; GUI thread.
// Writes go through the camera's whole tree.
class ORXTriggerFeature : public IORXFeatureWidget
{
    Q_OBJECT
public:
    explicit ORXTriggerFeature(QWidget* parent);

    bool setFeatureValue(const QString& tagName, const QString& nodeName,
                         const QVariant& value) override;
};
