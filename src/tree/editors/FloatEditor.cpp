// SPDX-License-Identifier: Apache-2.0
#include "tree/editors/FloatEditor.h"

#include "model/CTreeFloatItemValue.h"
#include "tree/QPropertyLineEdit.h"

void FloatEditor::fill(QWidget* editor, const EditorCell& cell) const
{
    const auto* value = dynamic_cast<const CTreeFloatItemValue*>(cell.item->value());
    auto* lineEdit = qobject_cast<QPropertyLineEdit*>(editor);
    if (!value || !lineEdit)
        return;
    const CTreeFloatItemValue::Numbers n = value->numbers();
    show(editor, cell, value->displayValue(), QPropertyLineEdit::Float);
    lineEdit->SetRange(n.m_fMaxValue, n.m_fMinValue);
}
