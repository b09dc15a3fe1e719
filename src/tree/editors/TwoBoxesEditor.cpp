// SPDX-License-Identifier: Apache-2.0
#include "tree/editors/TwoBoxesEditor.h"

#include "model/CTreeCustomWaterMarkItemValue.h"
#include "styledctl/ZELCustomCheckBox.h"

QWidget* TwoBoxesEditor::create(QWidget* parent, const EditorCell& cell) const
{
    const auto* value = dynamic_cast<const CTreeCustomWaterMarkItemValue*>(cell.item->value());
    const bool known = cell.column == 0 || cell.column == 1;
    if (!value || !known || value->nodeName(cell.column).isEmpty())
        return nullptr;
    auto* editor = new ZELCustomCheckBox(parent, ZELCustomCheckBox::Style_Label);
    editor->setText(value->toolTip(cell.column));
    editor->setCheckState(static_cast<Qt::CheckState>(value->checkState(cell.column)));
    dress(editor, cell, false);
    return editor;
}

void TwoBoxesEditor::fill(QWidget* editor, const EditorCell& cell) const
{
    const auto* value = dynamic_cast<const CTreeCustomWaterMarkItemValue*>(cell.item->value());
    auto* checkBox = qobject_cast<ZELCustomCheckBox*>(editor);
    if (!value || !checkBox)
        return;
    checkBox->setText(value->toolTip(cell.column));
    checkBox->setToolTip(checkBox->text());
    checkBox->setCheckState(static_cast<Qt::CheckState>(value->checkState(cell.column)));
    checkBox->setEnabled(cell.usable && !value->isColumnDisabled(cell.column));
}
