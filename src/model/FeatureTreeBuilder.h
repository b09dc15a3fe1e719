// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureNodeMap.h"

#include <QList>
#include <QMap>
#include <QSet>
#include <QString>

class IORXFeatureNotify;
class ORXPropertyTreeItem;

// Turns the nodes of a description into the items of the whole tree: the favourites group first,
// then the categories and features below "Root", in the order of the description. Owned by the
// camera's tree; GUI thread.
//
// What the description alone says is on the items at once: names, descriptions, and whether the
// user's level shows them. Their values are still to be read.
//
// A category that contains itself, a nesting deeper than kMaxCategoryDepth and more than kMaxItems
// items are cut with one critical log line; the rest of the tree appears.
class FeatureTreeBuilder
{
public:
    static constexpr int kMaxCategoryDepth = 64;
    static constexpr int kMaxItems = 100000;

    // Fills `root` anew. `view` is registered with every item; it may be null.
    void createItems(ORXPropertyTreeItem* root, const FeatureNodeMap& nodes,
                     IORXFeatureNotify* view);

    // Feature or category name to its item; of a name that stands twice, the item met last.
    const QMap<QString, ORXPropertyTreeItem*>& AllTreeItemsMap() const { return m_items; }
    void clear();

private:
    void creatItemRecursion(ORXPropertyTreeItem* parent, const FeatureNode& category);
    ORXPropertyTreeItem* createItem(ORXPropertyTreeItem* parent, const QString& name);
    void describe(ORXPropertyTreeItem* item, const FeatureNode& node) const;
    void hideByLevel(ORXPropertyTreeItem* item) const;
    void reportOnce(const QString& name, const QString& what);

    FeatureNodeMap m_nodes;
    IORXFeatureNotify* m_pView = nullptr; // Not owned.
    int m_nUserLevel = 1;
    QMap<QString, ORXPropertyTreeItem*> m_items;
    QList<QString> m_path; // categories around the current one
    QSet<QString> m_reported;
    int m_itemCount = 0;
};

// Name of the favourites group's item.
QString favoritesGroupName();
