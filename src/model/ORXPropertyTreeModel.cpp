// SPDX-License-Identifier: Apache-2.0
#include "model/ORXPropertyTreeModel.h"

#include "model/CTreeItemValue.h"
#include "model/IFeatureValueWriter.h"
#include "model/ItemValueRules.h"
#include "styledctl/ZELCustom.h"

#include <QColor>
#include <QMimeData>

const char kMoveFavoriteMime[] = "MoveFavoriteItem";

ORXPropertyTreeModel::ORXPropertyTreeModel(ORXPropertyTreeItem::ParentType type, QObject* parent)
    : QAbstractItemModel(parent)
    , m_parentType(type)
{
}

void ORXPropertyTreeModel::updateData(ORXPropertyTreeItem* root)
{
    beginResetModel();
    m_pRootItem = root;
    endResetModel();
}

void ORXPropertyTreeModel::resetCamearID(qint64 cameraId)
{
    m_lCameraID = cameraId;
}

void ORXPropertyTreeModel::bindingFeatureWidget(IFeatureValueWriter* page)
{
    m_pFeatureWidget = page;
}

void ORXPropertyTreeModel::setIsCanEdit(bool canEdit)
{
    m_bCanEdit = canEdit;
}

bool ORXPropertyTreeModel::isCanEditable() const
{
    return m_bCanEdit;
}

void ORXPropertyTreeModel::setTitle(const QStringList& titles)
{
    m_titles = titles;
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

QModelIndex ORXPropertyTreeModel::indexFromItem(ORXPropertyTreeItem* item, int column) const
{
    if (!item || item == m_pRootItem)
        return {};
    const int row = item->indexInParent(m_parentType);
    return row < 0 ? QModelIndex() : createIndex(row, column, item);
}

ORXPropertyTreeItem* ORXPropertyTreeModel::itemFromIndex(const QModelIndex& index)
{
    return static_cast<ORXPropertyTreeItem*>(index.internalPointer());
}

void ORXPropertyTreeModel::addItems(ORXPropertyTreeItem* parent,
                                    const QVector<ORXPropertyTreeItem*>& items)
{
    if (!parent || items.isEmpty())
        return;
    const int first = parent->childCount();
    beginInsertRows(indexFromItem(parent, 0), first, first + int(items.size()) - 1);
    for (ORXPropertyTreeItem* item : items)
        item->setParent(parent, m_parentType);
    endInsertRows();
}

void ORXPropertyTreeModel::removeItems(ORXPropertyTreeItem* parent, ORXPropertyTreeItem* child)
{
    if (!parent || parent->childCount() == 0)
        return;
    const int row = child ? child->indexInParent(m_parentType) : 0;
    if (row < 0)
        return;
    beginRemoveRows(indexFromItem(parent, 0), row, child ? row : parent->childCount() - 1);
    if (child) {
        child->setParent(nullptr, m_parentType);
    } else {
        const QVector<ORXPropertyTreeItem*> children = parent->children();
        for (ORXPropertyTreeItem* each : children)
            each->setParent(nullptr, m_parentType);
    }
    endRemoveRows();
}

void ORXPropertyTreeModel::moveItem(ORXPropertyTreeItem* item, int row)
{
    ORXPropertyTreeItem* parent = item ? item->parent(m_parentType) : nullptr;
    const int from = item ? item->indexInParent(m_parentType) : -1;
    if (!parent || from == row || row < 0 || row >= parent->childCount())
        return;
    const QModelIndex above = indexFromItem(parent, 0);
    // The target is counted with the item still in its place.
    beginMoveRows(above, from, from, above, row > from ? row + 1 : row);
    parent->moveChild(item, row);
    endMoveRows();
}

QModelIndex ORXPropertyTreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!m_pRootItem || row < 0 || column < 0 || column >= columnCount() ||
        (parent.isValid() && parent.column() != 0))
        return {};
    const ORXPropertyTreeItem* above = itemFromIndex(parent);
    ORXPropertyTreeItem* item = (above ? above : m_pRootItem)->child(row);
    return item ? createIndex(row, column, item) : QModelIndex();
}

QModelIndex ORXPropertyTreeModel::parent(const QModelIndex& index) const
{
    const ORXPropertyTreeItem* item = itemFromIndex(index);
    if (!item)
        return {};
    return indexFromItem(item->parent(m_parentType), 0);
}

int ORXPropertyTreeModel::rowCount(const QModelIndex& parent) const
{
    if (!m_pRootItem || parent.column() > 0)
        return 0;
    if (!parent.isValid())
        return m_pRootItem->childCount();
    const ORXPropertyTreeItem* item = itemFromIndex(parent);
    return item ? item->childCount() : 0;
}

int ORXPropertyTreeModel::columnCount(const QModelIndex&) const
{
    return 2;
}

QVariant ORXPropertyTreeModel::displayText(const ORXPropertyTreeItem& item) const
{
    return getMatchLangue(m_parentType) == QLatin1String("CH") ? item.value()->translateName()
                                                               : item.value()->displayName();
}

