// SPDX-License-Identifier: Apache-2.0
#include "tree/OpenEditors.h"

#include "model/ORXPropertyTreeModel.h"
#include "tree/EditorFocus.h"
#include "tree/ORXPropertyTreeDelegate.h"
#include "tree/editors/EditorKind.h"
#include "tree/editors/EditorKinds.h"

#include <QLineEdit>
#include <QPointer>
#include <QScopedValueRollback>
#include <QTreeView>

namespace {

// Deselects the text of an editor that shows one, and brings its start into sight.
void showTextStart(QWidget* editor)
{
    auto* lineEdit = qobject_cast<QLineEdit*>(editor);
    if (!lineEdit && editor)
        lineEdit = editor->findChild<QLineEdit*>();
    if (!lineEdit)
        return;
    lineEdit->deselect();
    lineEdit->setCursorPosition(0);
}

} // namespace

OpenEditors::OpenEditors(QTreeView* view, ORXPropertyTreeModel* model,
                         ORXPropertyTreeDelegate* delegate, ORXPropertyTreeItem::ParentType page)
    : m_view(view)
    , m_model(model)
    , m_delegate(delegate)
    , m_pageType(page)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        emit aboutToSync();
        sync();
        emit synced();
    });
    // What came while the user was typing, and was held back, is shown now. Later: the editor
    // handles the event first. Its row, and with it the editor, may go meanwhile.
    connect(m_delegate, &ORXPropertyTreeDelegate::sigEditingEnded, this, [this](QWidget* editor) {
        const auto show = [this, ended = QPointer<QWidget>(editor)] {
            const QModelIndex cell = ended ? cellOf(ended) : QModelIndex();
            if (cell.isValid())
                m_delegate->setEditorData(ended, cell);
        };
        QMetaObject::invokeMethod(this, show, Qt::QueuedConnection);
    });
}

bool OpenEditors::hasEditor(const ORXPropertyTreeItem& item)
{
    return item.wasRead() && EditorKinds::of(item.tag());
}

bool OpenEditors::hasNameEditor(const ORXPropertyTreeItem& item)
{
    const EditorKind* kind = EditorKinds::of(item.tag());
    return kind && kind->editsName();
}

QWidget* OpenEditors::editorOf(ORXPropertyTreeItem* item, int column) const
{
    return isOpen(item) ? m_view->indexWidget(m_model->indexFromItem(item, column)) : nullptr;
}

QWidget* OpenEditors::editorAround(QWidget* widget) const
{
    while (widget && widget->parentWidget() != m_view->viewport())
        widget = widget->parentWidget();
    return widget;
}

QModelIndex OpenEditors::cellOf(QWidget* widget) const
{
    const QWidget* editor = editorAround(widget);
    if (!editor)
        return {};
    for (ORXPropertyTreeItem* item : m_open) {
        for (int column = 0; column < 2; ++column) {
            if (editorOf(item, column) == editor)
                return m_model->indexFromItem(item, column);
        }
    }
    return {};
}

void OpenEditors::schedule()
{
    if (!m_timer.isActive())
        m_timer.start();
}

void OpenEditors::sync()
{
    if (!m_model->rootItem() || !m_view->isVisible())
        return;
    if (m_bSyncing) {
        schedule();
        return;
    }
    const QScopedValueRollback<bool> syncing(m_bSyncing, true);
    m_inSight.clear();
    QWidget* before = m_view;
    const int bottom = m_view->viewport()->height();
    for (QModelIndex row = m_view->indexAt(QPoint(0, 0));
         row.isValid() && m_view->visualRect(row).top() <= bottom; row = m_view->indexBelow(row)) {
        ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(row);
        m_inSight.append(item);
        const bool opens = !isOpen(item) && hasEditor(*item);
        if (opens)
            open(item);
        for (int column = 0; column < 2; ++column) {
            QWidget* editor = editorOf(item, column);
            if (!editor)
                continue;
            // The tab order is the order of the rows, whenever their editors were made.
            if (opens)
                QWidget::setTabOrder(before, editor);
            before = editor;
        }
    }
    closeOutOfSight();
}

void OpenEditors::closeOutOfSight()
{
    QSet<ORXPropertyTreeItem*> left = m_open;
    for (ORXPropertyTreeItem* item : qAsConst(m_inSight))
        left.remove(item);
    for (ORXPropertyTreeItem* item : qAsConst(left)) {
        const QWidget* editor = editorOf(item);
        const QWidget* nameEditor = editorOf(item, 0);
        if ((editor && EditorFocus::isInside(editor)) ||
            (nameEditor && EditorFocus::isInside(nameEditor)))
            continue;
        close(item);
    }
}

void OpenEditors::open(ORXPropertyTreeItem* item)
{
    m_open.insert(item);
    for (int column = hasNameEditor(*item) ? 0 : 1; column < 2; ++column) {
        const QModelIndex cell = m_model->indexFromItem(item, column);
        m_view->openPersistentEditor(cell);
        // Opening it has selected all of its text.
        showTextStart(m_view->indexWidget(cell));
    }
}

void OpenEditors::close(ORXPropertyTreeItem* item)
{
    for (int column = 0; column < 2; ++column) {
        QWidget* editor = editorOf(item, column);
        if (!editor)
            continue;
        EditorFocus::drop(editor);
        m_view->closePersistentEditor(m_model->indexFromItem(item, column));
    }
    m_open.remove(item);
}

void OpenEditors::renew(ORXPropertyTreeItem* item)
{
    close(item);
    open(item);
}

void OpenEditors::refill(ORXPropertyTreeItem* item)
{
    for (int column = 0; column < 2; ++column) {
        if (QWidget* editor = editorOf(item, column))
            m_delegate->setEditorData(editor, m_model->indexFromItem(item, column));
    }
}

void OpenEditors::refillAll()
{
    const QSet<ORXPropertyTreeItem*> open = m_open;
    for (ORXPropertyTreeItem* item : open)
        refill(item);
}

void OpenEditors::describeAll()
{
    for (ORXPropertyTreeItem* item : qAsConst(m_open)) {
        for (int column = 0; column < 2; ++column) {
            if (QWidget* editor = editorOf(item, column))
                m_delegate->describe(editor, m_model->indexFromItem(item, column));
        }
    }
}

void OpenEditors::closeBelow(ORXPropertyTreeItem* item)
{
    if (item->childCount() == 0) {
        close(item);
        return;
    }
    // There is a screenful of editors, whatever stands below the item.
    const QSet<ORXPropertyTreeItem*> open = m_open;
    for (ORXPropertyTreeItem* edited : open) {
        const ORXPropertyTreeItem* above = edited;
        while (above && above != item)
            above = above->parent(m_pageType);
        if (above)
            close(edited);
    }
}

void OpenEditors::closeWithoutRow()
{
    const QSet<ORXPropertyTreeItem*> open = m_open;
    for (ORXPropertyTreeItem* item : open) {
        if (ORXPropertyTreeItem::isAlive(item) &&
            !m_view->visualRect(m_model->indexFromItem(item, 1)).isValid())
            close(item);
    }
}

void OpenEditors::dropAll()
{
    const QObjectList editors = m_view->viewport()->children();
    for (QObject* editor : editors) {
        disconnect(editor, nullptr, m_delegate, nullptr);
        if (auto* widget = qobject_cast<QWidget*>(editor))
            EditorFocus::drop(widget);
    }
    m_inSight.clear();
    m_open.clear();
}
