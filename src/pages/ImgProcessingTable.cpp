// SPDX-License-Identifier: Apache-2.0
#include "pages/ImgProcessingTable.h"

namespace ImgProcessing {

namespace {

const CTreeFloatItemValue::Numbers kGamma = {1.0F, 0.0F, 1000000.0F};
const CTreeFloatItemValue::Numbers kSigned = {0.0F, -1.0F, 1.0F};
const CuratedEntries kLineTypes = {0,
                                   {QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "Fold Line"),
                                    QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "Curve"),
                                    QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "Free Line")}};

} // namespace

const CuratedPageTable& table()
{
    static const CuratedPageTable kTable = {
        "ORXImgProcessingFeature",
        QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "Image Processing"),
        {
            {kROIGroup,
             QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "ROI"),
             {
                 "RegionSelector",
                 "RegionMode",
                 "Width",
                 "Height",
                 "OffsetX",
                 "OffsetY",
                 "BinningSelector",
                 "BinningHorizontal",
                 "BinningVertical",
                 "DecimationHorizontal",
                 "DecimationVertical",
                 "ReverseX",
                 "ReverseY",
                 {kDraw, QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "Draw ROI"), FeatureTag::Draw,
                  "Width"},
             }},
            {kAOIGroup,
             QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "AOI"),
             {
                 "AutoFunctionAOISelector",
                 "AutoFunctionAOIWidth",
                 "AutoFunctionAOIHeight",
                 "AutoFunctionAOIOffsetX",
                 "AutoFunctionAOIOffsetY",
                 "AutoFunctionAOIUsageIntensity",
                 "AutoFunctionAOIUsageWhiteBalance",
             }},
            {kEmbeddedInfoGroup,
             QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "Embedded Information"),
             {
                 "ChunkModeActive",
             }},
            {kEventGroup, QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "Event Control"), {}},
            {kLUTGroup,
             QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "LUT"),
             {
                 kLUTEnable,
                 "LUTSelector",
                 {kLUTLineType, QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "Line Type"),
                  FeatureTag::Enumeration, kLineTypes, kLUTEnable},
                 {kLUTGamma, QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "Gamma"),
                  FeatureTag::Float, kGamma},
                 {kLUTContrast, QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "Contrast"),
                  FeatureTag::Float, kSigned},
                 {kLUTLum, QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "Luminance"),
                  FeatureTag::Float, kSigned},
                 {kLUTLoadFromCamera,
                  QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "Load from Camera"),
                  FeatureTag::Command, kLUTEnable},
                 {kLUTSetToCamera, QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "Apply to Camera"),
                  FeatureTag::Command, kLUTEnable},
                 {kLUTLoadFromFile,
                  QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "Import from File"),
                  FeatureTag::Command, kLUTEnable},
                 {kLUTSetToFile, QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "Export to File"),
                  FeatureTag::Command, kLUTEnable},
                 {kLUTClear, QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "Reset Curve"),
                  FeatureTag::Command, kLUTEnable},
             }},
            {kCCMGroup,
             QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "Color Correction Matrix"),
             {
                 {kCCMEnable,
                  QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "Enable Color Correction Matrix"),
                  FeatureTag::Boolean, false},
                 {kCCM, QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "Color Correction Matrix"),
                  FeatureTag::CCM},
             }},
            {kPaletteGroup,
             QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "Palette"),
             {
                 {kPalette, QT_TRANSLATE_NOOP("ORXImgProcessingFeature", "Palette"),
                  FeatureTag::PalettesMode},
             }},
        }};
    return kTable;
}

} // namespace ImgProcessing
