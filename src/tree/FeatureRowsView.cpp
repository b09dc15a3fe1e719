// SPDX-License-Identifier: Apache-2.0
#include "tree/FeatureRowsView.h"

#include "basetools/QtDifferences.h"
#include "model/ORXPropertyTreeModel.h"
#include "styledctl/ZELTouchScrolling.h"
#include "tree/ContextMenuKey.h"
#include "tree/EditorFocus.h"
#include "tree/ORXFeatureScrollBar.h"
#include "tree/ORXPropertyTreeDelegate.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QScopedValueRollback>
#include <QWheelEvent>

FeatureRowsView::FeatureRowsView(ORXPropertyTreeItem::ParentType type, QWidget* parent)
    : QTreeView(parent)
    , m_pModel(new ORXPropertyTreeModel(type, this))
    , m_pDelegate(new ORXPropertyTreeDelegate(type, this))
    , m_editors(this, m_pModel, m_pDelegate, type)
    , m_rows(this, m_pModel, &m_editors, type)
    , m_focus(this, &m_editors, m_pDelegate)
    , m_favoriteMoves(this, m_pModel, m_pDelegate)
    , m_markedRows(this, m_pModel, m_pDelegate, &m_editors)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollBar(new ORXFeatureScrollBar(this));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setContextMenuPolicy(Qt::CustomContextMenu);
    new ContextMenuKey(this);
    new ZELTouchScrolling(this);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setModel(m_pModel);
    setItemDelegate(m_pDelegate);
    header()->setSectionResizeMode(QHeaderView::Stretch);
    header()->hide();

    connect(&m_editors, &OpenEditors::aboutToSync, this, [this] { m_focus.keepCurrentShown(); });
    connect(&m_editors, &OpenEditors::synced, this, &FeatureRowsView::tellRowsInSight);
    connect(&m_favoriteMoves, &FavoriteMoves::SigFavoriteMoved, this,
            &FeatureRowsView::SigFavoriteMoved);
    connect(this, &QTreeView::expanded, &m_editors, &OpenEditors::schedule);
    connect(this, &QTreeView::collapsed, &m_editors, &OpenEditors::schedule);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { m_focus.followFocus(now); });
}

FeatureRowsView::~FeatureRowsView()
{
    // A focused editor changes the focus when it is destroyed, after this object's own part.
    disconnect(qApp, nullptr, this, nullptr);
    m_editors.dropAll();
}

void FeatureRowsView::showRowsBelow(ORXPropertyTreeItem* root)
{
    m_pDelegate->clearInfo();
    m_pModel->updateData(root);
    updateRowsVisible(root, true);
}

void FeatureRowsView::dropEditors()
{
    m_editors.dropAll();
}

void FeatureRowsView::showRow(ORXPropertyTreeItem* item, bool visible)
{
    if (m_rows.setShown(item, visible))
        m_editors.schedule();
    else if (visible)
        repaintItem(item);
}

void FeatureRowsView::showValue(ORXPropertyTreeItem* item, bool recreate)
{
    repaintItem(item);
    if (m_editors.isOpen(item)) {
        if (recreate)
            renewEditors(item);
        m_editors.refill(item);
        return;
    }
    // The item's value may have come from its mirror, which the user edits.
    item->noteShownState();
    // Its first value came.
    if (m_editors.inSight().contains(item) && OpenEditors::hasEditor(*item))
        m_editors.schedule();
}

// Not by update(index): that lays a changed tree out at once, and one layout has to serve all the
// changes of a pass or a search.
void FeatureRowsView::repaintItem(ORXPropertyTreeItem* item)
{
    if (m_editors.isScheduled() || m_editors.inSight().contains(item))
        viewport()->update();
}

void FeatureRowsView::renewEditors(ORXPropertyTreeItem* item)
{
    const QWidget* editor = editorOf(item);
    // The rest of what is being typed must not land in the new editor.
    const bool keepsFocus =
        editor && EditorFocus::isInside(editor) && !EditorFocus::hasPendingEdit(editor);
    m_editors.renew(item);
    if (keepsFocus)
        m_focus.focusCell(m_pModel->indexFromItem(item, 1), Qt::OtherFocusReason);
}

