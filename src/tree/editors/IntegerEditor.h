// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tree/editors/TextEditor.h"

// Integers: a spin box, or a line edit for what is no plain number (addresses, hexadecimal) or too
// large for one.
class IntegerEditor : public TextEditor
{
public:
    QWidget* create(QWidget* parent, const EditorCell& cell) const override;
    void fill(QWidget* editor, const EditorCell& cell) const override;
    EditedValue read(QWidget* editor, const EditorCell& cell) const override;
    QMetaMethod commitSignal(const QWidget& editor) const override;
};
