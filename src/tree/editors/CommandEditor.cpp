// SPDX-License-Identifier: Apache-2.0
#include "tree/editors/CommandEditor.h"

#include "model/CTreeItemValue.h"
#include "styledctl/ZELCustomPushButton.h"

QWidget* CommandEditor::create(QWidget* parent, const EditorCell& cell) const
{
    auto* editor = new ZELCustomPushButton(parent, ZELCustomPushButton::Style_Cell);
    editor->setEnabled(false);
    dress(editor, cell, cell.page == ORXPropertyTreeItem::FeatureTreePage);
    return editor;
}

void CommandEditor::fill(QWidget* editor, const EditorCell& cell) const
{
    auto* button = qobject_cast<ZELCustomPushButton*>(editor);
    if (!button)
        return;
    button->setText(isChinese() ? QStringLiteral("执行") : QStringLiteral("Execute"));
    // The software trigger stays clickable in fast succession.
    if (cell.item->value()->nodeName(0) != QLatin1String("TriggerSoftware"))
        button->cSetControlClickEvent(true);
    button->setEnabled(cell.usable);
}
