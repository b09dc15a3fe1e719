// SPDX-License-Identifier: Apache-2.0
// The editors of ORXFeatureTreeView: every row in sight has its editor open.
#include "model/ORXPropertyTreeModel.h"
#include "styledctl/ZELCustomDoubleSpinBox.h"
#include "tree/ORXFeatureTreeView.h"
#include "tree/ORXPropertySpinBox.h"
#include "tree/ORXPropertyTreeDelegate.h"

#include <QLineEdit>

namespace {

bool hasFocusInside(const QWidget* editor)
{
    const QWidget* focus = editor->focusWidget();
    return editor->hasFocus() || (focus && focus->hasFocus());
}

} // namespace

void deselectEditorText(QWidget* editor)
{
    if (auto* lineEdit = qobject_cast<QLineEdit*>(editor))
        lineEdit->deselect();
    else if (auto* inner = editor ? editor->findChild<QLineEdit*>() : nullptr)
        inner->deselect();
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
        closeEditors(item);
    scheduleEditors();
}

void ORXFeatureTreeView::clearDelegateInfo()
{
    m_pDelegate->clearInfo();
    clearDropTarget();
    closeEditorsNotIn({});
    scheduleEditors();
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

void ORXFeatureTreeView::scheduleEditors()
{
    if (!m_editorTimer.isActive())
        m_editorTimer.start();
}

void ORXFeatureTreeView::updateGeometries()
{
    QTreeView::updateGeometries();
    scheduleEditors();
}

void ORXFeatureTreeView::scrollContentsBy(int dx, int dy)
{
    QTreeView::scrollContentsBy(dx, dy);
    // At once, so that no row is ever seen without its editor while scrolling.
    syncEditors();
}

void ORXFeatureTreeView::openEditor(const QModelIndex& index)
{
    openPersistentEditor(index);
    deselectEditorText(indexWidget(index));
}

// Opens the editors of the rows in sight and closes those that have left it, but for one in use.
void ORXFeatureTreeView::syncEditors()
{
    if (m_bSyncing || !m_pRootItem || !isVisible())
        return;
    m_bSyncing = true;
    QSet<ORXPropertyTreeItem*> inSight;
    const int bottom = viewport()->height();
    for (QModelIndex row = indexAt(QPoint(0, 0)); row.isValid() && visualRect(row).top() <= bottom;
         row = indexBelow(row)) {
        ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(row);
        inSight.insert(item);
        if (m_openEditors.contains(item))
            continue;
        const FeatureTag tag = item->tag();
        if (!ORXPropertyTreeDelegate::hasEditor(tag))
            continue;
        m_openEditors.insert(item);
        openEditor(row.siblingAtColumn(1));
        if (tag == FeatureTag::Watermark || tag == FeatureTag::Event)
            openEditor(row.siblingAtColumn(0));
    }
    closeEditorsNotIn(inSight);
    m_bSyncing = false;
}

void ORXFeatureTreeView::closeEditorsNotIn(const QSet<ORXPropertyTreeItem*>& inSight)
{
    const QSet<ORXPropertyTreeItem*> open = m_openEditors;
    for (ORXPropertyTreeItem* item : open) {
        if (inSight.contains(item))
            continue;
        const QWidget* editor = editorOf(item);
        if (editor && hasFocusInside(editor))
            continue;
        for (int column = 0; column < 2; ++column)
            closePersistentEditor(m_pModel->indexFromItem(item, column));
        m_openEditors.remove(item);
    }
}

void ORXFeatureTreeView::closeEditors(ORXPropertyTreeItem* item)
{
    const QVector<ORXPropertyTreeItem*> children = item->children();
    for (ORXPropertyTreeItem* child : children)
        closeEditors(child);
    if (!m_openEditors.remove(item))
        return;
    for (int column = 0; column < 2; ++column)
        closePersistentEditor(m_pModel->indexFromItem(item, column));
}

void ORXFeatureTreeView::rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end)
{
    for (int row = start; row <= end; ++row) {
        if (ORXPropertyTreeItem* item =
                ORXPropertyTreeModel::itemFromIndex(m_pModel->index(row, 0, parent)))
            closeEditors(item);
    }
    QTreeView::rowsAboutToBeRemoved(parent, start, end);
    scheduleEditors();
}
