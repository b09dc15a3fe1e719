// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <array>

// The camera's features that the user set dialog works with, and what its buttons do. Texts are
// English sources of the translation context "ORXFeatureSaveWidget". Constant; any thread.
namespace UserSetTable {

enum Feature { Current, Selector, Load, Save, PowerUp, Reset, LoadStatus };
constexpr int kFeatures = 7;

struct NeededFeature
{
    const char* name;
    bool required; // without it the dialog is not supported
};
// In the order of Feature.
const std::array<NeededFeature, kFeatures>& features();

enum class Action {
    Save,    // select the set, then "UserSetSave"
    Load,    // select the set, then "UserSetLoad"
    PowerUp, // write "UserSetDefault"
    Reset    // "DeviceReset"
};

struct Button
{
    int id;
    Action action;
    int setValue;        // value of the selector; 0 where there is none
    const char* message; // after success; empty: none
};

constexpr int kSets = 4;

const std::array<Button, 12>& buttons();
// Null for an id that no button has.
const Button* button(int id);
// Of a set value; the empty text for any other number.
const char* setName(int setValue);
// In the language of the interface.
QString translated(const char* text);

} // namespace UserSetTable
