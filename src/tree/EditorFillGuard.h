// SPDX-License-Identifier: Apache-2.0
#pragma once

class ORXPropertyTreeDelegate;
class QWidget;

// Keeps an editor's commit signal disconnected while the editor is filled, so that filling never
// writes to the camera.
class EditorFillGuard
{
public:
    EditorFillGuard(QWidget* editor, const ORXPropertyTreeDelegate* delegate);
    ~EditorFillGuard();
    EditorFillGuard(const EditorFillGuard&) = delete;
    EditorFillGuard& operator=(const EditorFillGuard&) = delete;

private:
    QWidget* m_editor;                         // Not owned.
    const ORXPropertyTreeDelegate* m_delegate; // Not owned.
};
