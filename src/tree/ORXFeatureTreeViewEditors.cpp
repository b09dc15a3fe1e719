// SPDX-License-Identifier: Apache-2.0
// The editors of ORXFeatureTreeView: every row in sight has its editor open.
#include "model/ORXPropertyTreeModel.h"
#include "tree/EditorFocus.h"
#include "tree/ORXFeatureTreeView.h"
#include "tree/ORXPropertyTreeDelegate.h"

#include <QLineEdit>
#include <QScopedValueRollback>

namespace {

bool hasNameEditor(const ORXPropertyTreeItem& item)
{
    return item.tag() == FeatureTag::Watermark || item.tag() == FeatureTag::Event;
}

} // namespace

void showEditorTextStart(QWidget* editor)
{
    auto* lineEdit = qobject_cast<QLineEdit*>(editor);
    if (!lineEdit && editor)
        lineEdit = editor->findChild<QLineEdit*>();
    if (!lineEdit)
        return;
    lineEdit->deselect();
    lineEdit->setCursorPosition(0);
}

QWidget* ORXFeatureTreeView::editorOf(ORXPropertyTreeItem* item, int column) const
{
    if (!m_openEditors.contains(item))
        return nullptr;
    return indexWidget(m_pModel->indexFromItem(item, column));
}

void ORXFeatureTreeView::openPersistentEdit(ORXPropertyTreeItem* item, bool reopen)
{
    if (reopen && item)
        closeEditorsBelow(item);
    scheduleEditors();
}

void ORXFeatureTreeView::clearDelegateInfo()
{
    m_pDelegate->clearInfo();
    clearDropTarget();
}

void ORXFeatureTreeView::updateAllEditorData()
{
    const QSet<ORXPropertyTreeItem*> open = m_openEditors;
    for (ORXPropertyTreeItem* item : open) {
        for (int column = 0; column < 2; ++column) {
            if (QWidget* editor = editorOf(item, column))
                m_pDelegate->setEditorData(editor, m_pModel->indexFromItem(item, column));
        }
    }
}

// What came while the user was typing, and was held back, is shown now.
void ORXFeatureTreeView::onEditingEnded(QWidget* editor)
{
    const QModelIndex cell = cellOfEditor(editor);
    if (cell.isValid())
        m_pDelegate->setEditorData(editor, cell);
}

void ORXFeatureTreeView::scheduleEditors()
{
    if (!m_editorTimer.isActive())
        m_editorTimer.start();
}

void ORXFeatureTreeView::updateGeometries()
{
    const QScopedValueRollback<bool> inGeometries(m_bInGeometries, true);
    QTreeView::updateGeometries();
    m_bRowsChanged = true;
    scheduleEditors();
}

void ORXFeatureTreeView::scrollContentsBy(int dx, int dy)
{
    QTreeView::scrollContentsBy(dx, dy);
    // At once, so that no row is ever seen without its editor while scrolling; but not in the
    // middle of a layout, which moves the scroll bar, too.
    if (!m_bInGeometries)
        syncEditors();
    scheduleEditors();
}

void ORXFeatureTreeView::showEvent(QShowEvent* event)
{
    QTreeView::showEvent(event);
    syncEditors();
    scheduleEditors();
}

void ORXFeatureTreeView::hideEvent(QHideEvent* event)
{
    QTreeView::hideEvent(event);
    scheduleEditors();
}

void ORXFeatureTreeView::tellRowsInSight()
{
    QStringList names;
    if (m_pRootItem && isVisible()) {
        // Scrolling only shifts where the list begins.
        if (m_bRowsChanged)
            m_shownFeatures.collect(*this, *m_pModel);
        m_bRowsChanged = false;
        names = m_shownFeatures.namesFrom(m_inSight);
    }
    if (names == m_toldInSight)
        return;
    m_toldInSight = names;
    emit SigRowsInSight(names);
}

bool ORXFeatureTreeView::hasEditor(const ORXPropertyTreeItem& item)
{
    return item.wasRead() && ORXPropertyTreeDelegate::hasEditor(item.tag());
}

void ORXFeatureTreeView::openEditors(ORXPropertyTreeItem* item)
{
    m_openEditors.insert(item);
    for (int column = hasNameEditor(*item) ? 0 : 1; column < 2; ++column) {
        const QModelIndex cell = m_pModel->indexFromItem(item, column);
        openPersistentEditor(cell);
        // Opening it has selected all of its text.
        showEditorTextStart(indexWidget(cell));
    }
}

