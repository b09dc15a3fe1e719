// SPDX-License-Identifier: Apache-2.0
#include "tree/editors/FlatFieldEditor.h"

#include "styledctl/ZELCustomPushButton.h"

namespace {

const QSize kIconSize(24, 24);

} // namespace

QWidget* FlatFieldEditor::create(QWidget* parent, const EditorCell& cell) const
{
    auto* editor = new ZELCustomPushButton(parent, ZELCustomPushButton::Style_Cell);
    editor->setIconSize(kIconSize);
    editor->cSetIcon(QStringLiteral(":/ORX/btn/FFC tool.png"));
    editor->cSetIconAlign(ZELCustomPushButton::Align_BesideText);
    dress(editor, cell, false);
    return editor;
}

void FlatFieldEditor::fill(QWidget* editor, const EditorCell& cell) const
{
    auto* button = qobject_cast<ZELCustomPushButton*>(editor);
    if (!button)
        return;
    button->setText(isChinese() ? QStringLiteral("打开工具") : QStringLiteral("Open Tool"));
    button->cSetControlClickEvent(true);
    button->setEnabled(cell.usable);
}