QVariant ORXPropertyTreeModel::toolTip(const ORXPropertyTreeItem& item, int column) const
{
    const FeatureTag tag = item.tag();
    if (tag == FeatureTag::Watermark || tag == FeatureTag::Event)
        return item.value()->toolTip(column);
    if (tag == FeatureTag::PalettesMode)
        return QString();
    return column == 1 ? QVariant() : displayText(item);
}

QVariant ORXPropertyTreeModel::foreground(const ORXPropertyTreeItem& item, int column) const
{
    const bool dimmed = (column == 1 && item.readOnly()) || !m_bCanEdit;
    return ZELCustom::getDataBaseColor(
        dimmed ? QStringLiteral("ORXPropertyTreeModelColor_Foreground")
               : QStringLiteral("ORXPropertyTreeModelColor_Foreground_Default"));
}

QVariant ORXPropertyTreeModel::data(const QModelIndex& index, int role) const
{
    const ORXPropertyTreeItem* item = itemFromIndex(index);
    if (!item || !item->value())
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        if (item->tag() == FeatureTag::PalettesMode)
            return QString();
        return index.column() == 1 ? QVariant() : displayText(*item);
    case Qt::ToolTipRole:
        return toolTip(*item, index.column());
    case Qt::TextAlignmentRole:
        return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    case Qt::ForegroundRole:
        return foreground(*item, index.column());
    default:
        return {};
    }
}

QVariant ORXPropertyTreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
        section >= m_titles.size())
        return {};
    return m_titles.at(section);
}

Qt::ItemFlags ORXPropertyTreeModel::flags(const QModelIndex& index) const
{
    const ORXPropertyTreeItem* item = itemFromIndex(index);
    if (!item)
        return QAbstractItemModel::flags(index);
    if (item->tag() == FeatureTag::CCM)
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = QAbstractItemModel::flags(index);
    if (index.column() == 1 && !item->readOnly() && m_bCanEdit)
        flags |= Qt::ItemIsEditable;
    const ORXPropertyTreeItem* favorites = m_pRootItem ? m_pRootItem->child(0) : nullptr;
    if (favorites && item->parent(ORXPropertyTreeItem::AnyParent) == favorites)
        flags |= Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled;
    return flags;
}

bool ORXPropertyTreeModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    ORXPropertyTreeItem* item = itemFromIndex(index);
    if (m_lCameraID == -1 || role != Qt::EditRole || !m_pFeatureWidget || !item || !item->value())
        return true;
    const qint64 cameraId = m_lCameraID;
    if (isSameValue(item->tagName(), item->value(), value)) {
        item->notifyViewUpdate(cameraId, 1, false);
        return true;
    }
    const QString nodeName = item->value()->nodeName(index.column());
    const bool written = m_pFeatureWidget->setFeatureValue(item->tagName(), nodeName, value);
    // The write runs pending events; the camera, and with it the item, may be gone now.
    if (m_lCameraID == -1 || !ORXPropertyTreeItem::isAlive(item))
        return true;
    if (!written) {
        item->notifyViewUpdate(cameraId, 1, false);
        return false;
    }
    setItemValue(item, nodeName, value);
    item->notifyViewUpdate(cameraId, 2, false);
    m_pFeatureWidget->afterSetFeatureValue(nodeName);
    return true;
}

bool ORXPropertyTreeModel::isSameValue(const QString& tagName, const CTreeItemValue* value,
                                       const QVariant& edited)
{
    return ItemValueRules::isSame(tagName, value, edited);
}

void ORXPropertyTreeModel::setItemValue(ORXPropertyTreeItem* item, const QString& nodeName,
                                        const QVariant& edited)
{
    if (item && item->value())
        ItemValueRules::store(item->tagName(), item->value(), nodeName, edited);
}

QStringList ORXPropertyTreeModel::mimeTypes() const
{
    return {QString::fromLatin1(kMoveFavoriteMime)};
}

QMimeData* ORXPropertyTreeModel::mimeData(const QModelIndexList& indexes) const
{
    const ORXPropertyTreeItem* item = indexes.isEmpty() ? nullptr : itemFromIndex(indexes.first());
    if (!item || item->itemType() != ORXPropertyTreeItem::FavoriteItem)
        return nullptr;
    auto* data = new QMimeData;
    data->setData(QString::fromLatin1(kMoveFavoriteMime),
                  QString::number(reinterpret_cast<quintptr>(item)).toLocal8Bit());
    return data;
}

bool ORXPropertyTreeModel::canDropMimeData(const QMimeData*, Qt::DropAction, int, int,
                                           const QModelIndex& parent) const
{
    const ORXPropertyTreeItem* item = itemFromIndex(parent);
    return item && (item->itemType() == ORXPropertyTreeItem::FavoriteItem ||
                    item->itemType() == ORXPropertyTreeItem::FavoritesGroup);
}

// The view carries the move out by itself.
bool ORXPropertyTreeModel::dropMimeData(const QMimeData*, Qt::DropAction, int, int,
                                        const QModelIndex&)
{
    return true;
}
