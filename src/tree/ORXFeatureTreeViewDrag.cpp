// SPDX-License-Identifier: Apache-2.0
// Dragging of favourites in ORXFeatureTreeView.
#include "device/ReentrancyScope.h"
#include "model/ORXPropertyTreeModel.h"
#include "styledctl/ZELCustomCheckBox.h"
#include "styledctl/ZELCustomComboBox.h"
#include "tree/ORXFeatureTreeView.h"
#include "tree/ORXPropertyTreeDelegate.h"

#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QPainter>

namespace {

constexpr qreal kDragOpacity = 0.5;

// The address that a drag carries is trusted only if such a favourite lives.
ORXPropertyTreeItem* movedItem(const QMimeData* data)
{
    const QByteArray text = data->data(QString::fromLatin1(kMoveFavoriteMime));
    bool ok = false;
    const auto address = static_cast<quintptr>(text.toULongLong(&ok));
    auto* item = reinterpret_cast<ORXPropertyTreeItem*>(address);
    const bool valid = ok && ORXPropertyTreeItem::isAlive(item) &&
                       item->itemType() == ORXPropertyTreeItem::FavoriteItem;
    return valid ? item : nullptr;
}

} // namespace

bool ORXFeatureTreeView::canIndexDrop(const QModelIndex& target, const QMimeData* mime) const
{
    if (!mime || !mime->hasFormat(QString::fromLatin1(kMoveFavoriteMime)))
        return false;
    const ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(target);
    if (!item)
        return lastFavorite();
    const ORXPropertyTreeItem* parent = item->parent(m_pageType);
    return item->itemType() == ORXPropertyTreeItem::FavoritesGroup ||
           (parent && parent->itemType() == ORXPropertyTreeItem::FavoritesGroup);
}

// The last shown favourite when nothing else stands below the favourites, so that the empty space
// is theirs.
ORXPropertyTreeItem* ORXFeatureTreeView::lastFavorite() const
{
    ORXPropertyTreeItem* group = m_pRootItem ? m_pRootItem->child(0) : nullptr;
    if (!group || group->itemType() != ORXPropertyTreeItem::FavoritesGroup)
        return nullptr;
    for (int row = 1; row < m_pRootItem->childCount(); ++row) {
        if (!isRowHidden(row, QModelIndex()))
            return nullptr;
    }
    for (int row = group->childCount() - 1; row >= 0; --row) {
        if (!isRowHidden(row, m_pModel->indexFromItem(group, 0)))
            return group->child(row);
    }
    return nullptr;
}

bool ORXFeatureTreeView::showDropTarget(const QDropEvent* event)
{
    const QModelIndex target = indexAt(event->pos());
    const bool allowed = canIndexDrop(target, event->mimeData());
    ORXPropertyTreeItem* before = ORXPropertyTreeModel::itemFromIndex(target);
    m_pDelegate->setCurMoveItem(!allowed ? nullptr : before ? before : lastFavorite(), !before);
    if (allowed || m_bDropShown)
        viewport()->update();
    m_bDropShown = allowed;
    const int margin = autoScrollMargin();
    const QRect inner = viewport()->rect().adjusted(margin, margin, -margin, -margin);
    if (hasAutoScroll() && !inner.contains(event->pos()))
        startAutoScroll();
    return allowed;
}

void ORXFeatureTreeView::clearDropTarget()
{
    m_pDelegate->setCurMoveItem(nullptr);
    m_bDropShown = false;
    viewport()->update();
}

void ORXFeatureTreeView::dragEnterEvent(QDragEnterEvent* event)
{
    if (showDropTarget(event)) {
        event->accept();
        setState(DraggingState);
    } else {
        // Not refused for good: the pointer may still reach a favourite.
        event->setAccepted(event->mimeData()->hasFormat(QString::fromLatin1(kMoveFavoriteMime)));
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
    clearDropTarget();
}

void ORXFeatureTreeView::dropEvent(QDropEvent* event)
{
    stopAutoScroll();
    setState(NoState);
    clearDropTarget();
    const QModelIndex index = indexAt(event->pos());
    ORXPropertyTreeItem* moved = movedItem(event->mimeData());
    if (moved && canIndexDrop(index, event->mimeData())) {
        event->accept();
        emit SigFavoriteMoved(moved, ORXPropertyTreeModel::itemFromIndex(index));
    } else {
        event->ignore();
    }
    viewport()->update();
}

// What dragging does, by one shown row; false when the row is no favourite.
bool ORXFeatureTreeView::moveFavorite(const QModelIndex& row, bool up)
{
    ORXPropertyTreeItem* moved = ORXPropertyTreeModel::itemFromIndex(row);
    if (!moved || moved->itemType() != ORXPropertyTreeItem::FavoriteItem)
        return false;
    const auto sibling = [&](const QModelIndex& from, int step) {
        QModelIndex next = from;
        do
            next = next.siblingAtRow(next.row() + step);
        while (next.isValid() && isRowHidden(next.row(), next.parent()));
        return next;
    };
    const QModelIndex passed = sibling(row.siblingAtColumn(0), up ? -1 : 1);
    if (!passed.isValid())
        return true;
    emit SigFavoriteMoved(moved,
                          ORXPropertyTreeModel::itemFromIndex(up ? passed : sibling(passed, 1)));
    scrollTo(currentIndex());
    return true;
}

QPixmap ORXFeatureTreeView::dragPicture(const QModelIndex& index)
{
    const QModelIndex name = index.siblingAtColumn(0);
    const QModelIndex value = index.siblingAtColumn(1);
    const QRect row = visualRect(name).united(visualRect(value));
    QPixmap picture(row.size() * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setOpacity(kDragOpacity);
    painter.translate(-row.topLeft());
    for (const QModelIndex& cell : {name, value}) {
        QStyleOptionViewItem option = viewOptions();
        option.rect = visualRect(cell);
        m_pDelegate->paint(&painter, option, cell);
    }
    const QWidget* editor = indexWidget(value);
    if (const auto* check = qobject_cast<const ZELCustomCheckBox*>(editor))
        check->cDrawControl(&painter, editor->geometry());
    else if (const auto* combo = qobject_cast<const ZELCustomComboBox*>(editor))
        combo->cDrawControl(&painter, editor->geometry());
    else if (editor)
        painter.drawPixmap(editor->pos(), const_cast<QWidget*>(editor)->grab());
    return picture;
}

void ORXFeatureTreeView::startDrag(Qt::DropActions)
{
    const QModelIndex index = currentIndex();
    QMimeData* mime = index.isValid() ? m_pModel->mimeData({index}) : nullptr;
    if (!mime)
        return;
    const QRect row = visualRect(index.siblingAtColumn(0));
    auto* drag = new QDrag(this);
    drag->setMimeData(mime);
    drag->setPixmap(dragPicture(index));
    drag->setHotSpot(viewport()->mapFromGlobal(QCursor::pos()) - row.topLeft());
    // Events run until the drag ends: the host may close or release the window meanwhile.
    const ReentrancyScope scope;
    drag->exec(Qt::CopyAction);
}
