// SPDX-License-Identifier: Apache-2.0
#include "tree/editors/EditorKinds.h"

#include "tree/editors/CheckBoxEditor.h"
#include "tree/editors/CommandEditor.h"
#include "tree/editors/EntryEditor.h"
#include "tree/editors/ExternalEditor.h"
#include "tree/editors/FlatFieldEditor.h"
#include "tree/editors/FloatEditor.h"
#include "tree/editors/IntegerEditor.h"
#include "tree/editors/PaletteEditor.h"
#include "tree/editors/StringEditor.h"
#include "tree/editors/TwoBoxesEditor.h"

#include <array>

const EditorKind* EditorKinds::of(FeatureTag tag)
{
    static const CheckBoxEditor checkBox;
    static const CommandEditor command;
    static const IntegerEditor integer;
    static const EntryEditor entry;
    static const FloatEditor real;
    static const StringEditor text;
    static const TwoBoxesEditor twoBoxes;
    static const ExternalEditor external;
    static const PaletteEditor palette;
    static const FlatFieldEditor flatField;
    // In the order of FeatureTag.
    static const std::array<const EditorKind*, kFeatureTagCount> kinds = {
        nullptr,    // Category
        &checkBox,  // Boolean
        &command,   // Command
        &integer,   // Integer
        &integer,   // IntReg
        &entry,     // Enumeration
        &real,      // Float
        &real,      // Converter
        &text,      // StringReg
        &text,      // String
        nullptr,    // Draw
        &twoBoxes,  // Watermark
        &twoBoxes,  // Event
        &external,  // CCM
        &palette,   // PalettesMode
        &flatField, // FlatFieldCorrection
        nullptr,    // Other
    };
    return kinds[static_cast<std::size_t>(tag)];
}
