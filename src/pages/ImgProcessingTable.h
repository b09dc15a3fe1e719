// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "pages/CuratedPageTable.h"

// What the image processing page shows, and the names of its page items.
namespace ImgProcessing {

constexpr char kROIGroup[] = "Custom_ROIGroup";
constexpr char kAOIGroup[] = "Custom_AOIGroup";
constexpr char kEmbeddedInfoGroup[] = "Custom_EmbeddedInfoGroup";
constexpr char kEventGroup[] = "Custom_EventGroup";
constexpr char kLUTGroup[] = "Custom_LUTGroup";
constexpr char kCCMGroup[] = "Custom_CCMGroup";
constexpr char kPaletteGroup[] = "Custom_PaletteGroup";

constexpr char kDraw[] = "Custom_ROIDraw";
constexpr char kLUTLineType[] = "Custom_LUTLineType";
constexpr char kLUTGamma[] = "Custom_LUTGamma";
constexpr char kLUTContrast[] = "Custom_LUTContrast";
constexpr char kLUTLum[] = "Custom_LUTLum";
constexpr char kLUTLoadFromCamera[] = "Custom_LUTLoadFromCamera";
constexpr char kLUTSetToCamera[] = "Custom_LUTSetToCamera";
constexpr char kLUTLoadFromFile[] = "Custom_LUTLoadFromFile";
constexpr char kLUTSetToFile[] = "Custom_LUTSetToFile";
constexpr char kLUTClear[] = "Custom_LUTClear";
constexpr char kCCMEnable[] = "Custom_CCMEnable";
constexpr char kCCM[] = "Custom_CCM";
constexpr char kPalette[] = "Custom_PalettesMode";

constexpr char kLUTEnable[] = "LUTEnable";
constexpr char kPalettesMode[] = "PalettesMode";

const CuratedPageTable& table();

} // namespace ImgProcessing
