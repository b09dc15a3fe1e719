// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tree/editors/EditorKind.h"

// What all kinds of typed text have in common: a line edit that checks what is typed. The kinds
// below it say what it shows.
class TextEditor : public EditorKind
{
public:
    QWidget* create(QWidget* parent, const EditorCell& cell) const override;
    EditedValue read(QWidget* editor, const EditorCell& cell) const override;
    QMetaMethod commitSignal(const QWidget& editor) const override;

protected:
    // `kind` is a QPropertyLineEdit::ValueKind.
    static void show(QWidget* editor, const EditorCell& cell, const QString& text, int kind);
};
