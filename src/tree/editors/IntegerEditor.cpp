// SPDX-License-Identifier: Apache-2.0
#include "tree/editors/IntegerEditor.h"

#include "device/ORXListenTools.h"
#include "model/CTreeIntergerItemValue.h"
#include "tree/ORXPropertySpinBox.h"
#include "tree/QPropertyLineEdit.h"

#include <QDebug>

namespace {

// Down onto the grid of the increment that starts at the minimum; the distance is taken without
// sign, so that ranges wider than 63 bits do not overflow.
qint64 onGrid(qint64 value, qint64 minimum, qint64 step)
{
    if (value <= minimum)
        return minimum;
    if (step <= 0)
        return value;
    const quint64 distance = static_cast<quint64>(value) - static_cast<quint64>(minimum);
    const quint64 steps = distance / static_cast<quint64>(step);
    return static_cast<qint64>(static_cast<quint64>(minimum) + steps * static_cast<quint64>(step));
}

void fillSpinBox(ORXPropertySpinBox* spinBox, const CTreeIntergerItemValue::Numbers& n, bool usable)
{
    // What the user is typing must survive a value that arrives meanwhile.
    if (usable && spinBox->hasPendingEdit()) {
        spinBox->setBehindText(n.m_nMinValue, n.m_nMaxValue, n.m_nValue);
    } else {
        spinBox->setRange(n.m_nMinValue, n.m_nMaxValue);
        spinBox->setValue(n.m_nValue);
    }
    spinBox->setSingleStep(n.m_nIncrement);
    spinBox->setEnabled(usable);
    spinBox->resetToolTip();
    if (!usable)
        spinBox->deselect();
}

} // namespace

QWidget* IntegerEditor::create(QWidget* parent, const EditorCell& cell) const
{
    const auto* value = dynamic_cast<const CTreeIntergerItemValue*>(cell.item->value());
    if (!value)
        return nullptr;
    if (value->isEditedAsText())
        return TextEditor::create(parent, cell);
    auto* editor = new ORXPropertySpinBox(parent, cell.isRoomy() ? ZELCustomSpinBox64::Style_Panel
                                                                 : ZELCustomSpinBox64::Style_Cell);
    ORXListenTools::instance()->addListener(editor, ORXListenTools::PriorityNormal);
    editor->setEnabled(false);
    dress(editor, cell, value->usesGlobalFont());
    return editor;
}

void IntegerEditor::fill(QWidget* editor, const EditorCell& cell) const
{
    const auto* value = dynamic_cast<const CTreeIntergerItemValue*>(cell.item->value());
    if (!value)
        return;
    const CTreeIntergerItemValue::Numbers n = value->numbers();
    if (auto* spinBox = qobject_cast<ORXPropertySpinBox*>(editor)) {
        fillSpinBox(spinBox, n, cell.usable);
    } else if (auto* lineEdit = qobject_cast<QPropertyLineEdit*>(editor)) {
        show(editor, cell, value->displayValue(), value->type());
        if (value->representation() == QLatin1String("PureNumber"))
            lineEdit->SetRange(n.m_nMaxValue, n.m_nMinValue);
    }
}

EditedValue IntegerEditor::read(QWidget* editor, const EditorCell& cell) const
{
    auto* spinBox = qobject_cast<ORXPropertySpinBox*>(editor);
    if (!spinBox)
        return TextEditor::read(editor, cell);
    const qint64 value = onGrid(spinBox->value(), spinBox->minimum(), spinBox->singleStep());
    qInfo().noquote() << QStringLiteral("setModelData： %1").arg(value);
    return {true, value, false};
}

QMetaMethod IntegerEditor::commitSignal(const QWidget& editor) const
{
    return qobject_cast<const ORXPropertySpinBox*>(&editor)
               ? QMetaMethod::fromSignal(&ZELCustomSpinBox64::valueChanged)
               : TextEditor::commitSignal(editor);
}
