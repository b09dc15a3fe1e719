// SPDX-License-Identifier: Apache-2.0
#include "tree/ORXFeatureTreeView.h"

#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeModel.h"
#include "styledctl/ZELCustom.h"
#include "styledctl/ZELTouchScrolling.h"
#include "tree/ContextMenuKey.h"
#include "tree/EditorFocus.h"
#include "tree/IORXFeatureWidget.h"
#include "tree/ORXFeatureScrollBar.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXPropertyTreeDelegate.h"

#include <QApplication>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QThread>
#include <QWheelEvent>

ORXFeatureTreeView::ORXFeatureTreeView(ORXPropertyTreeItem::ParentType type,
                                       IORXFeatureWidget* page)
    : QTreeView(page)
    , ZELCustomQssHelper(this)
    , m_pPage(page)
    , m_pModel(new ORXPropertyTreeModel(type, this))
    , m_pDelegate(new ORXPropertyTreeDelegate(type, this))
    , m_editors(this, m_pModel, m_pDelegate, type)
    , m_rows(this, m_pModel, &m_editors, type)
    , m_focus(this, &m_editors, m_pDelegate)
    , m_favoriteMoves(this, m_pModel, m_pDelegate)
{
    setObjectName(QStringLiteral("FeatureTree"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollBar(new ORXFeatureScrollBar(this));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    cSetStyleSheets({ZELCustom::Sheet_Tree, ZELCustom::Sheet_ScrollBar});
    setContextMenuPolicy(Qt::CustomContextMenu);
    new ContextMenuKey(this);
    new ZELTouchScrolling(this);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_pModel->resetCamearID(m_lCameraID);
    m_pModel->bindingFeatureWidget(page);
    setModel(m_pModel);
    setItemDelegate(m_pDelegate);
    header()->setSectionResizeMode(QHeaderView::Stretch);
    header()->hide();

    connect(&m_editors, &OpenEditors::aboutToSync, this, [this] { m_focus.keepCurrentShown(); });
    connect(&m_editors, &OpenEditors::synced, this, &ORXFeatureTreeView::tellRowsInSight);
    connect(&m_favoriteMoves, &FavoriteMoves::SigFavoriteMoved, this,
            [this](ORXPropertyTreeItem* moved, ORXPropertyTreeItem* target) {
                if (auto* tree = dynamic_cast<ORXFeatureTree*>(m_pPage))
                    tree->moveFavorteItem(moved, target);
            });
    connect(this, &ORXFeatureTreeView::sigSetItemVisible, this,
            &ORXFeatureTreeView::onSetItemVisible);
    connect(this, &ORXFeatureTreeView::sigSetItemExpended, this,
            &ORXFeatureTreeView::onSetItemExpended);
    connect(this, &ORXFeatureTreeView::sigUpdateEditorData, this,
            &ORXFeatureTreeView::onUpdateEditorData);
    connect(this, &ORXFeatureTreeView::sigUpdateSpecialInfo, this,
            &ORXFeatureTreeView::onUpdateSpecialInfo);
    connect(this, &QTreeView::expanded, this, &ORXFeatureTreeView::OnSigExpanded);
    connect(this, &QTreeView::collapsed, this, &ORXFeatureTreeView::OnSigCollapsed);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { m_focus.followFocus(now); });
}

ORXFeatureTreeView::~ORXFeatureTreeView()
{
    // A focused editor changes the focus when it is destroyed, after this object's own part.
    disconnect(qApp, nullptr, this, nullptr);
    m_editors.dropAll();
}

void ORXFeatureTreeView::resetData(qint64 cameraId, ORXPropertyTreeItem* root)
{
    m_editors.dropAll();
    m_lCameraID = cameraId;
    m_pDelegate->clearInfo();
    m_pModel->resetCamearID(cameraId);
    m_pModel->updateData(root);
    updateRowsVisible(root, true);
    m_shownFeatures.rowsChanged();
    m_editors.schedule();
}

ORXPropertyTreeItem* ORXFeatureTreeView::rootTreeItem() const
{
    return m_pModel->rootItem();
}

void ORXFeatureTreeView::setForbiddenUpdate(bool forbidden)
{
    m_bForbiddenUpdate = forbidden;
}

void ORXFeatureTreeView::setDisableScroll()
{
    m_bDisableScroll = true;
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void ORXFeatureTreeView::clearModelInfo()
{
    resetData(-1, nullptr);
}

void ORXFeatureTreeView::clearDelegateInfo()
{
    m_favoriteMoves.clearTarget();
}

void ORXFeatureTreeView::setIsCanEdit(bool canEdit)
{
    m_pModel->setIsCanEdit(canEdit);
    m_pDelegate->setIsCanEdit(canEdit);
    updateAllEditorData();
}

void ORXFeatureTreeView::setPlaceholderText(const QString& text)
{
    m_strPlaceholder = text;
    viewport()->update();
}

QWidget* ORXFeatureTreeView::editorOf(ORXPropertyTreeItem* item, int column) const
{
    return m_editors.editorOf(item, column);
}

void ORXFeatureTreeView::openPersistentEdit(ORXPropertyTreeItem* item, bool reopen)
{
    if (reopen && item)
        m_editors.closeBelow(item);
    m_editors.schedule();
}

void ORXFeatureTreeView::updateAllEditorData()
{
    m_editors.refillAll();
}

void ORXFeatureTreeView::updateRowsVisible(ORXPropertyTreeItem* item, bool visible)
{
    if (!item)
        return;
    m_rows.update(item, visible);
    m_editors.schedule();
}

int ORXFeatureTreeView::getVisibleHeight() const
{
    return m_rows.height();
}

// Notifications -----------------------------------------------------------------------------------

void ORXFeatureTreeView::itemVisibleChanged(qint64 cameraId, ORXPropertyTreeItem* item,
                                            bool visible)
{
    if (m_bForbiddenUpdate)
        return;
    if (QThread::currentThread() != thread()) {
        emit sigSetItemVisible(cameraId, item, visible);
        return;
    }
    const QScopedValueRollback<bool> direct(m_bDirectNotification, true);
    emit sigSetItemVisible(cameraId, item, visible);
}

void ORXFeatureTreeView::itemExpanded(qint64 cameraId, ORXPropertyTreeItem* item, bool expanded)
{
    if (!m_bForbiddenUpdate)
        emit sigSetItemExpended(cameraId, item, expanded);
}

void ORXFeatureTreeView::itemValueChanged(qint64 cameraId, ORXPropertyTreeItem* item, int column,
                                          bool needRecreateEditor)
{
    if (!m_bForbiddenUpdate)
        emit sigUpdateEditorData(cameraId, item, column, needRecreateEditor);
}

void ORXFeatureTreeView::itemSpecialInfoChanged(qint64 cameraId, ORXPropertyTreeItem* item,
                                                int info)
{
    if (!m_bForbiddenUpdate)
        emit sigUpdateSpecialInfo(cameraId, item, info);
}

// A queued notification may arrive after its item has gone, or for a camera shown before.
bool ORXFeatureTreeView::concerns(qint64 cameraId, ORXPropertyTreeItem* item) const
{
    return item && cameraId != -1 && cameraId == m_lCameraID && ORXPropertyTreeItem::isAlive(item);
}

void ORXFeatureTreeView::onSetItemVisible(qint64 cameraId, ORXPropertyTreeItem* item, bool visible)
{
    if (!concerns(cameraId, item))
        return;
    m_pPage->itemVisibleStateChanged(item);
    if (item->childCount() > 0)
        return;
    // What a reading thread said may be overtaken by now: by a search, or by another group.
    if (!m_bDirectNotification)
        visible = item->visible() && item->groupVisible() && item->searchMatch();
    if (m_rows.setShown(item, visible))
        m_editors.schedule();
    else if (visible)
        repaintItem(item);
}

// Not by update(index): that lays a changed tree out at once, and one layout has to serve all the
// changes of a pass or a search.
void ORXFeatureTreeView::repaintItem(ORXPropertyTreeItem* item)
{
    if (m_editors.isScheduled() || m_editors.inSight().contains(item))
        viewport()->update();
}

void ORXFeatureTreeView::onSetItemExpended(qint64 cameraId, ORXPropertyTreeItem* item,
                                           bool expanded)
{
    if (concerns(cameraId, item))
        setExpanded(m_pModel->indexFromItem(item, 0), expanded);
}

void ORXFeatureTreeView::onUpdateEditorData(qint64 cameraId, ORXPropertyTreeItem* item, int kind,
                                            bool recreate)
{
    if (!concerns(cameraId, item))
        return;
    repaintItem(item);
    if (m_editors.isOpen(item)) {
        if (recreate)
            renewEditors(item);
        m_editors.refill(item);
    } else {
        // The item's value may have come from its mirror, which the user edits.
        item->noteShownState();
        // Its first value came.
        if (m_editors.inSight().contains(item) && OpenEditors::hasEditor(*item))
            m_editors.schedule();
    }
    if (kind != 1)
        m_pPage->itemValueChanged(item);
}

void ORXFeatureTreeView::renewEditors(ORXPropertyTreeItem* item)
{
    const QWidget* editor = editorOf(item);
    // The rest of what is being typed must not land in the new editor.
    const bool keepsFocus =
        editor && EditorFocus::isInside(editor) && !EditorFocus::hasPendingEdit(editor);
    m_editors.renew(item);
    if (keepsFocus)
        m_focus.focusCell(m_pModel->indexFromItem(item, 1), Qt::OtherFocusReason);
}

void ORXFeatureTreeView::onUpdateSpecialInfo(qint64 cameraId, ORXPropertyTreeItem* item, int info)
{
    if (concerns(cameraId, item))
        m_pPage->itemSpecialInfoChanged(item, info);
}

void ORXFeatureTreeView::OnSigExpanded(const QModelIndex& index)
{
    if (ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index))
        m_pPage->itemExpandStateChanged(item, true);
    m_editors.schedule();
}

void ORXFeatureTreeView::OnSigCollapsed(const QModelIndex& index)
{
    if (ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index)) {
        m_editors.closeBelow(item);
        m_pPage->itemExpandStateChanged(item, false);
    }
    m_editors.schedule();
}

