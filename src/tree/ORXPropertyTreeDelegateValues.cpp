// SPDX-License-Identifier: Apache-2.0
// How ORXPropertyTreeDelegate reads what the user did in an editor.
#include "model/CTreeEnumationItemValue.h"
#include "styledctl/ZELCustomCheckBox.h"
#include "styledctl/ZELCustomComboBox.h"
#include "tree/ORXPropertySpinBox.h"
#include "tree/ORXPropertyTreeDelegate.h"
#include "tree/QPropertyLineEdit.h"

#include <QDebug>

namespace {

// Down onto the grid of the increment that starts at the minimum; the distance is taken without
// sign, so that ranges wider than 63 bits do not overflow.
qint64 onGrid(qint64 value, qint64 minimum, qint64 maximum, qint64 step)
{
    if (value > maximum)
        return maximum;
    if (value <= minimum)
        return minimum;
    if (step <= 0)
        return value;
    const quint64 distance = static_cast<quint64>(value) - static_cast<quint64>(minimum);
    const quint64 steps = distance / static_cast<quint64>(step);
    return static_cast<qint64>(static_cast<quint64>(minimum) + steps * static_cast<quint64>(step));
}

} // namespace

ORXPropertyTreeDelegate::Edited ORXPropertyTreeDelegate::readLineEdit(QWidget* editor,
                                                                      const Cell&) const
{
    Edited edited;
    auto* lineEdit = qobject_cast<QPropertyLineEdit*>(editor);
    if (!lineEdit)
        return edited;
    edited.write = lineEdit->SaveProperty(edited.value);
    if (!edited.write)
        lineEdit->Rollback();
    return edited;
}

ORXPropertyTreeDelegate::Edited ORXPropertyTreeDelegate::readInteger(QWidget* editor,
                                                                     const Cell& cell) const
{
    auto* spinBox = qobject_cast<ORXPropertySpinBox*>(editor);
    if (!spinBox)
        return readLineEdit(editor, cell);
    const qint64 value =
        onGrid(spinBox->value(), spinBox->minimum(), spinBox->maximum(), spinBox->singleStep());
    qInfo().noquote() << QStringLiteral("setModelData： %1").arg(value);
    return {true, value, false};
}

ORXPropertyTreeDelegate::Edited ORXPropertyTreeDelegate::readComboBox(QWidget* editor,
                                                                      const Cell& cell) const
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

ORXPropertyTreeDelegate::Edited ORXPropertyTreeDelegate::readButton(QWidget*, const Cell&) const
{
    return {true, QVariant(), true};
}

ORXPropertyTreeDelegate::Edited ORXPropertyTreeDelegate::readCheckBox(QWidget* editor,
                                                                      const Cell&) const
{
    const auto* checkBox = qobject_cast<ZELCustomCheckBox*>(editor);
    return checkBox ? Edited{true, checkBox->isChecked(), false} : Edited();
}