ORXPropertyTreeItem* FeatureRowsView::rootTreeItem() const
{
    return m_pModel->rootItem();
}

QWidget* FeatureRowsView::editorOf(ORXPropertyTreeItem* item, int column) const
{
    return m_editors.editorOf(item, column);
}

void FeatureRowsView::openPersistentEdit(ORXPropertyTreeItem* item, bool reopen)
{
    if (reopen && item)
        m_editors.closeBelow(item);
    m_editors.schedule();
}

void FeatureRowsView::updateAllEditorData()
{
    m_editors.refillAll();
}

void FeatureRowsView::updateRowsVisible(ORXPropertyTreeItem* item, bool visible)
{
    if (!item)
        return;
    m_rows.update(item, visible);
    m_editors.schedule();
}

int FeatureRowsView::getVisibleHeight() const
{
    return m_rows.height();
}

void FeatureRowsView::setDisableScroll()
{
    m_bDisableScroll = true;
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void FeatureRowsView::clearDelegateInfo()
{
    m_favoriteMoves.clearTarget();
}

void FeatureRowsView::setIsCanEdit(bool canEdit)
{
    m_pModel->setIsCanEdit(canEdit);
    m_pDelegate->setIsCanEdit(canEdit);
    updateAllEditorData();
}

// Rows in sight -----------------------------------------------------------------------------------

void FeatureRowsView::tellRowsInSight()
{
    QStringList names;
    if (m_pModel->rootItem() && isVisible())
        names = m_shownFeatures.namesFrom(*this, *m_pModel, m_editors.inSight());
    if (names == m_toldInSight)
        return;
    m_toldInSight = names;
    emit SigRowsInSight(names);
}

void FeatureRowsView::updateGeometries()
{
    const QScopedValueRollback<bool> inGeometries(m_bInGeometries, true);
    QTreeView::updateGeometries();
    m_shownFeatures.rowsChanged();
    m_editors.schedule();
}

// Rows may also go without a word from Qt, as when all branches close at once. Their editors go
// before the layout hides them.
void FeatureRowsView::updateEditorGeometries()
{
    m_editors.closeWithoutRow();
    QTreeView::updateEditorGeometries();
}

void FeatureRowsView::scrollContentsBy(int dx, int dy)
{
    QTreeView::scrollContentsBy(dx, dy);
    // At once, so that no row is ever seen without its editor while scrolling; but not in the
    // middle of a layout, which moves the scroll bar, too.
    if (!m_bInGeometries)
        m_editors.sync();
    m_editors.schedule();
}

void FeatureRowsView::showEvent(QShowEvent* event)
{
    QTreeView::showEvent(event);
    m_editors.sync();
    m_editors.schedule();
}

void FeatureRowsView::hideEvent(QHideEvent* event)
{
    QTreeView::hideEvent(event);
    m_editors.schedule();
}

void FeatureRowsView::rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end)
{
    for (int row = start; row <= end; ++row) {
        if (ORXPropertyTreeItem* item =
                ORXPropertyTreeModel::itemFromIndex(m_pModel->index(row, 0, parent)))
            m_editors.closeBelow(item);
    }
    m_editors.rowsGo();
    QTreeView::rowsAboutToBeRemoved(parent, start, end);
    m_editors.schedule();
}

// Focus and keys ----------------------------------------------------------------------------------

// Qt makes the row current whose editor takes the focus from the view. It may take it by a mouse
// press: the row must not move from under the pointer.
bool FeatureRowsView::event(QEvent* event)
{
    if (event->type() != QEvent::FocusOut)
        return QTreeView::event(event);
    // What the focus leaves may be written, and a host may close the window from there.
    const QPointer<FeatureRowsView> self(this);
    const bool scrolls = hasAutoScroll();
    setAutoScroll(false);
    const bool handled = QTreeView::event(event);
    if (self)
        setAutoScroll(scrolls);
    return handled;
}

bool FeatureRowsView::focusNextPrevChild(bool next)
{
    return m_focus.focusNext(next) || QTreeView::focusNextPrevChild(next);
}

void FeatureRowsView::focusInEvent(QFocusEvent* event)
{
    QTreeView::focusInEvent(event);
    m_focus.keepCurrentShown();
}

