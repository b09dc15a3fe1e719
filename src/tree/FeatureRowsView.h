// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ORXPropertyTreeItem.h"
#include "tree/FavoriteMoves.h"
#include "tree/MarkedRows.h"
#include "tree/OpenEditors.h"
#include "tree/RowFocus.h"
#include "tree/RowVisibility.h"
#include "tree/ShownFeatures.h"

#include <QTreeView>

class ORXPropertyTreeDelegate;
class ORXPropertyTreeModel;

// A tree view over items whose value editors stand open: the part of a page's view that knows rows,
// keys and the mouse, but neither page nor camera. GUI thread.
//
// What it does is divided: OpenEditors (which editors are open), RowVisibility (which rows are
// hidden), RowFocus (rows, editors and the keyboard), FavoriteMoves (dragging), ShownFeatures (what
// the user has before him), MarkedRows (marks of changes). The view passes Qt's events on to them.
//
// With the keyboard: Enter or F2 goes from a row to its editor (SigNotEditable without one), Tab
// and Backtab go from editor to editor in the order of the rows, scrolling where needed, and Escape
// goes back to the row. The Menu key or Shift+F10 opens the row's menu, Alt+Up and Alt+Down move a
// favourite.
class FeatureRowsView : public QTreeView
{
    Q_OBJECT
public:
    FeatureRowsView(ORXPropertyTreeItem::ParentType type, QWidget* parent);
    ~FeatureRowsView() override;

    // For pages that give the view the height of its rows.
    void setDisableScroll();
    int getVisibleHeight() const;
    // Opens the value editors below and of `item`, those in sight at once and the others when they
    // come into sight. With `reopen` open ones are made anew.
    void openPersistentEdit(ORXPropertyTreeItem* item, bool reopen);
    // Hides and shows the rows of `item` and below by the items' own flags.
    void updateRowsVisible(ORXPropertyTreeItem* item, bool visible);
    void updateAllEditorData();
    // The marks that the rows carry; null for none. Not owned.
    void setMarks(const ChangeMarks* marks) { m_markedRows.setMarks(marks); }
    // What the editors tell assistive technology, without the values.
    void describeEditors() { m_editors.describeAll(); }
    // Forgets where a dragged favourite would land.
    void clearDelegateInfo();
    void setIsCanEdit(bool canEdit);

    ORXPropertyTreeModel* treeModel() const { return m_pModel; }
    ORXPropertyTreeDelegate* treeDelegate() const { return m_pDelegate; }
    ORXPropertyTreeItem* rootTreeItem() const;
    // The editor of an item's value (or, column 0, name) cell; null when it is out of sight.
    QWidget* editorOf(ORXPropertyTreeItem* item, int column = 1) const;

signals:
    // The features that the user has before him, when they changed: those in sight from top to
    // bottom, then what the view shows below, then above them. Empty when the view is hidden.
    void SigRowsInSight(const QStringList& names);
    // The user has moved a favourite before `target`, or to the end without one.
    void SigFavoriteMoved(ORXPropertyTreeItem* moved, ORXPropertyTreeItem* target);
    // The user wants to go to the editor of the current row, which cannot be used.
    void SigNotEditable();

protected:
    // Before showRowsBelow(): all editors give up.
    void dropEditors();
    // Shows the children of `root`, not owned; null shows nothing.
    void showRowsBelow(ORXPropertyTreeItem* root);
    // Shows or hides the row of an item without children.
    void showRow(ORXPropertyTreeItem* item, bool visible);
    // Shows what the item says now, in editors that are made anew if `recreate`.
    void showValue(ORXPropertyTreeItem* item, bool recreate);

    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void updateEditorGeometries() override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void keyboardSearch(const QString& search) override;
    void startDrag(Qt::DropActions actions) override;
    void drawBranches(QPainter* painter, const QRect& rect,
                      const QModelIndex& index) const override;
    void rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) override;

private:
    void repaintItem(ORXPropertyTreeItem* item);
    void renewEditors(ORXPropertyTreeItem* item);
    void tellRowsInSight();
    bool showDropTarget(const QDropEvent* event);

    bool m_bDisableScroll = false;
    bool m_bInGeometries = false;
    ORXPropertyTreeModel* m_pModel;       // Owned (child).
    ORXPropertyTreeDelegate* m_pDelegate; // Owned (child).
    OpenEditors m_editors;
    RowVisibility m_rows;
    RowFocus m_focus;
    FavoriteMoves m_favoriteMoves;
    MarkedRows m_markedRows;
    ShownFeatures m_shownFeatures;
    QStringList m_toldInSight;
};