// Opens the editors of the rows in sight and closes those that have left it, but for one in use.
void ORXFeatureTreeView::syncEditors()
{
    if (!m_pRootItem || !isVisible())
        return;
    if (m_bSyncing) {
        scheduleEditors();
        return;
    }
    const QScopedValueRollback<bool> syncing(m_bSyncing, true);
    m_inSight.clear();
    QWidget* before = this;
    const int bottom = viewport()->height();
    for (QModelIndex row = indexAt(QPoint(0, 0)); row.isValid() && visualRect(row).top() <= bottom;
         row = indexBelow(row)) {
        ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(row);
        m_inSight.append(item);
        const bool opens = !m_openEditors.contains(item) && hasEditor(*item);
        if (opens)
            openEditors(item);
        for (int column = 0; column < 2; ++column) {
            QWidget* editor = editorOf(item, column);
            if (!editor)
                continue;
            // The tab order is the order of the rows, whenever their editors were made.
            if (opens)
                setTabOrder(before, editor);
            before = editor;
        }
    }
    closeEditorsOutOfSight();
}

void ORXFeatureTreeView::closeEditorsOutOfSight()
{
    QSet<ORXPropertyTreeItem*> left = m_openEditors;
    for (ORXPropertyTreeItem* item : qAsConst(m_inSight))
        left.remove(item);
    for (ORXPropertyTreeItem* item : qAsConst(left)) {
        const QWidget* editor = editorOf(item);
        const QWidget* nameEditor = editorOf(item, 0);
        if ((editor && EditorFocus::isInside(editor)) ||
            (nameEditor && EditorFocus::isInside(nameEditor)))
            continue;
        closeEditors(item);
    }
}

void ORXFeatureTreeView::closeEditors(ORXPropertyTreeItem* item)
{
    for (int column = 0; column < 2; ++column) {
        QWidget* editor = editorOf(item, column);
        if (!editor)
            continue;
        disconnect(editor, nullptr, m_pDelegate, nullptr);
        EditorFocus::drop(editor);
        closePersistentEditor(m_pModel->indexFromItem(item, column));
    }
    m_openEditors.remove(item);
}

void ORXFeatureTreeView::closeEditorsBelow(ORXPropertyTreeItem* item)
{
    if (item->childCount() == 0) {
        closeEditors(item);
        return;
    }
    // There is a screenful of editors, whatever stands below the item.
    const QSet<ORXPropertyTreeItem*> open = m_openEditors;
    for (ORXPropertyTreeItem* edited : open) {
        const ORXPropertyTreeItem* above = edited;
        while (above && above != item)
            above = above->parent(m_pageType);
        if (above)
            closeEditors(edited);
    }
}

// Rows may also go without a word from Qt, as when all branches close at once. Their editors go
// before the layout hides them.
void ORXFeatureTreeView::updateEditorGeometries()
{
    closeEditorsWithoutRow();
    QTreeView::updateEditorGeometries();
}

void ORXFeatureTreeView::closeEditorsWithoutRow()
{
    const QSet<ORXPropertyTreeItem*> open = m_openEditors;
    for (ORXPropertyTreeItem* item : open) {
        if (ORXPropertyTreeItem::isAlive(item) &&
            !visualRect(m_pModel->indexFromItem(item, 1)).isValid())
            closeEditors(item);
    }
}

// Before all editors go at once.
void ORXFeatureTreeView::dropEditors()
{
    const QObjectList editors = viewport()->children();
    for (QObject* editor : editors) {
        disconnect(editor, nullptr, m_pDelegate, nullptr);
        if (auto* widget = qobject_cast<QWidget*>(editor))
            EditorFocus::drop(widget);
    }
}

void ORXFeatureTreeView::rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end)
{
    for (int row = start; row <= end; ++row) {
        if (ORXPropertyTreeItem* item =
                ORXPropertyTreeModel::itemFromIndex(m_pModel->index(row, 0, parent)))
            closeEditorsBelow(item);
    }
    m_inSight.clear();
    m_bRowsChanged = true;
    QTreeView::rowsAboutToBeRemoved(parent, start, end);
    scheduleEditors();
}
