// SPDX-License-Identifier: Apache-2.0
// The per-type workers of ORXPropertyTreeDelegate: making and filling editors.
#include "basetools/ORXInterface.h"
#include "device/ORXListenTools.h"
#include "model/CTreeBooleanItemValue.h"
#include "model/CTreeCustomWaterMarkItemValue.h"
#include "model/CTreeEnumationItemValue.h"
#include "model/CTreeFloatItemValue.h"
#include "model/CTreeIntergerItemValue.h"
#include "model/CTreeStringItemValue.h"
#include "styledctl/ZELCustom.h"
#include "styledctl/ZELCustomCheckBox.h"
#include "styledctl/ZELCustomComboBox.h"
#include "styledctl/ZELCustomPushButton.h"
#include "tree/ORXPropertySpinBox.h"
#include "tree/ORXPropertyTreeDelegate.h"
#include "tree/QPropertyLineEdit.h"

#include <QLineEdit>

namespace {

constexpr int kPaletteHeight = 32;
const QSize kPaletteIconSize(182, 22);
const QSize kToolIconSize(24, 24);

const char* const kPaletteNames[] = {
    "mode1_WhiteHot", "mode2_BlackHot", "mode3_Fusion1",   "mode4_Rainbow", "mode5_Fusion2",
    "mode6_Ironbow1", "mode7_Ironbow2", "mode8_Sepia",     "mode9_Color1",  "mode10_Color2",
    "mode11_IceFire", "mode12_Rain",    "mode13_GreenHot", "mode14_RedHot"};

QIcon paletteIcon(int position)
{
    constexpr int kCount = sizeof(kPaletteNames) / sizeof(kPaletteNames[0]);
    const QString name =
        position < kCount ? QString::fromLatin1(kPaletteNames[position]) : QString();
    const QString file = QStringLiteral(":/ORX/Temperature/%1.png").arg(name);
    QIcon icon(file);
    // The colours are what the user chooses by: a selected entry shows them as they are, too.
    icon.addFile(file, QSize(), QIcon::Selected);
    return icon;
}

bool isChinese()
{
    return ORXInterface::language(0) == QLatin1String("CH");
}

} // namespace

QWidget* ORXPropertyTreeDelegate::prepared(QWidget* editor, const Cell& cell, bool useFont) const
{
    editor->setObjectName(cell.item->value()->nodeName(0));
    if (useFont) {
        QFont font = editor->font();
        font.setFamily(ZELCustom::globalFontFamily(1));
        editor->setFont(font);
    }
    if (connectCommit(editor))
        return editor;
    delete editor;
    return nullptr;
}

// Integer -----------------------------------------------------------------------------------------

QWidget* ORXPropertyTreeDelegate::makeLineEdit(QWidget* parent, const Cell& cell) const
{
    auto* editor =
        new QPropertyLineEdit(parent, alternativeStyle() ? ZELCustomLineEdit::Style_Panel
                                                         : ZELCustomLineEdit::Style_Cell);
    editor->setEnabled(false);
    return prepared(editor, cell, cell.item->value()->usesGlobalFont());
}

QWidget* ORXPropertyTreeDelegate::createIntegerEditor(QWidget* parent, const Cell& cell) const
{
    const auto* value = dynamic_cast<const CTreeIntergerItemValue*>(cell.item->value());
    if (!value)
        return nullptr;
    if (value->isEditedAsText())
        return makeLineEdit(parent, cell);
    auto* editor =
        new ORXPropertySpinBox(parent, alternativeStyle() ? ZELCustomSpinBox64::Style_Panel
                                                          : ZELCustomSpinBox64::Style_Cell);
    ORXListenTools::instance()->addListener(editor, ORXListenTools::PriorityNormal);
    editor->setEnabled(false);
    return prepared(editor, cell, value->usesGlobalFont());
}

void ORXPropertyTreeDelegate::setIntegerEditorData(QWidget* editor, const Cell& cell) const
{
    const auto* value = dynamic_cast<const CTreeIntergerItemValue*>(cell.item->value());
    if (!value)
        return;
    const CTreeIntergerItemValue::Numbers n = value->numbers();
    const bool editable = isUsable(*cell.item);
    if (auto* spinBox = qobject_cast<ORXPropertySpinBox*>(editor)) {
        // What the user is typing must survive a value that arrives meanwhile.
        if (!editable || !spinBox->hasPendingEdit()) {
            spinBox->setRange(n.m_nMinValue, n.m_nMaxValue);
            spinBox->setValue(n.m_nValue);
            spinBox->setSingleStep(n.m_nIncrement);
        }
        spinBox->setEnabled(editable);
        spinBox->resetToolTip();
        if (!editable)
            spinBox->deselect();
    } else if (auto* lineEdit = qobject_cast<QPropertyLineEdit*>(editor)) {
        fillLineEdit(editor, cell, value->displayValue(), value->type());
        if (value->representation() == QLatin1String("PureNumber"))
            lineEdit->SetRange(n.m_nMaxValue, n.m_nMinValue);
    }
}

