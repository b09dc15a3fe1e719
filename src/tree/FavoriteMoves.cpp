// SPDX-License-Identifier: Apache-2.0
#include "tree/FavoriteMoves.h"

#include "basetools/QtDifferences.h"
#include "device/ReentrancyScope.h"
#include "model/ORXPropertyTreeModel.h"
#include "styledctl/ZELCustomCheckBox.h"
#include "styledctl/ZELCustomComboBox.h"
#include "tree/ORXPropertyTreeDelegate.h"

#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QPainter>
#include <QTreeView>

namespace {

constexpr qreal kDragOpacity = 0.5;

bool isFavorite(const ORXPropertyTreeItem* item)
{
    return item && item->itemType() == ORXPropertyTreeItem::FavoriteItem;
}

bool isFavoritesGroup(const ORXPropertyTreeItem* item)
{
    return item && item->itemType() == ORXPropertyTreeItem::FavoritesGroup;
}

// The address that a drag carries is trusted only if such a favourite lives.
ORXPropertyTreeItem* movedItem(const QMimeData* data)
{
    const QByteArray text = data->data(QString::fromLatin1(kMoveFavoriteMime));
    bool ok = false;
    const auto address = static_cast<quintptr>(text.toULongLong(&ok));
    auto* item = reinterpret_cast<ORXPropertyTreeItem*>(address);
    return ok && ORXPropertyTreeItem::isAlive(item) && isFavorite(item) ? item : nullptr;
}

} // namespace

FavoriteMoves::FavoriteMoves(QTreeView* view, ORXPropertyTreeModel* model,
                             ORXPropertyTreeDelegate* delegate)
    : m_view(view)
    , m_model(model)
    , m_delegate(delegate)
{
}

bool FavoriteMoves::carriesFavorite(const QMimeData* mime)
{
    return mime && mime->hasFormat(QString::fromLatin1(kMoveFavoriteMime));
}

bool FavoriteMoves::canLandOn(const QModelIndex& target, const QMimeData* mime) const
{
    if (!carriesFavorite(mime))
        return false;
    const ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(target);
    if (!item)
        return lastFavorite();
    return isFavoritesGroup(item) ||
           isFavoritesGroup(ORXPropertyTreeModel::itemFromIndex(target.parent()));
}

// The last shown favourite when nothing else stands below the favourites, so that the empty space
// is theirs.
ORXPropertyTreeItem* FavoriteMoves::lastFavorite() const
{
    const ORXPropertyTreeItem* root = m_model->rootItem();
    ORXPropertyTreeItem* group = root ? root->child(0) : nullptr;
    if (!isFavoritesGroup(group))
        return nullptr;
    for (int row = 1; row < root->childCount(); ++row) {
        if (!m_view->isRowHidden(row, QModelIndex()))
            return nullptr;
    }
    for (int row = group->childCount() - 1; row >= 0; --row) {
        if (!m_view->isRowHidden(row, m_model->indexFromItem(group, 0)))
            return group->child(row);
    }
    return nullptr;
}

bool FavoriteMoves::showTarget(const QDropEvent* event)
{
    const QModelIndex target = m_view->indexAt(QtDifferences::dropPosition(*event));
    const bool allowed = canLandOn(target, event->mimeData());
    const ORXPropertyTreeItem* before = ORXPropertyTreeModel::itemFromIndex(target);
    m_delegate->setCurMoveItem(!allowed ? nullptr : before ? before : lastFavorite(), !before);
    if (allowed || m_bTargetShown)
        m_view->viewport()->update();
    m_bTargetShown = allowed;
    return allowed;
}

void FavoriteMoves::clearTarget()
{
    m_delegate->clearInfo();
    m_bTargetShown = false;
    m_view->viewport()->update();
}

bool FavoriteMoves::drop(const QDropEvent* event)
{
    const QModelIndex target = m_view->indexAt(QtDifferences::dropPosition(*event));
    ORXPropertyTreeItem* moved = movedItem(event->mimeData());
    if (!moved || !canLandOn(target, event->mimeData()))
        return false;
    emit SigFavoriteMoved(moved, ORXPropertyTreeModel::itemFromIndex(target));
    return true;
}

QModelIndex FavoriteMoves::shownSibling(const QModelIndex& row, int step) const
{
    QModelIndex next = row;
    do
        next = next.siblingAtRow(next.row() + step);
    while (next.isValid() && m_view->isRowHidden(next.row(), next.parent()));
    return next;
}

bool FavoriteMoves::moveByOne(const QModelIndex& row, bool up)
{
    ORXPropertyTreeItem* moved = ORXPropertyTreeModel::itemFromIndex(row);
    if (!isFavorite(moved))
        return false;
    const QModelIndex passed = shownSibling(row.siblingAtColumn(0), up ? -1 : 1);
    if (!passed.isValid())
        return true;
    emit SigFavoriteMoved(
        moved, ORXPropertyTreeModel::itemFromIndex(up ? passed : shownSibling(passed, 1)));
    m_view->scrollTo(m_view->currentIndex());
    return true;
}

QPixmap FavoriteMoves::picture(const QModelIndex& cell, const QStyleOptionViewItem& option) const
{
    const QModelIndex name = cell.siblingAtColumn(0);
    const QModelIndex value = cell.siblingAtColumn(1);
    const QRect row = m_view->visualRect(name).united(m_view->visualRect(value));
    QPixmap picture(row.size() * m_view->devicePixelRatioF());
    picture.setDevicePixelRatio(m_view->devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setOpacity(kDragOpacity);
    painter.translate(-row.topLeft());
    for (const QModelIndex& part : {name, value}) {
        QStyleOptionViewItem placed = option;
        placed.rect = m_view->visualRect(part);
        m_delegate->paint(&painter, placed, part);
    }
    QWidget* editor = m_view->indexWidget(value);
    if (const auto* check = qobject_cast<const ZELCustomCheckBox*>(editor))
        check->cDrawControl(&painter, editor->geometry());
    else if (const auto* combo = qobject_cast<const ZELCustomComboBox*>(editor))
        combo->cDrawControl(&painter, editor->geometry());
    else if (editor)
        painter.drawPixmap(editor->pos(), editor->grab());
    return picture;
}

void FavoriteMoves::drag(const QModelIndex& cell, const QStyleOptionViewItem& option)
{
    QMimeData* mime = cell.isValid() ? m_model->mimeData({cell}) : nullptr;
    if (!mime)
        return;
    const QRect row = m_view->visualRect(cell.siblingAtColumn(0));
    auto* drag = new QDrag(m_view);
    drag->setMimeData(mime);
    drag->setPixmap(picture(cell, option));
    drag->setHotSpot(m_view->viewport()->mapFromGlobal(QCursor::pos()) - row.topLeft());
    // Events run until the drag ends: the host may close or release the window meanwhile.
    const ReentrancyScope scope;
    drag->exec(Qt::CopyAction);
}
