// SPDX-License-Identifier: Apache-2.0
#include "tree/editors/CheckBoxEditor.h"

#include "model/CTreeBooleanItemValue.h"
#include "styledctl/ZELCustomCheckBox.h"

QWidget* CheckBoxEditor::create(QWidget* parent, const EditorCell& cell) const
{
    auto* editor = new ZELCustomCheckBox(parent, cell.isRoomy() ? ZELCustomCheckBox::Style_Switch
                                                                : ZELCustomCheckBox::Style_Cell);
    editor->setEnabled(false);
    editor->setFixedSize(editor->sizeHint());
    dress(editor, cell, cell.item->value()->usesGlobalFont());
    return editor;
}

void CheckBoxEditor::fill(QWidget* editor, const EditorCell& cell) const
{
    auto* checkBox = qobject_cast<ZELCustomCheckBox*>(editor);
    const auto* value = dynamic_cast<const CTreeBooleanItemValue*>(cell.item->value());
    if (!checkBox || !value)
        return;
    checkBox->setChecked(value->checked());
    checkBox->setEnabled(cell.usable);
}

EditedValue CheckBoxEditor::read(QWidget* editor, const EditorCell&) const
{
    const auto* checkBox = qobject_cast<ZELCustomCheckBox*>(editor);
    return checkBox ? EditedValue{true, checkBox->isChecked(), false} : EditedValue();
}

QMetaMethod CheckBoxEditor::commitSignal(const QWidget&) const
{
    return QMetaMethod::fromSignal(&QCheckBox::stateChanged);
}
