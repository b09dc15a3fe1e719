// SPDX-License-Identifier: Apache-2.0
#include "pages/ORXImgProcessingFeature.h"

namespace {

const CuratedPageTable& imageTable()
{
    static const CuratedPageTable kTable = {"ORXImgProcessingFeature", "", {}};
    return kTable;
}

} // namespace

ORXImgProcessingFeature::ORXImgProcessingFeature(QWidget* parent)
    : CuratedPage(imageTable(), ORXPropertyTreeItem::ImageProcessingPage, parent)
{
}
