// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLatin1String>
#include <QString>

// Every element name and custom tag that decides how an item behaves, once. Everything that depends
// on a tag is a table over this enumeration (value class, reader, write handler, editor).
enum class FeatureTag {
    Category,
    Boolean,
    Command,
    Integer,
    IntReg,
    Enumeration,
    Float,
    Converter,
    StringReg,
    String,
    Draw,                // region drawing of the image processing page
    Watermark,           // two check boxes side by side
    Event,               // two check boxes side by side
    CCM,                 // colour correction matrix
    PalettesMode,        // enumeration with palette pictures
    FlatFieldCorrection, // button that opens a tool
    Other                // any other element, or no tag at all
};

constexpr int kFeatureTagCount = static_cast<int>(FeatureTag::Other) + 1;

// The tag's name in descriptions and items; empty for Other.
QLatin1String featureTagName(FeatureTag tag);
// The tag of a name, case-sensitive; Other when unknown.
FeatureTag featureTag(const QString& name);

// True for the elements of a description that are features or categories: those that win over a
// register of the same name, and that a tree may show.
bool isFeatureElement(FeatureTag tag);