// Enumeration -------------------------------------------------------------------------------------

QWidget* ORXPropertyTreeDelegate::createEnumationEditor(QWidget* parent, const Cell& cell) const
{
    auto* editor = new ZELCustomComboBox(
        parent, alternativeStyle() ? ZELCustomComboBox::Style_Panel : ZELCustomComboBox::Style_Cell,
        0);
    editor->setEnabled(false);
    return prepared(editor, cell, cell.item->value()->usesGlobalFont());
}

void ORXPropertyTreeDelegate::fillEntries(QWidget* editor, const Cell& cell,
                                          bool withPalettes) const
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
            comboBox->addItem(withPalettes ? paletteIcon(i) : QIcon(), texts.at(i), QVariant());
            comboBox->setItemData(i, texts.at(i), Qt::ToolTipRole);
        }
    }
    const auto entry = value->valueMap();
    const auto current = entry.constFind(value->number());
    comboBox->setCurrentIndex(current == entry.constEnd() ? -1 : english.indexOf(*current));
    comboBox->setToolTip(comboBox->currentText());
    comboBox->setEnabled(isUsable(*cell.item));
}

void ORXPropertyTreeDelegate::setEnumationEditorData(QWidget* editor, const Cell& cell) const
{
    fillEntries(editor, cell, false);
}

QWidget* ORXPropertyTreeDelegate::createCustomPalettesModeEditor(QWidget* parent,
                                                                 const Cell& cell) const
{
    auto* editor = new ZELCustomComboBox(parent, ZELCustomComboBox::Style_Panel, 0);
    editor->setFixedHeight(kPaletteHeight);
    editor->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    editor->setIconSize(kPaletteIconSize);
    return prepared(editor, cell, cell.item->value()->usesGlobalFont());
}

void ORXPropertyTreeDelegate::setCustomPalettesModeEditorData(QWidget* editor,
                                                              const Cell& cell) const
{
    fillEntries(editor, cell, true);
}

// Boolean -----------------------------------------------------------------------------------------

QWidget* ORXPropertyTreeDelegate::createBoolEditor(QWidget* parent, const Cell& cell) const
{
    auto* editor =
        new ZELCustomCheckBox(parent, alternativeStyle() ? ZELCustomCheckBox::Style_Switch
                                                         : ZELCustomCheckBox::Style_Cell);
    editor->setEnabled(false);
    editor->setFixedSize(editor->sizeHint());
    return prepared(editor, cell, cell.item->value()->usesGlobalFont());
}

void ORXPropertyTreeDelegate::setBoolEditorData(QWidget* editor, const Cell& cell) const
{
    auto* checkBox = qobject_cast<ZELCustomCheckBox*>(editor);
    const auto* value = dynamic_cast<const CTreeBooleanItemValue*>(cell.item->value());
    if (!checkBox || !value)
        return;
    checkBox->setChecked(value->checked());
    checkBox->setEnabled(isUsable(*cell.item));
}

// Text and float ----------------------------------------------------------------------------------

QWidget* ORXPropertyTreeDelegate::createStringEditor(QWidget* parent, const Cell& cell) const
{
    return makeLineEdit(parent, cell);
}

QWidget* ORXPropertyTreeDelegate::createFloatEditor(QWidget* parent, const Cell& cell) const
{
    return makeLineEdit(parent, cell);
}

void ORXPropertyTreeDelegate::fillLineEdit(QWidget* editor, const Cell& cell, const QString& text,
                                           int kind) const
{
    auto* lineEdit = qobject_cast<QPropertyLineEdit*>(editor);
    if (!lineEdit)
        return;
    const bool editable = isUsable(*cell.item);
    // What the user is typing must survive a value that arrives meanwhile.
    if (editable && lineEdit->hasPendingEdit()) {
        lineEdit->SetRollbackText(text, kind);
    } else {
        const bool changed = lineEdit->text() != text;
        // The user is about to type over it: what he types must not be added to the new text.
        const bool typesOver = lineEdit->hasFocus() && lineEdit->selectedText() == lineEdit->text();
        lineEdit->SetText(text, kind);
        if (changed && typesOver)
            lineEdit->selectAll();
    }
    lineEdit->setEnabled(editable);
    if (!editable)
        lineEdit->deselect();
}