// Mouse and painting ------------------------------------------------------------------------------

void ORXFeatureTreeView::wheelEvent(QWheelEvent* event)
{
    if (m_bDisableScroll)
        event->ignore();
    else
        QTreeView::wheelEvent(event);
}

void ORXFeatureTreeView::mousePressEvent(QMouseEvent* event)
{
    if (!RowFocus::isThin(indexAt(event->pos())))
        QTreeView::mousePressEvent(event);
    event->ignore();
}

void ORXFeatureTreeView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (!RowFocus::isThin(indexAt(event->pos())))
        QTreeView::mouseDoubleClickEvent(event);
}

void ORXFeatureTreeView::mouseReleaseEvent(QMouseEvent* event)
{
    QTreeView::mouseReleaseEvent(event);
    event->ignore();
}

void ORXFeatureTreeView::mouseMoveEvent(QMouseEvent* event)
{
    QTreeView::mouseMoveEvent(event);
    event->ignore();
}

void ORXFeatureTreeView::changeEvent(QEvent* event)
{
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        viewport()->update();
        updateAllEditorData();
    }
}

void ORXFeatureTreeView::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    const QModelIndex top = indexAt(QPoint(1, 1));
    const bool empty = !top.isValid() || (!indexBelow(top).isValid() && !top.parent().isValid());
    if (m_strPlaceholder.isEmpty() || !empty)
        return;
    QPainter painter(viewport());
    painter.setFont(ZELCustom::font(14));
    painter.setPen(
        ZELCustom::getDataBaseColor(QStringLiteral("ORXPropertyTreeModelColor_Foreground")));
    const int margin = 24;
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, m_strPlaceholder);
}

