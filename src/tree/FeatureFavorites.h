// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QMap>
#include <QObject>
#include <QPoint>
#include <QString>

class IFeatureItems;
class ORXFeatureTreeView;
class ORXPropertyTreeItem;
class QAction;
class CopyActions;
class QMenu;
class QWidget;

// The favourites group at the top of a tree and its context menu. The list of favourites itself is
// the process's (OBDeviceControl); each tree shows those that its camera has. GUI thread.
class FeatureFavorites : public QObject
{
    Q_OBJECT
public:
    // Shows the favourites of `items` in the view, whose root's first child is their group.
    // `parent` owns it; view and items outlive its last operation.
    FeatureFavorites(ORXFeatureTreeView* view, const IFeatureItems& items, QWidget* parent);
    ~FeatureFavorites() override;

    static bool IsFavoritesItem(const QString& name);
    // Renews the menu's texts.
    void retranslate();
    // The menu of the item at a position in the view; none without an item there.
    void showMenu(const QPoint& position);
    // The menu of the group, for whoever shows its name.
    void showGroupMenu(const QPoint& globalPosition);

    void addFavoriteItem(ORXPropertyTreeItem* item);
    void removeFavoriteItem(ORXPropertyTreeItem* favorite);
    void removeAllFavoriteItems();
    // Empties the list, too.
    void clearFavorites();
    // Rebuilds the group from the list.
    void GenerateFavoritesItems();
    // Moves a favourite before `target`; to the end without one.
    void moveFavorteItem(ORXPropertyTreeItem* moved, ORXPropertyTreeItem* target);
    // The items were destroyed with the tree's root.
    void forgetItems();

    QAction* addAction() const { return m_pAdd; }
    QAction* removeAction() const { return m_pRemove; }
    QAction* removeAllAction() const { return m_pRemoveAll; }
    // For the item whose menu was shown last.
    void addContextItem();
    void removeContextItem();

signals:
    // The user has changed the list.
    void SigListChanged();

private:
    void showMenuOf(ORXPropertyTreeItem* item, const QPoint& globalPosition);
    ORXPropertyTreeItem* contextItem() const;
    ORXPropertyTreeItem* group() const;
    void orderItem(const QString& name);

    ORXFeatureTreeView* m_pView;                   // Not owned.
    const IFeatureItems& m_features;               // Not owned.
    QMap<QString, ORXPropertyTreeItem*> m_items;   // Feature name to its copy. Owned by the group.
    ORXPropertyTreeItem* m_pContextItem = nullptr; // Not owned.
    QMenu* m_pMenu;                                // Owned.
    QAction* m_pAdd;                               // Owned by the menu.
    QAction* m_pRemove;                            // Owned by the menu.
    QAction* m_pRemoveAll;                         // Owned by the menu.
    CopyActions* m_pCopy;                          // Owned (child).
};
