// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tree/editors/ButtonEditor.h"

// The flat-field correction: a button that opens its tool, which works whatever the camera allows
// to write.
class FlatFieldEditor : public ButtonEditor
{
public:
    QWidget* create(QWidget* parent, const EditorCell& cell) const override;
    void fill(QWidget* editor, const EditorCell& cell) const override;
    bool followsReadOnly() const override { return false; }
    bool writesReadOnly() const override { return true; }
};
