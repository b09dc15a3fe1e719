// SPDX-License-Identifier: Apache-2.0
#pragma once

class LUTLine;
class QKeyEvent;

// What the keyboard does to a line: Page Up and Down, Home and End select a point, the arrows move
// it, Insert puts another one behind it, Delete takes it out; with Shift ten steps at once.
namespace LUTKeys {

// True when the key is one of these, whether or not it could do anything.
bool press(LUTLine& line, const QKeyEvent& event);

} // namespace LUTKeys
