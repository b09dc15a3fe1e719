// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tree/editors/EditorKind.h"

// Switches: a check box.
class CheckBoxEditor : public EditorKind
{
public:
    QWidget* create(QWidget* parent, const EditorCell& cell) const override;
    void fill(QWidget* editor, const EditorCell& cell) const override;
    EditedValue read(QWidget* editor, const EditorCell& cell) const override;
    QMetaMethod commitSignal(const QWidget& editor) const override;
};
