// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tree/editors/TextEditor.h"

// Floating-point numbers, typed as text and brought into their range.
class FloatEditor : public TextEditor
{
public:
    void fill(QWidget* editor, const EditorCell& cell) const override;
};
