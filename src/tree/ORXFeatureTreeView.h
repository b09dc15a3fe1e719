// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/IORXFeatureNotify.h"
#include "model/ORXPropertyTreeItem.h"
#include "styledctl/ZELCustomQssHelper.h"
#include "tree/ShownFeatures.h"

#include <QSet>
#include <QTimer>
#include <QTreeView>
#include <QVector>

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
// An editor closes before its row goes, for whatever reason. What is being typed in it is dropped,
// and the focus comes to the view (see EditorFocus).
//
// With the keyboard: Enter or F2 goes from a row to its editor, Tab and Backtab go from editor to
// editor in the order of the rows, scrolling where needed, and Escape goes back to the row. The
// rows directly below the root are a line of one pixel, which is never the current row, nor is a
// row whose picture stands elsewhere. The Menu key or Shift+F10 opens the row's menu, Alt+Up and
// Alt+Down move a favourite.
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
    // Ends a drag and closes all editors.
    void clearDelegateInfo();
    void setIsCanEdit(bool canEdit);
    // Text in the middle of an empty view.
    void setPlaceholderText(const QString& text);
    QString placeholderText() const { return m_strPlaceholder; }

    ORXPropertyTreeModel* treeModel() const { return m_pModel; }
    ORXPropertyTreeDelegate* treeDelegate() const { return m_pDelegate; }
    ORXPropertyTreeItem* rootTreeItem() const { return m_pRootItem; }
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
    void doParentItemVisible(ORXPropertyTreeItem* item, int changedRow);
    bool setRowHiddenIfChanged(ORXPropertyTreeItem* item, bool hidden);
    void repaintItem(ORXPropertyTreeItem* item);
    int visibleHeightBelow(ORXPropertyTreeItem* item) const;
    void scheduleEditors();
    void syncEditors();
    void tellRowsInSight();
    static bool hasEditor(const ORXPropertyTreeItem& item);
    void openEditors(ORXPropertyTreeItem* item);
    void closeEditors(ORXPropertyTreeItem* item);
    void closeEditorsBelow(ORXPropertyTreeItem* item);
    void closeEditorsOutOfSight();
    void closeEditorsWithoutRow();
    void dropEditors();
    static bool isThin(const QModelIndex& index);
    void keepCurrentShown();
    bool moveFavorite(const QModelIndex& row, bool up);
    QWidget* editorAround(QWidget* widget) const;
    void onEditingEnded(QWidget* editor);
    void onFocusChanged(QWidget* old, QWidget* now);
    QModelIndex cellOfEditor(QWidget* widget) const;
    QModelIndex firstCell(const QModelIndex& row) const;
    QModelIndex nextCell(const QModelIndex& cell, bool next) const;
    bool focusCell(const QModelIndex& cell, Qt::FocusReason reason);
    bool canIndexDrop(const QModelIndex& target, const QMimeData* mime) const;
    ORXPropertyTreeItem* lastFavorite() const;
    bool showDropTarget(const QDropEvent* event);
    void clearDropTarget();
    QPixmap dragPicture(const QModelIndex& index);

    IFeatureViewPage* m_pPage; // Not owned.
    ORXPropertyTreeItem::ParentType m_pageType;
    std::atomic<bool> m_bForbiddenUpdate{false}; // read by the notifying threads
    bool m_bDisableScroll = false;
    bool m_bDropShown = false;
    bool m_bSyncing = false;
    bool m_bInGeometries = false;
    bool m_bRowsChanged = true;         // since m_shownFeatures were collected
    bool m_bDirectNotification = false; // the running notification came on this thread
    qint64 m_lCameraID = -1;
    ORXPropertyTreeModel* m_pModel;             // Owned (child).
    ORXPropertyTreeDelegate* m_pDelegate;       // Owned (child).
    ORXPropertyTreeItem* m_pRootItem = nullptr; // Not owned.
    QVector<ORXPropertyTreeItem*> m_inSight;    // Rows from top to bottom. Not owned.
    QSet<ORXPropertyTreeItem*> m_openEditors;   // Items whose editors are open. Not owned.
    ShownFeatures m_shownFeatures;
    QStringList m_toldInSight;
    QTimer m_editorTimer;
    QString m_strPlaceholder;
};

// Deselects the text of an editor that shows one, and brings its start into sight.
void showEditorTextStart(QWidget* editor);
