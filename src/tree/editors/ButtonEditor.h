// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tree/editors/EditorKind.h"

// What all kinds of buttons have in common: a click executes.
class ButtonEditor : public EditorKind
{
public:
    EditedValue read(QWidget* editor, const EditorCell& cell) const override;
    QMetaMethod commitSignal(const QWidget& editor) const override;
};
