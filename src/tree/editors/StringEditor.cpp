// SPDX-License-Identifier: Apache-2.0
#include "tree/editors/StringEditor.h"

#include "model/CTreeStringItemValue.h"
#include "tree/QPropertyLineEdit.h"

void StringEditor::fill(QWidget* editor, const EditorCell& cell) const
{
    const auto* value = dynamic_cast<const CTreeStringItemValue*>(cell.item->value());
    auto* lineEdit = qobject_cast<QPropertyLineEdit*>(editor);
    if (!value || !lineEdit)
        return;
    show(editor, cell, value->displayValue(), QPropertyLineEdit::Text);
    lineEdit->SetStringLength(value->maxLength());
}
