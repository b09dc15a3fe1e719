// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "pages/CuratedPage.h"

// The page of image processing features. Owned by the main widget; GUI thread.
class ORXImgProcessingFeature : public CuratedPage
{
    Q_OBJECT
public:
    explicit ORXImgProcessingFeature(QWidget* parent);

    // The page has come into sight.
    void afterCurrentTabShow() {}
};
