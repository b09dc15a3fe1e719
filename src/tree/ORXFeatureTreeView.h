// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/IORXFeatureNotify.h"
#include "model/ORXPropertyTreeItem.h"
#include "styledctl/ZELCustomQssHelper.h"
#include "tree/FavoriteMoves.h"
#include "tree/OpenEditors.h"
#include "tree/RowFocus.h"
#include "tree/RowVisibility.h"
#include "tree/ShownFeatures.h"

#include <QTreeView>

#include <atomic>

class IFeatureViewPage;
class ORXPropertyTreeDelegate;
class ORXPropertyTreeModel;

// The tree view of a page. Turns the notifications of items into updates of rows and editors, and
// keeps the value editor of every row in sight open, once its value was read. Owned by its page.
//
// | operation                        | thread                            | lock              |
// |----------------------------------|-----------------------------------|-------------------|
// | item... (IORXFeatureNotify)      | GUI or reading; emits signals     | see the interface |
// | everything else                  | GUI                               | none              |
//
// What it does is divided: OpenEditors (which editors are open), RowVisibility (which rows are
// hidden), RowFocus (rows, editors and the keyboard), FavoriteMoves (dragging), ShownFeatures (what
// the user has before him). The view passes Qt's events and the items' notifications on to them.
//
// With the keyboard: Enter or F2 goes from a row to its editor, Tab and Backtab go from editor to
// editor in the order of the rows, scrolling where needed, and Escape goes back to the row. The
// Menu key or Shift+F10 opens the row's menu, Alt+Up and Alt+Down move a favourite.
class ORXFeatureTreeView : public QTreeView, public IORXFeatureNotify, public ZELCustomQssHelper
{
    Q_OBJECT
public:
    ORXFeatureTreeView(ORXPropertyTreeItem::ParentType type, IFeatureViewPage* page,
                       QWidget* parent);
    ~ORXFeatureTreeView() override;

    void resetData(qint64 cameraId, ORXPropertyTreeItem* root);
    // While set, notifications of items are dropped.
    void setForbiddenUpdate(bool forbidden);
    // For pages that give the view the height of its rows.
    void setDisableScroll();
    int getVisibleHeight() const;
    // Opens the value editors below and of `item`, those in sight at once and the others when they
    // come into sight. With `reopen` open ones are made anew.
    void openPersistentEdit(ORXPropertyTreeItem* item, bool reopen);
    // Hides and shows the rows of `item` and below by the items' own flags.
    void updateRowsVisible(ORXPropertyTreeItem* item, bool visible);
    void updateAllEditorData();
    // Forgets the rows; the items stay.
    void clearModelInfo();
    // Forgets where a dragged favourite would land.
    void clearDelegateInfo();
    void setIsCanEdit(bool canEdit);
    // Text in the middle of an empty view.
    void setPlaceholderText(const QString& text);
    QString placeholderText() const { return m_strPlaceholder; }

    ORXPropertyTreeModel* treeModel() const { return m_pModel; }
    ORXPropertyTreeDelegate* treeDelegate() const { return m_pDelegate; }
    ORXPropertyTreeItem* rootTreeItem() const;
    qint64 cameraID() const { return m_lCameraID; }
    // The editor of an item's value (or, column 0, name) cell; null when it is out of sight.
    QWidget* editorOf(ORXPropertyTreeItem* item, int column = 1) const;

    void itemVisibleChanged(qint64 cameraId, ORXPropertyTreeItem* item, bool visible) override;
    void itemExpanded(qint64 cameraId, ORXPropertyTreeItem* item, bool expanded) override;
    void itemValueChanged(qint64 cameraId, ORXPropertyTreeItem* item, int column,
                          bool needRecreateEditor) override;
    void itemSpecialInfoChanged(qint64 cameraId, ORXPropertyTreeItem* item, int info) override;

signals:
    void sigSetItemVisible(qint64 cameraId, ORXPropertyTreeItem* item, bool visible);
    void sigSetItemExpended(qint64 cameraId, ORXPropertyTreeItem* item, bool expanded);
    void sigUpdateEditorData(qint64 cameraId, ORXPropertyTreeItem* item, int kind, bool recreate);
    void sigUpdateSpecialInfo(qint64 cameraId, ORXPropertyTreeItem* item, int info);
    // The features that the user has before him, when they changed: those in sight from top to
    // bottom, then what the view shows below, then above them. Empty when the view is hidden.
    void SigRowsInSight(const QStringList& names);
    // The user has moved a favourite before `target`, or to the end without one.
    void SigFavoriteMoved(ORXPropertyTreeItem* moved, ORXPropertyTreeItem* target);

public slots:
    void onSetItemVisible(qint64 cameraId, ORXPropertyTreeItem* item, bool visible);
    void onSetItemExpended(qint64 cameraId, ORXPropertyTreeItem* item, bool expanded);
    void onUpdateEditorData(qint64 cameraId, ORXPropertyTreeItem* item, int kind, bool recreate);
    void onUpdateSpecialInfo(qint64 cameraId, ORXPropertyTreeItem* item, int info);
    void OnSigExpanded(const QModelIndex& index);
    void OnSigCollapsed(const QModelIndex& index);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
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
    bool concerns(qint64 cameraId, ORXPropertyTreeItem* item) const;
    void repaintItem(ORXPropertyTreeItem* item);
    void renewEditors(ORXPropertyTreeItem* item);
    void tellRowsInSight();
    bool showDropTarget(const QDropEvent* event);

    IFeatureViewPage* m_pPage;                   // Not owned.
    std::atomic<bool> m_bForbiddenUpdate{false}; // read by the notifying threads
    bool m_bDisableScroll = false;
    bool m_bInGeometries = false;
    bool m_bDirectNotification = false; // the running notification came on this thread
    qint64 m_lCameraID = -1;
    ORXPropertyTreeModel* m_pModel;       // Owned (child).
    ORXPropertyTreeDelegate* m_pDelegate; // Owned (child).
    OpenEditors m_editors;
    RowVisibility m_rows;
    RowFocus m_focus;
    FavoriteMoves m_favoriteMoves;
    ShownFeatures m_shownFeatures;
    QStringList m_toldInSight;
    QString m_strPlaceholder;
};