void ORXPropertyTreeDelegate::setStringEditorData(QWidget* editor, const Cell& cell) const
{
    const auto* value = dynamic_cast<const CTreeStringItemValue*>(cell.item->value());
    auto* lineEdit = qobject_cast<QPropertyLineEdit*>(editor);
    if (!value || !lineEdit)
        return;
    fillLineEdit(editor, cell, value->displayValue(), QPropertyLineEdit::Text);
    lineEdit->SetStringLength(value->maxLength());
}

void ORXPropertyTreeDelegate::setFloatEditorData(QWidget* editor, const Cell& cell) const
{
    const auto* value = dynamic_cast<const CTreeFloatItemValue*>(cell.item->value());
    auto* lineEdit = qobject_cast<QPropertyLineEdit*>(editor);
    if (!value || !lineEdit)
        return;
    const CTreeFloatItemValue::Numbers n = value->numbers();
    fillLineEdit(editor, cell, value->displayValue(), QPropertyLineEdit::Float);
    lineEdit->SetRange(n.m_fMaxValue, n.m_fMinValue);
}

// Buttons -----------------------------------------------------------------------------------------

QWidget* ORXPropertyTreeDelegate::createCommandEditor(QWidget* parent, const Cell& cell) const
{
    auto* editor = new ZELCustomPushButton(parent, ZELCustomPushButton::Style_Cell);
    editor->setEnabled(false);
    return prepared(editor, cell, m_pageType == ORXPropertyTreeItem::FeatureTreePage);
}

void ORXPropertyTreeDelegate::setCommandEditorData(QWidget* editor, const Cell& cell) const
{
    auto* button = qobject_cast<ZELCustomPushButton*>(editor);
    if (!button)
        return;
    button->setText(isChinese() ? QStringLiteral("执行") : QStringLiteral("Execute"));
    // The software trigger stays clickable in fast succession.
    if (cell.item->value()->nodeName(0) != QLatin1String("TriggerSoftware"))
        button->cSetControlClickEvent(true);
    button->setEnabled(isUsable(*cell.item));
}

QWidget* ORXPropertyTreeDelegate::createCustomFFCorrectionEditor(QWidget* parent,
                                                                 const Cell& cell) const
{
    auto* editor = new ZELCustomPushButton(parent, ZELCustomPushButton::Style_Cell);
    editor->setIconSize(kToolIconSize);
    editor->cSetIcon(QStringLiteral(":/ORX/btn/FFC tool.png"));
    editor->cSetIconAlign(ZELCustomPushButton::Align_BesideText);
    return prepared(editor, cell, false);
}

void ORXPropertyTreeDelegate::setCustomFFCorrectionEditorData(QWidget* editor,
                                                              const Cell& cell) const
{
    if (auto* button = qobject_cast<ZELCustomPushButton*>(editor)) {
        button->setText(isChinese() ? QStringLiteral("打开工具") : QStringLiteral("Open Tool"));
        button->cSetControlClickEvent(true);
        // Also for a read-only item: the tool works whatever the camera allows to write.
        button->setEnabled(isUsable(*cell.item));
    }
}

// Page-own kinds ----------------------------------------------------------------------------------

QWidget* ORXPropertyTreeDelegate::createCustomDrawEditor(QWidget*, const Cell&) const
{
    return nullptr;
}

void ORXPropertyTreeDelegate::setCustomDrawEditorData(QWidget*, const Cell&) const {}

QWidget* ORXPropertyTreeDelegate::createCustomWaterMarkEditor(QWidget* parent,
                                                              const Cell& cell) const
{
    const auto* value = dynamic_cast<const CTreeCustomWaterMarkItemValue*>(cell.item->value());
    const bool known = cell.column == 0 || cell.column == 1;
    if (!value || !known || value->nodeName(cell.column).isEmpty())
        return nullptr;
    auto* editor = new ZELCustomCheckBox(parent, ZELCustomCheckBox::Style_Label);
    editor->setText(value->toolTip(cell.column));
    editor->setCheckState(static_cast<Qt::CheckState>(value->checkState(cell.column)));
    editor = qobject_cast<ZELCustomCheckBox*>(prepared(editor, cell, false));
    if (editor)
        editor->setObjectName(value->nodeName(cell.column));
    return editor;
}

void ORXPropertyTreeDelegate::setCustomWaterMarkEditorData(QWidget* editor, const Cell& cell) const
{
    const auto* value = dynamic_cast<const CTreeCustomWaterMarkItemValue*>(cell.item->value());
    auto* checkBox = qobject_cast<ZELCustomCheckBox*>(editor);
    if (!value || !checkBox)
        return;
    checkBox->setText(value->toolTip(cell.column));
    checkBox->setToolTip(checkBox->text());
    checkBox->setCheckState(static_cast<Qt::CheckState>(value->checkState(cell.column)));
    checkBox->setEnabled(isUsable(*cell.item) && !value->isColumnDisabled(cell.column));
}
