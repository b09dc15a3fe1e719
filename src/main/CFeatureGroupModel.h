// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ORXPropertyTreeItem.h"

#include <QAbstractItemModel>
#include <QVector>

// One page of the side column: its root and the tab it stands for.
struct FeaturePage
{
    ORXPropertyTreeItem* root;             // Not owned.
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

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    int rowOfRoot(const ORXPropertyTreeItem* item) const;

    QVector<FeaturePage> m_pages;
};
