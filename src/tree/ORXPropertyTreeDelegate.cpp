// SPDX-License-Identifier: Apache-2.0
#include "tree/ORXPropertyTreeDelegate.h"

#include "device/ReentrancyScope.h"
#include "model/CTreeItemValue.h"
#include "model/ItemStateLock.h"
#include "model/ORXPropertyTreeModel.h"
#include "styledctl/ZELCustomCheckBox.h"
#include "styledctl/ZELCustomComboBox.h"
#include "styledctl/ZELCustomPushButton.h"
#include "tree/EditorFillGuard.h"
#include "tree/EditorFocus.h"
#include "tree/ORXPropertySpinBox.h"
#include "tree/QPropertyLineEdit.h"

#include <QEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include <array>
#include <map>

namespace {

constexpr int kCommandTimerMs = 150;
const QLatin1Char kUnpublished('!');

struct ExternalEditor
{
    ORXPropertyTreeDelegate::ExternalCreator create;
    ORXPropertyTreeDelegate::ExternalFiller fill;
};

std::map<FeatureTag, ExternalEditor>& externalEditors()
{
    static std::map<FeatureTag, ExternalEditor> editors;
    return editors;
}

} // namespace

const ORXPropertyTreeDelegate::EditorRow& ORXPropertyTreeDelegate::editorRow(FeatureTag tag)
{
    using D = ORXPropertyTreeDelegate;
    static const EditorRow kNone;
    static const EditorRow kInteger = {&D::createIntegerEditor, &D::setIntegerEditorData,
                                       &D::readInteger};
    static const EditorRow kText = {&D::createStringEditor, &D::setStringEditorData,
                                    &D::readLineEdit};
    static const EditorRow kFloat = {&D::createFloatEditor, &D::setFloatEditorData,
                                     &D::readLineEdit};
    static const EditorRow kTwoBoxes = {&D::createCustomWaterMarkEditor,
                                        &D::setCustomWaterMarkEditorData, &D::readCheckBox, true};
    // In the order of FeatureTag.
    static const std::array<EditorRow, kFeatureTagCount> kRows = {
        kNone,                                                                        // Category
        EditorRow{&D::createBoolEditor, &D::setBoolEditorData, &D::readCheckBox},     // Boolean
        EditorRow{&D::createCommandEditor, &D::setCommandEditorData, &D::readButton}, // Command
        kInteger,                                                                     // Integer
        kInteger,                                                                     // IntReg
        EditorRow{&D::createEnumationEditor, &D::setEnumationEditorData,
                  &D::readComboBox},                                                 // Enumeration
        kFloat,                                                                      // Float
        kFloat,                                                                      // Converter
        kText,                                                                       // StringReg
        kText,                                                                       // String
        EditorRow{&D::createCustomDrawEditor, &D::setCustomDrawEditorData, nullptr}, // Draw
        kTwoBoxes,                                                                   // Watermark
        kTwoBoxes,                                                                   // Event
        EditorRow{&D::createCustomCCMEditor, &D::setCustomCCMEditorData, nullptr, true}, // CCM
        EditorRow{&D::createCustomPalettesModeEditor, &D::setCustomPalettesModeEditorData,
                  &D::readComboBox}, // PalettesMode
        EditorRow{&D::createCustomFFCorrectionEditor, &D::setCustomFFCorrectionEditorData,
                  &D::readButton, true}, // FlatFieldCorrection
        kNone,                           // Other
    };
    return kRows[static_cast<std::size_t>(tag)];
}

bool ORXPropertyTreeDelegate::hasEditor(FeatureTag tag)
{
    const Create create = editorRow(tag).create;
    return create && create != &ORXPropertyTreeDelegate::createCustomDrawEditor;
}

void ORXPropertyTreeDelegate::registerExternalEditor(FeatureTag tag, const ExternalCreator& create,
                                                     const ExternalFiller& fill)
{
    externalEditors()[tag] = {create, fill};
}

QWidget* ORXPropertyTreeDelegate::createCustomCCMEditor(QWidget* parent, const Cell& cell) const
{
    const auto found = externalEditors().find(cell.item->tag());
    return found == externalEditors().end() ? nullptr : found->second.create(parent, cell.item);
}

void ORXPropertyTreeDelegate::setCustomCCMEditorData(QWidget* editor, const Cell& cell) const
{
    // Before the filler, which may disable the editor for reasons of its own.
    editor->setEnabled(isUsable(*cell.item));
    const auto found = externalEditors().find(cell.item->tag());
    if (found != externalEditors().end() && found->second.fill)
        found->second.fill(editor, cell.item);
}

ORXPropertyTreeDelegate::ORXPropertyTreeDelegate(ORXPropertyTreeItem::ParentType type,
                                                 QObject* parent)
    : QStyledItemDelegate(parent)
    , m_pageType(type)
{
    connect(&m_commandTimer, &QTimer::timeout, this, &ORXPropertyTreeDelegate::on_CommandTimeout);
}

ORXPropertyTreeDelegate::~ORXPropertyTreeDelegate()
{
    m_bDestroying = true;
    clearInfo();
}

void ORXPropertyTreeDelegate::setIsCanEdit(bool canEdit)
{
    m_bCanEdit = canEdit;
}

