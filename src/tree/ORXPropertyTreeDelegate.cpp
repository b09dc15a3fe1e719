// SPDX-License-Identifier: Apache-2.0
#include "tree/ORXPropertyTreeDelegate.h"

#include "device/HtmlEscape.h"
#include "device/ReentrancyScope.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeModel.h"
#include "tree/EditorFillGuard.h"
#include "tree/EditorFocus.h"
#include "tree/ItemText.h"
#include "tree/QPropertyLineEdit.h"
#include "tree/editors/EditorKind.h"
#include "tree/editors/EditorKinds.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QToolTip>

namespace {

constexpr int kCommandTimerMs = 150;

constexpr int kEditorLeft = 5;
constexpr int kEditorRight = 10;
constexpr int kEditorHeight = 32;
constexpr int kNameEditorShift = 18;
constexpr int kWideEditorLeft = 20;
constexpr int kDrawRowHeight = 1; // its picture stands outside the rows
constexpr int kGroupRowHeight = 1;

// The slot that takes what the signal tells.
QMetaMethod commitSlot(const QMetaMethod& signal)
{
    const QMetaObject& type = ORXPropertyTreeDelegate::staticMetaObject;
    const bool tellsState = signal.parameterTypes() == QList<QByteArray>{"int"};
    return type.method(
        type.indexOfSlot(tellsState ? "on_CommitData_Combox(int)" : "on_CommitData()"));
}

// The reason first, then what the editor says anyway. Rich text, since only that is wrapped.
void showHelp(const QHelpEvent* event, const QString& reason, const QString& own, QWidget* at)
{
    const QString html = own.isEmpty()
                             ? htmlEscaped(reason)
                             : htmlEscaped(reason) + QLatin1String("<br>") + htmlEscaped(own);
    QToolTip::showText(event->globalPos(), QStringLiteral("<qt>%1</qt>").arg(html), at);
}

} // namespace

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
}

void ORXPropertyTreeDelegate::setIsCanEdit(bool canEdit)
{
    m_bCanEdit = canEdit;
}

void ORXPropertyTreeDelegate::setCurMoveItem(const ORXPropertyTreeItem* item, bool below)
{
    m_rowPainter.setDropLine(item, below);
}

void ORXPropertyTreeDelegate::clearInfo()
{
    setCurMoveItem(nullptr);
}

// Editors -----------------------------------------------------------------------------------------

const EditorKind* ORXPropertyTreeDelegate::kindOf(const ORXPropertyTreeItem* item)
{
    return item && item->value() ? EditorKinds::of(item->tag()) : nullptr;
}

bool ORXPropertyTreeDelegate::isUsable(const ORXPropertyTreeItem& item) const
{
    const EditorKind* kind = kindOf(&item);
    return m_bCanEdit && kind && item.wasRead() && item.value()->enabled() &&
           (!item.readOnly() || !kind->followsReadOnly());
}

QWidget* ORXPropertyTreeDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                               const QModelIndex& index) const
{
    ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index);
    const EditorKind* kind = kindOf(item);
    QWidget* editor =
        kind ? kind->create(parent, {item, index.column(), m_pageType, isUsable(*item)}) : nullptr;
    const QMetaMethod signal = editor ? kind->commitSignal(*editor) : QMetaMethod();
    if (signal.isValid() && !connect(editor, signal, this, commitSlot(signal))) {
        delete editor;
        return nullptr;
    }
    return editor;
}

void ORXPropertyTreeDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index);
    const EditorKind* kind = kindOf(item);
    if (!editor || !kind)
        return;
    const QMetaMethod signal = kind->commitSignal(*editor);
    const EditorFillGuard guard(editor, signal, this, commitSlot(signal));
    item->noteShownState();
    const EditorCell cell = {item, index.column(), m_pageType, isUsable(*item)};
    if (!cell.usable)
        EditorFocus::drop(editor);
    kind->fill(editor, cell);
    describe(editor, index);
}

QString ORXPropertyTreeDelegate::reasonOf(const ORXPropertyTreeItem& item) const
{
    return m_reasonOf && !isUsable(item) ? m_reasonOf(item) : QString();
}

