// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tree/editors/ButtonEditor.h"

// Commands of the camera: a button that executes.
class CommandEditor : public ButtonEditor
{
public:
    QWidget* create(QWidget* parent, const EditorCell& cell) const override;
    void fill(QWidget* editor, const EditorCell& cell) const override;
};
