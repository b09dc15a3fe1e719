// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tree/editors/CheckBoxEditor.h"

// Two switches in one row: a check box in each cell. They lock by flags of their own, not by the
// item's read-only state.
class TwoBoxesEditor : public CheckBoxEditor
{
public:
    QWidget* create(QWidget* parent, const EditorCell& cell) const override;
    void fill(QWidget* editor, const EditorCell& cell) const override;
    bool followsReadOnly() const override { return false; }
    bool editsName() const override { return true; }
};