void ORXPropertyTreeDelegate::describe(QWidget* editor, const QModelIndex& index) const
{
    const ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index);
    const EditorKind* kind = kindOf(item);
    if (!kind)
        return;
    const QString name =
        kind->editsName() ? item->value()->toolTip(index.column()) : ItemText::name(*item);
    const QString reason = reasonOf(*item);
    // Each of these is told to whoever listens.
    if (editor->accessibleName() != name)
        editor->setAccessibleName(name);
    if (editor->accessibleDescription() != reason)
        editor->setAccessibleDescription(reason);
}

void ORXPropertyTreeDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                           const QModelIndex& index) const
{
    ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index);
    const EditorKind* kind = kindOf(item);
    if (!m_bCommitting || !editor || !model || !index.isValid() || !kind)
        return;
    // Its row is about to go.
    if (!item->visible())
        return;
    if (item->readOnly() && !kind->writesReadOnly())
        return;
    const EditedValue edited =
        kind->read(editor, {item, index.column(), m_pageType, isUsable(*item)});
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

// Editors stay open whatever key is pressed; Escape takes back what was typed. One that cannot be
// used says why.
bool ORXPropertyTreeDelegate::eventFilter(QObject* watched, QEvent* event)
{
    auto* editor = qobject_cast<QWidget*>(watched);
    if (editor && event->type() == QEvent::ToolTip && !editor->accessibleDescription().isEmpty()) {
        showHelp(static_cast<QHelpEvent*>(event), editor->accessibleDescription(),
                 editor->toolTip(), editor);
        return true;
    }
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

// Around an editor that does not fill its cell, too.
bool ORXPropertyTreeDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                        const QStyleOptionViewItem& option,
                                        const QModelIndex& index)
{
    const ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index);
    const QString reason = event->type() == QEvent::ToolTip && index.column() == 1 && item
                               ? reasonOf(*item)
                               : QString();
    if (reason.isEmpty())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    showHelp(event, reason, QString(), view->viewport());
    return true;
}

// Rows --------------------------------------------------------------------------------------------

void ORXPropertyTreeDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const
{
    const ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index);
    // Groups directly below the root are named by the side column; what is drawn stands elsewhere.
    if (!item || !index.parent().isValid() || item->tag() == FeatureTag::Draw)
        return;
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    m_rowPainter.paint(painter, cell, *item, index.column());
}

QSize ORXPropertyTreeDelegate::sizeHint(const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const
{
    // A view that lays itself out wants heights only, and says so by a width of -1. Measuring the
    // texts would be the greater part of its time.
    const bool measuresText = option.rect.width() >= 0;
    QSize size = measuresText ? QStyledItemDelegate::sizeHint(option, index) : QSize(0, 0);
    const ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index);
    if (!index.parent().isValid())
        size.setHeight(kGroupRowHeight);
    else if (item && item->tag() == FeatureTag::CCM)
        size.setHeight(kMatrixRowHeight);
    else if (item && item->tag() == FeatureTag::Draw)
        size.setHeight(kDrawRowHeight);
    else
        size.setHeight(kRowHeight);
    return size;
}

void ORXPropertyTreeDelegate::updateEditorGeometry(QWidget* editor,
                                                   const QStyleOptionViewItem& option,
                                                   const QModelIndex& index) const
{
    const EditorKind* kind = kindOf(ORXPropertyTreeModel::itemFromIndex(index));
    if (!kind)
        return;
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    if (index.column() == 0) {
        cell.rect.setLeft(cell.rect.left() - kNameEditorShift);
        editor->setGeometry(cell.rect);
        return;
    }
    cell.rect.adjust(kEditorLeft, 0, -kEditorRight, 0);
    // The value column has no text of its own; its text rectangle is the whole cell.
    cell.features |= QStyleOptionViewItem::HasDisplay;
    QRect rect = RowPainter::styleOf(option)->subElementRect(QStyle::SE_ItemViewItemText, &cell,
                                                             option.widget);
    if (!kind->fillsHeight()) {
        // Editors of a fixed, smaller size (check boxes) are centred by their own height.
        const int height = qMin(kEditorHeight, editor->maximumHeight());
        rect.setTop(rect.top() + (rect.height() - (height - 1)) / 2);
        rect.setBottom(rect.top() + height - 1);
    }
    if (editor->sizeHint().width() > rect.width())
        rect.setWidth(cell.rect.width());
    if (kind->beginsAtName())
        rect.setLeft(kWideEditorLeft);
    editor->setGeometry(rect);
}
