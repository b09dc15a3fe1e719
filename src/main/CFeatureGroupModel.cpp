// SPDX-License-Identifier: Apache-2.0
#include "main/CFeatureGroupModel.h"

#include "model/CTreeItemValue.h"
#include "styledctl/ZELCustom.h"
#include "tree/ItemText.h"

#include <QColor>

CFeatureGroupModel::CFeatureGroupModel(const QVector<FeaturePage>& pages, QObject* parent)
    : QAbstractItemModel(parent)
    , m_pages(pages)
{
}

ORXPropertyTreeItem* CFeatureGroupModel::itemFromIndex(const QModelIndex& index)
{
    return static_cast<ORXPropertyTreeItem*>(index.internalPointer());
}

int CFeatureGroupModel::rowOfRoot(const ORXPropertyTreeItem* item) const
{
    for (int row = 0; row < m_pages.size(); ++row) {
        if (m_pages.at(row).root == item)
            return row;
    }
    return -1;
}

QModelIndex CFeatureGroupModel::pageIndex(int pageRow) const
{
    return index(pageRow, 0);
}

QModelIndex CFeatureGroupModel::groupIndex(int pageRow, const ORXPropertyTreeItem* group) const
{
    if (!group || pageRow < 0 || pageRow >= m_pages.size())
        return {};
    const FeaturePage& page = m_pages.at(pageRow);
    if (group->parent(page.type) != page.root)
        return {};
    return index(group->indexInParent(page.type), 0, pageIndex(pageRow));
}

int CFeatureGroupModel::pageRowOf(const QModelIndex& index) const
{
    return index.parent().isValid() ? index.parent().row() : index.row();
}

void CFeatureGroupModel::refreshTexts()
{
    for (int row = 0; row < m_pages.size(); ++row) {
        const QModelIndex page = pageIndex(row);
        emit dataChanged(page, page);
        const int groups = rowCount(page);
        if (groups > 0)
            emit dataChanged(index(0, 0, page), index(groups - 1, 0, page));
    }
}

void CFeatureGroupModel::setSearching(bool searching)
{
    m_bSearching = searching;
    m_hits.clear();
}

void CFeatureGroupModel::forgetHits()
{
    m_hits.clear();
}

int CFeatureGroupModel::hitCount(const QModelIndex& index) const
{
    const ORXPropertyTreeItem* item = itemFromIndex(index);
    if (!m_bSearching || !item)
        return 0;
    auto found = m_hits.find(item);
    if (found == m_hits.end())
        found = m_hits.insert(item, item->searchChildCount());
    return *found;
}

int CFeatureGroupModel::hitCount() const
{
    int hits = 0;
    for (int row = 0; row < m_pages.size(); ++row)
        hits += hitCount(pageIndex(row));
    return hits;
}

void CFeatureGroupModel::setDot(const ORXPropertyTreeItem* group, bool dot)
{
    if (m_dots.contains(group) == dot)
        return;
    if (dot)
        m_dots.insert(group);
    else
        m_dots.remove(group);
    for (int row = 0; row < m_pages.size(); ++row) {
        const QModelIndex index = groupIndex(row, group);
        if (!index.isValid())
            continue;
        emit dataChanged(index, index);
        emit dataChanged(index.parent(), index.parent());
        return;
    }
}

void CFeatureGroupModel::clearDots()
{
    if (m_dots.isEmpty())
        return;
    m_dots.clear();
    refreshTexts();
}

bool CFeatureGroupModel::hasDot(const QModelIndex& index) const
{
    if (m_dots.isEmpty() || !index.isValid())
        return false;
    for (int row = 0; row < rowCount(index); ++row) {
        if (m_dots.contains(itemFromIndex(index)->child(row)))
            return true;
    }
    return m_dots.contains(itemFromIndex(index));
}

QModelIndex CFeatureGroupModel::index(int row, int column, const QModelIndex& parent) const
{
    if (row < 0 || column != 0)
        return {};
    if (!parent.isValid())
        return row < m_pages.size() ? createIndex(row, 0, m_pages.at(row).root) : QModelIndex();
    if (parent.parent().isValid())
        return {};
    ORXPropertyTreeItem* group = itemFromIndex(parent)->child(row);
    return group ? createIndex(row, 0, group) : QModelIndex();
}

QModelIndex CFeatureGroupModel::parent(const QModelIndex& index) const
{
    const ORXPropertyTreeItem* item = itemFromIndex(index);
    if (!item || rowOfRoot(item) >= 0)
        return {};
    for (int row = 0; row < m_pages.size(); ++row) {
        const FeaturePage& page = m_pages.at(row);
        if (item->parent(page.type) == page.root)
            return createIndex(row, 0, page.root);
    }
    return {};
}

int CFeatureGroupModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return int(m_pages.size());
    const ORXPropertyTreeItem* item = itemFromIndex(parent);
    return parent.column() == 0 && rowOfRoot(item) >= 0 ? item->childCount() : 0;
}

int CFeatureGroupModel::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant CFeatureGroupModel::data(const QModelIndex& index, int role) const
{
    const ORXPropertyTreeItem* item = itemFromIndex(index);
    if (!item || !item->value())
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return ItemText::name(*item);
    case Qt::AccessibleTextRole:
        return hasDot(index) ? tr("%1, changed").arg(ItemText::name(*item)) : ItemText::name(*item);
    case Qt::TextAlignmentRole:
        return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    case Qt::ForegroundRole:
        return ZELCustom::getDataBaseColor(
            QStringLiteral("ORXPropertyTreeModelColor_Foreground_Default"));
    default:
        return {};
    }
}

bool CFeatureGroupModel::setData(const QModelIndex&, const QVariant&, int)
{
    return false;
}
