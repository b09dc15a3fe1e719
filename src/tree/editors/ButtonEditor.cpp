// SPDX-License-Identifier: Apache-2.0
#include "tree/editors/ButtonEditor.h"

#include "styledctl/ZELCustomPushButton.h"

EditedValue ButtonEditor::read(QWidget*, const EditorCell&) const
{
    return {true, QVariant(), true};
}

QMetaMethod ButtonEditor::commitSignal(const QWidget&) const
{
    return QMetaMethod::fromSignal(&QPushButton::clicked);
}
