// SPDX-License-Identifier: Apache-2.0
#include "model/ItemValueFactory.h"

#include "model/CTreeBooleanItemValue.h"
#include "model/CTreeCommandItemValue.h"
#include "model/CTreeCustomCCMItemValue.h"
#include "model/CTreeCustomDrawItemValue.h"
#include "model/CTreeCustomWaterMarkItemValue.h"
#include "model/CTreeEnumationItemValue.h"
#include "model/CTreeFloatItemValue.h"
#include "model/CTreeIntergerItemValue.h"
#include "model/CTreeStringItemValue.h"

#include <array>

namespace {

using Maker = std::unique_ptr<CTreeItemValue> (*)();

template <typename Value>
std::unique_ptr<CTreeItemValue> make()
{
    return std::make_unique<Value>();
}

// In the order of FeatureTag.
const std::array<Maker, kFeatureTagCount> kMakers = {
    make<CTreeItemValue>,                // Category
    make<CTreeBooleanItemValue>,         // Boolean
    make<CTreeCommandItemValue>,         // Command
    make<CTreeIntergerItemValue>,        // Integer
    make<CTreeIntergerItemValue>,        // IntReg
    make<CTreeEnumationItemValue>,       // Enumeration
    make<CTreeFloatItemValue>,           // Float
    make<CTreeFloatItemValue>,           // Converter
    make<CTreeStringItemValue>,          // StringReg
    make<CTreeStringItemValue>,          // String
    make<CTreeCustomDrawItemValue>,      // Draw
    make<CTreeCustomWaterMarkItemValue>, // Watermark
    make<CTreeCustomWaterMarkItemValue>, // Event
    make<CTreeCustomCCMItemValue>,       // CCM
    make<CTreeEnumationItemValue>,       // PalettesMode
    make<CTreeItemValue>,                // FlatFieldCorrection
    make<CTreeItemValue>,                // Other
};

} // namespace

std::unique_ptr<CTreeItemValue> makeItemValue(FeatureTag tag)
{
    return kMakers[static_cast<std::size_t>(tag)]();
}
