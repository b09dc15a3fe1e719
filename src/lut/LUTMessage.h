// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointer>

class QString;
class QWidget;
class ZELCustomMessageBox;

// The message box of the curve editor: one at a time, over the editor. It does not hold up the
// caller, which may be the end of a transfer. Owned by QLUTDrawWidget; GUI thread.
class LUTMessage
{
public:
    // `editor` is not owned.
    explicit LUTMessage(QWidget* editor);

    // In place of the one that is shown. `hintStyle` is one of ZELCustomMessageBox.
    void show(const QString& text, int hintStyle);
    // Whether the user has an error before him.
    bool showsError() const;

private:
    QWidget* const m_pEditor;             // Not owned.
    QPointer<ZELCustomMessageBox> m_pBox; // Owned by the editor (child).
};
