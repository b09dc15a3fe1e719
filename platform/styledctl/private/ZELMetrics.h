// SPDX-License-Identifier: Apache-2.0
#pragma once

// Measures of the controls in device-independent pixels.
namespace ZELMetrics {

constexpr int kControlHeight = 32; // buttons, boxes and edits at the usual font size
constexpr int kTextPadding = 12;   // added to the font's height for a control's height
constexpr int kEditInset = 8;      // frame to text of edits
constexpr int kButtonInset = 16;   // frame to text of buttons
constexpr int kTabInset = 4;       // edge to text of tabs
constexpr int kIconGap = 6;        // icon to text
constexpr int kSpinButtonWidth = 22;
constexpr int kComboArrowWidth = 26;
constexpr int kComboArrowGap = 7; // of it before the arrow, for a text that needs it
constexpr int kIndicator = 18;    // check box
constexpr int kCompactIndicator = 15;
constexpr int kSwitchWidth = 36;
constexpr int kSwitchHeight = 20;
constexpr int kLabelGap = 8;  // check box to its text
constexpr int kFocusRoom = 3; // around check boxes for the focus ring
constexpr int kSliderHandle = 16;
constexpr int kSplitterWidth = 3;
constexpr int kSliderGroove = 4;
constexpr int kArrow = 14;
constexpr double kRadius = 4;
constexpr double kDisabledIconOpacity = 0.45;

} // namespace ZELMetrics
