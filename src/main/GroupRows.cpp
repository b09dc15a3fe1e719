// SPDX-License-Identifier: Apache-2.0
#include "main/GroupRows.h"

#include <QTreeView>

namespace {

// A page row that is never hidden; no page of the library has it.
constexpr int kAlwaysShownRow = 4;

bool isEmptyFavorites(const QModelIndex& group)
{
    const ORXPropertyTreeItem* item = CFeatureGroupModel::itemFromIndex(group);
    return item && item->itemType() == ORXPropertyTreeItem::FavoritesGroup &&
           (item->childCount() == 0 || !item->visible());
}

} // namespace

GroupRows::GroupRows(QTreeView* view, const CFeatureGroupModel* model,
                     const QVector<FeaturePage>& pages)
    : m_pView(view)
    , m_pModel(model)
    , m_pages(pages)
{
}

void GroupRows::updateGroup(int pageRow, const ORXPropertyTreeItem& group) const
{
    if (group.itemType() == ORXPropertyTreeItem::FavoritesGroup)
        return;
    const QModelIndex index = m_pModel->groupIndex(pageRow, &group);
    if (index.isValid())
        m_pView->setRowHidden(index.row(), index.parent(), !group.visible());
}

bool GroupRows::updatePage(int pageRow) const
{
    if (pageRow == kAlwaysShownRow)
        return false;
    const QModelIndex page = m_pModel->pageIndex(pageRow);
    bool anyShown = false;
    for (int group = 0; group < m_pModel->rowCount(page) && !anyShown; ++group)
        anyShown = !m_pView->isRowHidden(group, page);
    if (anyShown == isPageShown(pageRow))
        return false;
    m_pView->setRowHidden(pageRow, QModelIndex(), !anyShown);
    return true;
}

bool GroupRows::isPageShown(int pageRow) const
{
    return !m_pView->isRowHidden(pageRow, QModelIndex());
}

bool GroupRows::isGroupShown(const QModelIndex& group) const
{
    return group.isValid() && !m_pView->isRowHidden(group.row(), group.parent());
}

ORXPropertyTreeItem* GroupRows::groupOf(int pageRow, ORXPropertyTreeItem* item) const
{
    const FeaturePage& page = m_pages.at(pageRow);
    ORXPropertyTreeItem* group = item;
    ORXPropertyTreeItem* above = group->parent(page.type);
    while (above && above->itemType() != ORXPropertyTreeItem::CustomItem) {
        group = above;
        above = group->parent(page.type);
    }
    return above && above == page.root ? group : nullptr;
}

QModelIndex GroupRows::groupToShow(int pageRow, int selectedRow) const
{
    const QModelIndex page = m_pModel->pageIndex(pageRow);
    const QModelIndex selected = m_pModel->index(selectedRow, 0, page);
    if (isGroupShown(selected))
        return selected;
    QModelIndex noFavorites;
    for (int row = 0; row < m_pModel->rowCount(page); ++row) {
        const QModelIndex group = m_pModel->index(row, 0, page);
        if (!isGroupShown(group))
            continue;
        if (!isEmptyFavorites(group))
            return group;
        noFavorites = group;
    }
    return noFavorites;
}

QModelIndex GroupRows::insteadOfEmpty(const QModelIndex& shown) const
{
    const QModelIndex page = shown.parent();
    if (!page.isValid() || !isEmptyFavorites(shown))
        return {};
    for (int row = 0; row < m_pModel->rowCount(page); ++row) {
        const QModelIndex group = m_pModel->index(row, 0, page);
        if (isGroupShown(group) && group != shown)
            return group;
    }
    return {};
}

bool GroupRows::hasHits(const QModelIndex& group) const
{
    return isPageShown(group.parent().row()) && isGroupShown(group) &&
           m_pModel->hitCount(group) > 0;
}

QModelIndex GroupRows::nextWithHits(const QModelIndex& current) const
{
    const int pages = int(m_pages.size());
    if (!m_pModel->isSearching() || !current.isValid() || pages == 0)
        return {};
    const int currentPage = m_pModel->pageRowOf(current);
    const int currentGroup = current.parent().isValid() ? current.row() : -1;
    // Round through all groups, starting behind the current one and ending before it.
    for (int step = 0; step <= pages; ++step) {
        const QModelIndex page = m_pModel->pageIndex((currentPage + step) % pages);
        const int first = step == 0 ? currentGroup + 1 : 0;
        const int end = step == pages ? qMax(currentGroup, 0) : m_pModel->rowCount(page);
        for (int row = first; row < end; ++row) {
            const QModelIndex group = m_pModel->index(row, 0, page);
            if (hasHits(group))
                return group;
        }
    }
    return {};
}
