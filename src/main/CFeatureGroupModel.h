// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ORXPropertyTreeItem.h"

#include <QAbstractItemModel>
#include <QHash>
#include <QSet>
#include <QVector>

// One page of the side column: its root and the tab it stands for.
struct FeaturePage
{
    ORXPropertyTreeItem* root;            // Not owned.
    ORXPropertyTreeItem::ParentType type; // also the tab's index
};

// Item model of the side column: pages on the first level, the groups directly below each page's
// root on the second. Owned by its view; GUI thread.
class CFeatureGroupModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    CFeatureGroupModel(const QVector<FeaturePage>& pages, QObject* parent);

    static ORXPropertyTreeItem* itemFromIndex(const QModelIndex& index);
    QModelIndex pageIndex(int pageRow) const;
    // Index of a group of a page; invalid for others.
    QModelIndex groupIndex(int pageRow, const ORXPropertyTreeItem* group) const;
    // Row of the page that an index belongs to, -1 for none.
    int pageRowOf(const QModelIndex& index) const;
    // The texts have changed with the language.
    void refreshTexts();
    // While a search is on, pages and groups have a number of hits.
    void setSearching(bool searching);
    bool isSearching() const { return m_bSearching; }
    // Hits of the search below a page or group, 0 without a search.
    int hitCount(const QModelIndex& index) const;
    int hitCount() const; // of all pages
    // The hits have changed with the visibility of items.
    void forgetHits();

    // Marks a group as one with a change that the user has not seen.
    void setDot(const ORXPropertyTreeItem* group, bool dot);
    void clearDots();
    // Of a group; of a page, whether any of its groups has one.
    bool hasDot(const QModelIndex& index) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    int rowOfRoot(const ORXPropertyTreeItem* item) const;

    QVector<FeaturePage> m_pages;
    QSet<const ORXPropertyTreeItem*> m_dots; // groups. Not owned, only compared.
    bool m_bSearching = false;
    mutable QHash<const ORXPropertyTreeItem*, int> m_hits; // counted so far
};
