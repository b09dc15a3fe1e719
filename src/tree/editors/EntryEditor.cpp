// SPDX-License-Identifier: Apache-2.0
#include "tree/editors/EntryEditor.h"

#include "model/CTreeEnumationItemValue.h"
#include "styledctl/ZELCustomComboBox.h"

#include <QIcon>

QWidget* EntryEditor::create(QWidget* parent, const EditorCell& cell) const
{
    auto* editor = new ZELCustomComboBox(
        parent, cell.isRoomy() ? ZELCustomComboBox::Style_Panel : ZELCustomComboBox::Style_Cell, 0);
    editor->setEnabled(false);
    dress(editor, cell, cell.item->value()->usesGlobalFont());
    return editor;
}

QIcon EntryEditor::icon(int) const
{
    return {};
}

void EntryEditor::fill(QWidget* editor, const EditorCell& cell) const
{
    auto* comboBox = qobject_cast<ZELCustomComboBox*>(editor);
    const auto* value = dynamic_cast<const CTreeEnumationItemValue*>(cell.item->value());
    if (!comboBox || !value)
        return;
    const QStringList english = value->displayList();
    const QStringList chinese = value->displayListCN();
    const QStringList texts = isChinese() && !chinese.isEmpty() ? chinese : english;
    QStringList shown;
    for (int i = 0; i < comboBox->count(); ++i)
        shown.append(comboBox->itemText(i));
    // An equal list is left alone: the user may have it open right now.
    if (shown != texts) {
        comboBox->clear();
        for (int i = 0; i < texts.size(); ++i) {
            comboBox->addItem(icon(i), texts.at(i), QVariant());
            comboBox->setItemData(i, texts.at(i), Qt::ToolTipRole);
        }
    }
    const auto entry = value->valueMap();
    const auto current = entry.constFind(value->number());
    comboBox->setCurrentIndex(int(current == entry.constEnd() ? -1 : english.indexOf(*current)));
    comboBox->setToolTip(comboBox->currentText());
    comboBox->setEnabled(cell.usable);
}

EditedValue EntryEditor::read(QWidget* editor, const EditorCell& cell) const
{
    const auto* comboBox = qobject_cast<ZELCustomComboBox*>(editor);
    const auto* value = dynamic_cast<const CTreeEnumationItemValue*>(cell.item->value());
    if (!comboBox || !value)
        return {};
    const QStringList english = value->displayList();
    const int row = comboBox->currentIndex();
    if (row < 0)
        return {};
    const QString text = row < english.size() ? english.at(row) : comboBox->currentText();
    const qint64 number = value->valueMap().key(text, 0);
    return {true, number, true};
}

QMetaMethod EntryEditor::commitSignal(const QWidget&) const
{
    return QMetaMethod::fromSignal(QOverload<int>::of(&QComboBox::currentIndexChanged));
}
