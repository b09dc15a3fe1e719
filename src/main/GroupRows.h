// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "main/CFeatureGroupModel.h"

class QTreeView;

// Which rows of the side column show: groups with a visible feature, and pages with such a group.
// Owned by the column's view; GUI thread.
class GroupRows
{
public:
    // View and model are not owned.
    GroupRows(QTreeView* view, const CFeatureGroupModel* model, const QVector<FeaturePage>& pages);

    // Brings a group's row in line with the group; that of the favourites always shows, so that the
    // user finds it.
    void updateGroup(int pageRow, const ORXPropertyTreeItem& group) const;
    // Brings a page's row in line with the rows of its groups; true when it changed.
    bool updatePage(int pageRow) const;
    bool isPageShown(int pageRow) const;
    bool isGroupShown(const QModelIndex& group) const;

    // The group of a page that an item belongs to; null when it belongs to none.
    ORXPropertyTreeItem* groupOf(int pageRow, ORXPropertyTreeItem* item) const;
    // The group of that row if it shows, else the page's first one with something to show; invalid
    // when there is none.
    QModelIndex groupToShow(int pageRow, int selectedRow) const;
    // The first group of the page of `shown` that shows besides it, when that is an empty
    // favourites group; else invalid.
    QModelIndex insteadOfEmpty(const QModelIndex& shown) const;
    // The next group with hits of the search, first of this page, then of the others; invalid when
    // there is none but the current one.
    QModelIndex nextWithHits(const QModelIndex& current) const;

private:
    bool hasHits(const QModelIndex& group) const;

    QTreeView* m_pView;                 // Not owned.
    const CFeatureGroupModel* m_pModel; // Not owned.
    QVector<FeaturePage> m_pages;
};