void ORXPropertyTreeDelegate::setCurMoveItem(ORXPropertyTreeItem* item, bool below)
{
    m_pCurMoveItem = item;
    m_bMoveBelow = below;
}

void ORXPropertyTreeDelegate::clearInfo()
{
    m_nInfo = 0;
}

// The page type 4 stands for pages with the roomier editors; no page of the library has it.
bool ORXPropertyTreeDelegate::alternativeStyle() const
{
    constexpr int kRoomierPage = 4;
    return static_cast<int>(m_pageType) == kRoomierPage;
}

QWidget* ORXPropertyTreeDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                               const QModelIndex& index) const
{
    ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index);
    if (!item || !item->value())
        return nullptr;
    const Create create = editorRow(item->tag()).create;
    return create ? (this->*create)(parent, {item, index.column()}) : nullptr;
}

void ORXPropertyTreeDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index);
    if (!editor || !item || !item->value())
        return;
    const Fill fill = editorRow(item->tag()).fill;
    if (!fill)
        return;
    const EditorFillGuard guard(editor, this);
    noteShownState(item);
    const Cell cell = {item, index.column()};
    const bool focused = EditorFocus::isInside(editor);
    if (!isUsable(*item))
        EditorFocus::drop(editor);
    (this->*fill)(editor, cell);
    // A part of it was disabled that had the focus.
    if (focused && !editor->window()->focusWidget())
        editor->parentWidget()->setFocus(Qt::OtherFocusReason);
}

void ORXPropertyTreeDelegate::noteShownState(ORXPropertyTreeItem* item)
{
    const ItemStateLock lock;
    CTreeItemValue* value = item->value();
    const QString published = value->currentStatus();
    if (published.startsWith(kUnpublished) ||
        published == value->createCurrentStauts(item->readOnly()))
        return;
    // The rest of the text stays: it tells a change of the representation.
    value->exchangeStatus(kUnpublished + published);
}

bool ORXPropertyTreeDelegate::isUsable(const ORXPropertyTreeItem& item) const
{
    return m_bCanEdit && item.value() && item.wasRead() && item.value()->enabled() &&
           hasEditor(item.tag()) && (!item.readOnly() || editorRow(item.tag()).whenReadOnly);
}

void ORXPropertyTreeDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                           const QModelIndex& index) const
{
    ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index);
    if (!m_bCommitting || !editor || !model || !index.isValid() || !item)
        return;
    // Its row is about to go.
    if (!item->visible())
        return;
    // The tool behind the flat-field button works whatever the camera allows to write.
    if (item->readOnly() && item->tag() != FeatureTag::FlatFieldCorrection)
        return;
    const Read read = editorRow(item->tag()).read;
    const Edited edited = read ? (this->*read)(editor, {item, index.column()}) : Edited();
    if (!edited.write)
        return;
    model->setData(index, edited.value, Qt::EditRole);
    if (edited.startTimer)
        m_commandTimer.start(kCommandTimerMs);
}

// Commits -----------------------------------------------------------------------------------------

void ORXPropertyTreeDelegate::commit()
{
    auto* editor = qobject_cast<QWidget*>(sender());
    if (m_bDestroying || !editor)
        return;
    // The host may close or release the window while it writes.
    const ReentrancyScope scope;
    const QScopedValueRollback<bool> committing(m_bCommitting, true);
    emit commitData(editor);
}

void ORXPropertyTreeDelegate::on_CommitData()
{
    commit();
}

void ORXPropertyTreeDelegate::on_CommitData_Combox(int)
{
    commit();
}

// Nothing waits for the timer; it must not wake the application for ever, though.
void ORXPropertyTreeDelegate::on_CommandTimeout()
{
    m_commandTimer.stop();
}

bool ORXPropertyTreeDelegate::connectCommit(QWidget* editor) const
{
    using D = ORXPropertyTreeDelegate;
    if (auto* lineEdit = qobject_cast<QPropertyLineEdit*>(editor))
        return connect(lineEdit, &QLineEdit::editingFinished, this, &D::on_CommitData);
    if (auto* spinBox = qobject_cast<ORXPropertySpinBox*>(editor))
        return connect(spinBox, &ZELCustomSpinBox64::valueChanged, this, &D::on_CommitData);
    if (auto* button = qobject_cast<ZELCustomPushButton*>(editor))
        return connect(button, &QPushButton::clicked, this, &D::on_CommitData);
    if (auto* checkBox = qobject_cast<ZELCustomCheckBox*>(editor))
        return connect(checkBox, &QCheckBox::stateChanged, this, &D::on_CommitData_Combox);
    if (auto* comboBox = qobject_cast<ZELCustomComboBox*>(editor))
        return connect(comboBox, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
                       &D::on_CommitData_Combox);
    return false;
}

// Editors stay open whatever key is pressed; Escape takes back what was typed.
bool ORXPropertyTreeDelegate::eventFilter(QObject* watched, QEvent* event)
{
    auto* editor = qobject_cast<QWidget*>(watched);
    const bool escape = event->type() == QEvent::KeyPress &&
                        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (editor && (escape || event->type() == QEvent::FocusOut))
        emit sigEditingEnded(editor);
    auto* lineEdit = qobject_cast<QPropertyLineEdit*>(watched);
    if (!escape || !lineEdit || !lineEdit->hasPendingEdit())
        return false;
    lineEdit->Rollback();
    return true;
}