void ORXFeatureTreeView::drawBranches(QPainter* painter, const QRect& rect,
                                      const QModelIndex& index) const
{
    const ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index);
    if (item && item->tag() != FeatureTag::CCM && !RowFocus::isThin(index))
        QTreeView::drawBranches(painter, rect, index);
}

// Rows in sight -----------------------------------------------------------------------------------

void ORXFeatureTreeView::tellRowsInSight()
{
    QStringList names;
    if (m_pModel->rootItem() && isVisible())
        names = m_shownFeatures.namesFrom(*this, *m_pModel, m_editors.inSight());
    if (names == m_toldInSight)
        return;
    m_toldInSight = names;
    emit SigRowsInSight(names);
}

void ORXFeatureTreeView::updateGeometries()
{
    const QScopedValueRollback<bool> inGeometries(m_bInGeometries, true);
    QTreeView::updateGeometries();
    m_shownFeatures.rowsChanged();
    m_editors.schedule();
}

// Rows may also go without a word from Qt, as when all branches close at once. Their editors go
// before the layout hides them.
void ORXFeatureTreeView::updateEditorGeometries()
{
    m_editors.closeWithoutRow();
    QTreeView::updateEditorGeometries();
}

void ORXFeatureTreeView::scrollContentsBy(int dx, int dy)
{
    QTreeView::scrollContentsBy(dx, dy);
    // At once, so that no row is ever seen without its editor while scrolling; but not in the
    // middle of a layout, which moves the scroll bar, too.
    if (!m_bInGeometries)
        m_editors.sync();
    m_editors.schedule();
}

void ORXFeatureTreeView::showEvent(QShowEvent* event)
{
    QTreeView::showEvent(event);
    m_editors.sync();
    m_editors.schedule();
}

