// SPDX-License-Identifier: Apache-2.0
#include "tree/editors/TextEditor.h"

#include "model/CTreeItemValue.h"
#include "tree/QPropertyLineEdit.h"

QWidget* TextEditor::create(QWidget* parent, const EditorCell& cell) const
{
    auto* editor = new QPropertyLineEdit(parent, cell.isRoomy() ? ZELCustomLineEdit::Style_Panel
                                                                : ZELCustomLineEdit::Style_Cell);
    editor->setEnabled(false);
    dress(editor, cell, cell.item->value()->usesGlobalFont());
    return editor;
}

void TextEditor::show(QWidget* editor, const EditorCell& cell, const QString& text, int kind)
{
    auto* lineEdit = qobject_cast<QPropertyLineEdit*>(editor);
    if (!lineEdit)
        return;
    // What the user is typing must survive a value that arrives meanwhile.
    if (cell.usable && lineEdit->hasPendingEdit()) {
        lineEdit->SetRollbackText(text, kind);
    } else {
        const bool changed = lineEdit->text() != text;
        // The user is about to type over it: what he types must not be added to the new text.
        const bool typesOver = lineEdit->hasFocus() && lineEdit->selectedText() == lineEdit->text();
        lineEdit->SetText(text, kind);
        if (changed && typesOver)
            lineEdit->selectAll();
    }
    lineEdit->setEnabled(cell.usable);
    if (!cell.usable)
        lineEdit->deselect();
}

EditedValue TextEditor::read(QWidget* editor, const EditorCell&) const
{
    EditedValue edited;
    auto* lineEdit = qobject_cast<QPropertyLineEdit*>(editor);
    if (!lineEdit)
        return edited;
    edited.write = lineEdit->SaveProperty(edited.value);
    if (!edited.write)
        lineEdit->Rollback();
    return edited;
}

QMetaMethod TextEditor::commitSignal(const QWidget&) const
{
    return QMetaMethod::fromSignal(&QLineEdit::editingFinished);
}
