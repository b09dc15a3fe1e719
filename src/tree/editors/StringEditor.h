// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tree/editors/TextEditor.h"

// Texts, up to the length that the camera can keep.
class StringEditor : public TextEditor
{
public:
    void fill(QWidget* editor, const EditorCell& cell) const override;
};
