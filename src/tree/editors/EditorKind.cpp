// SPDX-License-Identifier: Apache-2.0
#include "tree/editors/EditorKind.h"

#include "basetools/ORXInterface.h"
#include "model/CTreeItemValue.h"
#include "styledctl/ZELCustom.h"

#include <QWidget>

EditedValue EditorKind::read(QWidget*, const EditorCell&) const
{
    return {};
}

QMetaMethod EditorKind::commitSignal(const QWidget&) const
{
    return {};
}

void EditorKind::dress(QWidget* editor, const EditorCell& cell, bool globalFont)
{
    editor->setObjectName(cell.item->value()->nodeName(cell.column));
    if (!globalFont)
        return;
    QFont font = editor->font();
    ZELCustom::setFamily(&font);
    editor->setFont(font);
}

bool EditorKind::isChinese()
{
    return ORXInterface::language(0) == QLatin1String("CH");
}