// A row that becomes the current one does not take the focus into its editor: the one before may
// have gone from under the user's hands.
bool FeatureRowsView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event)
{
    return trigger != CurrentChanged && QTreeView::edit(index, trigger, event);
}

// Rows are walked in the name column: a current value cell would give the focus to its editor.
QModelIndex FeatureRowsView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex from = currentIndex().siblingAtColumn(0);
    const QModelIndex to = QTreeView::moveCursor(action, modifiers).siblingAtColumn(0);
    const bool up =
        action == MoveUp || action == MovePrevious || action == MoveEnd || action == MovePageDown;
    return m_focus.passThin(from, to, action == MoveLeft ? 0 : up ? -1 : 1);
}

void FeatureRowsView::keyboardSearch(const QString& search)
{
    const QPersistentModelIndex before = currentIndex();
    QTreeView::keyboardSearch(search);
    if (RowFocus::isThin(currentIndex()))
        setCurrentIndex(before);
}

void FeatureRowsView::keyPressEvent(QKeyEvent* event)
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
    if (wantsEditor && hasFocus())
        emit SigNotEditable();
}

// Mouse and painting ------------------------------------------------------------------------------

void FeatureRowsView::wheelEvent(QWheelEvent* event)
{
    if (m_bDisableScroll)
        event->ignore();
    else
        QTreeView::wheelEvent(event);
}

void FeatureRowsView::mousePressEvent(QMouseEvent* event)
{
    if (!RowFocus::isThin(indexAt(event->pos())))
        QTreeView::mousePressEvent(event);
    event->ignore();
}

void FeatureRowsView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (!RowFocus::isThin(indexAt(event->pos())))
        QTreeView::mouseDoubleClickEvent(event);
}

void FeatureRowsView::mouseReleaseEvent(QMouseEvent* event)
{
    QTreeView::mouseReleaseEvent(event);
    event->ignore();
}

void FeatureRowsView::mouseMoveEvent(QMouseEvent* event)
{
    QTreeView::mouseMoveEvent(event);
    event->ignore();
}

void FeatureRowsView::drawBranches(QPainter* painter, const QRect& rect,
                                   const QModelIndex& index) const
{
    const ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index);
    if (item && item->tag() != FeatureTag::CCM && !RowFocus::isThin(index))
        QTreeView::drawBranches(painter, rect, index);
}

void FeatureRowsView::changeEvent(QEvent* event)
{
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        viewport()->update();
        updateAllEditorData();
    }
}

// Dragging ----------------------------------------------------------------------------------------

bool FeatureRowsView::showDropTarget(const QDropEvent* event)
{
    const bool allowed = m_favoriteMoves.showTarget(event);
    const int margin = autoScrollMargin();
    const QRect inner = viewport()->rect().adjusted(margin, margin, -margin, -margin);
    if (hasAutoScroll() && !inner.contains(QtDifferences::dropPosition(*event)))
        startAutoScroll();
    return allowed;
}

void FeatureRowsView::dragEnterEvent(QDragEnterEvent* event)
{
    if (showDropTarget(event)) {
        event->accept();
        setState(DraggingState);
    } else {
        // Not refused for good: the pointer may still reach a favourite.
        event->setAccepted(FavoriteMoves::carriesFavorite(event->mimeData()));
    }
}

void FeatureRowsView::dragMoveEvent(QDragMoveEvent* event)
{
    if (showDropTarget(event)) {
        event->accept();
        setState(DraggingState);
    } else {
        event->ignore();
    }
}

void FeatureRowsView::dragLeaveEvent(QDragLeaveEvent* event)
{
    QTreeView::dragLeaveEvent(event);
    m_favoriteMoves.clearTarget();
}

void FeatureRowsView::dropEvent(QDropEvent* event)
{
    stopAutoScroll();
    setState(NoState);
    m_favoriteMoves.clearTarget();
    event->setAccepted(m_favoriteMoves.drop(event));
    viewport()->update();
}

void FeatureRowsView::startDrag(Qt::DropActions)
{
    m_favoriteMoves.drag(currentIndex(), QtDifferences::rowOption<QStyleOptionViewItem>(*this));
}
