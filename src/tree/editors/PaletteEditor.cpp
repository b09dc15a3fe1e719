// SPDX-License-Identifier: Apache-2.0
#include "tree/editors/PaletteEditor.h"

#include "model/CTreeItemValue.h"
#include "styledctl/ZELCustomComboBox.h"

#include <QIcon>

namespace {

constexpr int kHeight = 32;
const QSize kIconSize(182, 22);

const char* const kNames[] = {
    "mode1_WhiteHot", "mode2_BlackHot", "mode3_Fusion1",   "mode4_Rainbow", "mode5_Fusion2",
    "mode6_Ironbow1", "mode7_Ironbow2", "mode8_Sepia",     "mode9_Color1",  "mode10_Color2",
    "mode11_IceFire", "mode12_Rain",    "mode13_GreenHot", "mode14_RedHot"};

} // namespace

QWidget* PaletteEditor::create(QWidget* parent, const EditorCell& cell) const
{
    auto* editor = new ZELCustomComboBox(parent, ZELCustomComboBox::Style_Panel, 0);
    editor->setFixedHeight(kHeight);
    editor->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    editor->setIconSize(kIconSize);
    dress(editor, cell, cell.item->value()->usesGlobalFont());
    return editor;
}

void PaletteEditor::fill(QWidget* editor, const EditorCell& cell) const
{
    EntryEditor::fill(editor, cell);
    const CTreeItemValue* value = cell.item->value();
    if (auto* comboBox = qobject_cast<ZELCustomComboBox*>(editor))
        comboBox->cSetCaption(isChinese() ? value->translateName() : value->displayName());
}

QIcon PaletteEditor::icon(int position) const
{
    constexpr int kCount = sizeof(kNames) / sizeof(kNames[0]);
    const QString name = position < kCount ? QString::fromLatin1(kNames[position]) : QString();
    const QString file = QStringLiteral(":/ORX/Temperature/%1.png").arg(name);
    QIcon icon(file);
    // The colours are what the user chooses by: a selected entry shows them as they are, too.
    icon.addFile(file, QSize(), QIcon::Selected);
    return icon;
}