void ORXFeatureTreeView::hideEvent(QHideEvent* event)
{
    QTreeView::hideEvent(event);
    m_editors.schedule();
}

void ORXFeatureTreeView::rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end)
{
    for (int row = start; row <= end; ++row) {
        if (ORXPropertyTreeItem* item =
                ORXPropertyTreeModel::itemFromIndex(m_pModel->index(row, 0, parent)))
            m_editors.closeBelow(item);
    }
    m_editors.rowsGo();
    m_shownFeatures.rowsChanged();
    QTreeView::rowsAboutToBeRemoved(parent, start, end);
    m_editors.schedule();
}

// Focus and keys ----------------------------------------------------------------------------------

bool ORXFeatureTreeView::focusNextPrevChild(bool next)
{
    return m_focus.focusNext(next) || QTreeView::focusNextPrevChild(next);
}

void ORXFeatureTreeView::focusInEvent(QFocusEvent* event)
{
    QTreeView::focusInEvent(event);
    m_focus.keepCurrentShown();
}

// A row that becomes the current one does not take the focus into its editor: the one before may
// have gone from under the user's hands.
bool ORXFeatureTreeView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event)
{
    return trigger != CurrentChanged && QTreeView::edit(index, trigger, event);
}

// Rows are walked in the name column: a current value cell would give the focus to its editor.
QModelIndex ORXFeatureTreeView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex from = currentIndex().siblingAtColumn(0);
    const QModelIndex to = QTreeView::moveCursor(action, modifiers).siblingAtColumn(0);
    const bool up =
        action == MoveUp || action == MovePrevious || action == MoveEnd || action == MovePageDown;
    return m_focus.passThin(from, to, action == MoveLeft ? 0 : up ? -1 : 1);
}

void ORXFeatureTreeView::keyboardSearch(const QString& search)
{
    const QPersistentModelIndex before = currentIndex();
    QTreeView::keyboardSearch(search);
    if (RowFocus::isThin(currentIndex()))
        setCurrentIndex(before);
}

void ORXFeatureTreeView::keyPressEvent(QKeyEvent* event)
{
    // Keys that an editor left over are not for the rows, but for the way back to them.
    if (!hasFocus()) {
        event->setAccepted(event->key() == Qt::Key_Escape);
        if (event->isAccepted())
            setFocus(Qt::OtherFocusReason);
        return;
    }
    const bool up = event->key() == Qt::Key_Up;
    const bool moves = up || event->key() == Qt::Key_Down;
    const bool wantsEditor = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                             event->key() == Qt::Key_F2;
    if ((moves && event->modifiers() == Qt::AltModifier &&
         m_favoriteMoves.moveByOne(currentIndex(), up)) ||
        (wantsEditor && m_focus.focusRow(currentIndex())))
        event->accept();
    else
        QTreeView::keyPressEvent(event);
}

// Dragging ----------------------------------------------------------------------------------------

bool ORXFeatureTreeView::showDropTarget(const QDropEvent* event)
{
    const bool allowed = m_favoriteMoves.showTarget(event);
    const int margin = autoScrollMargin();
    const QRect inner = viewport()->rect().adjusted(margin, margin, -margin, -margin);
    if (hasAutoScroll() && !inner.contains(event->pos()))
        startAutoScroll();
    return allowed;
}

void ORXFeatureTreeView::dragEnterEvent(QDragEnterEvent* event)
{
    if (showDropTarget(event)) {
        event->accept();
        setState(DraggingState);
    } else {
        // Not refused for good: the pointer may still reach a favourite.
        event->setAccepted(FavoriteMoves::carriesFavorite(event->mimeData()));
    }
}

void ORXFeatureTreeView::dragMoveEvent(QDragMoveEvent* event)
{
    if (showDropTarget(event)) {
        event->accept();
        setState(DraggingState);
    } else {
        event->ignore();
    }
}

void ORXFeatureTreeView::dragLeaveEvent(QDragLeaveEvent* event)
{
    QTreeView::dragLeaveEvent(event);
    m_favoriteMoves.clearTarget();
}

void ORXFeatureTreeView::dropEvent(QDropEvent* event)
{
    stopAutoScroll();
    setState(NoState);
    m_favoriteMoves.clearTarget();
    event->setAccepted(m_favoriteMoves.drop(event));
    viewport()->update();
}

void ORXFeatureTreeView::startDrag(Qt::DropActions)
{
    m_favoriteMoves.drag(currentIndex(), viewOptions());
}
