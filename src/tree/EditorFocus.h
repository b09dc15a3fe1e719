// SPDX-License-Identifier: Apache-2.0
#pragma once

class QWidget;

// What becomes of the focus and of half-typed text when a value editor goes or locks. GUI thread.
namespace EditorFocus {

// Whether the editor, or a widget inside it, is where its window takes keys. Also while another
// window is the active one, or a list of the editor has the keyboard for a moment.
bool isInside(const QWidget* editor);

// Whether the user typed something that was neither written nor taken back.
bool hasPendingEdit(const QWidget* editor);

// Before the editor goes or locks: its open list closes, what was typed is dropped without a
// commit, and the focus goes to the view around it, never to another editor.
void drop(QWidget* editor);

} // namespace EditorFocus
