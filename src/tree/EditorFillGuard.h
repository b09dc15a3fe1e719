// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QMetaMethod>

class QWidget;

// Keeps an editor's commit signal disconnected while the editor is filled, so that filling never
// writes to the camera.
class EditorFillGuard
{
public:
    // `commit` is the editor's signal, `slot` the receiver's. An invalid signal stays unconnected.
    EditorFillGuard(const QWidget* editor, const QMetaMethod& commit, const QObject* receiver,
                    const QMetaMethod& slot);
    ~EditorFillGuard();
    EditorFillGuard(const EditorFillGuard&) = delete;
    EditorFillGuard& operator=(const EditorFillGuard&) = delete;

private:
    const QWidget* m_editor; // Not owned.
    QMetaMethod m_commit;
    const QObject* m_receiver; // Not owned.
    QMetaMethod m_slot;
};
