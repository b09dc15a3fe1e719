// SPDX-License-Identifier: Apache-2.0
#include "tree/FeatureFavorites.h"

#include "device/OBDeviceControl.h"
#include "model/CTreeItemValue.h"
#include "model/ItemStateLock.h"
#include "model/ORXPropertyTreeItem.h"
#include "model/ORXPropertyTreeModel.h"
#include "styledctl/ZELCustom.h"
#include "styledctl/ZELLateSheet.h"
#include "tree/CopyActions.h"
#include "tree/IFeatureItems.h"
#include "tree/ORXFeatureTreeView.h"

#include <QCoreApplication>
#include <QMenu>
#include <QSet>

namespace {

// Which actions the menu offers on an item of a type.
struct MenuRow
{
    ORXPropertyTreeItem::ITEM_TYEP type;
    bool add;
    bool remove;
    bool removeAll;
    bool remembersItem;
};

const MenuRow kMenuRows[] = {
    {ORXPropertyTreeItem::FavoriteItem, false, true, true, true},
    {ORXPropertyTreeItem::FavoritesGroup, false, false, true, false},
    {ORXPropertyTreeItem::FeatureItem, true, false, false, true},
    {ORXPropertyTreeItem::CategoryItem, true, false, false, false}, // shown, but disabled
    {ORXPropertyTreeItem::CustomItem, false, false, false, false},
};

FavoriteFeature favoriteOf(const ORXPropertyTreeItem& item)
{
    return {item.value()->nodeName(0), item.value()->displayName()};
}

QList<FavoriteFeature>& favorites()
{
    return *OBDeviceControl::GetFavoritesFeatureMap();
}

// A name may stand in the list under the display name that another device gives it, so the name
// alone counts.
int positionOf(const QString& name)
{
    const QList<FavoriteFeature>& list = favorites();
    for (int i = 0; i < list.size(); ++i) {
        if (list.at(i).first == name)
            return i;
    }
    return -1;
}

// A moved favourite stands in the list twice; both go.
void removeFromList(const QString& name)
{
    for (int at = positionOf(name); at >= 0; at = positionOf(name))
        favorites().removeAt(at);
}

} // namespace

FeatureFavorites::FeatureFavorites(ORXFeatureTreeView* view, const IFeatureItems& items,
                                   QWidget* parent)
    : QObject(parent)
    , m_pView(view)
    , m_features(items)
    , m_pMenu(new QMenu(parent))
    , m_pAdd(m_pMenu->addAction(QString()))
    , m_pRemove(m_pMenu->addAction(QString()))
    , m_pRemoveAll(m_pMenu->addAction(QString()))
    , m_pCopy(new CopyActions(m_pMenu, view, this))
{
    m_pMenu->setObjectName(QStringLiteral("FavoritesMenu"));
    ZELLateSheet::set(m_pMenu, ZELCustom::styleSheet(ZELCustom::Sheet_Menu));
    retranslate();
}

FeatureFavorites::~FeatureFavorites() = default;

bool FeatureFavorites::IsFavoritesItem(const QString& name)
{
    return positionOf(name) >= 0;
}

void FeatureFavorites::retranslate()
{
    m_pAdd->setText(QCoreApplication::translate("ORXFeatureTree", "Add to Favorites"));
    m_pRemove->setText(QCoreApplication::translate("ORXFeatureTree", "Remove from Favorites"));
    m_pRemoveAll->setText(QCoreApplication::translate("ORXFeatureTree", "Remove All"));
    m_pCopy->retranslate();
}

void FeatureFavorites::showMenu(const QPoint& position)
{
    showMenuOf(ORXPropertyTreeModel::itemFromIndex(m_pView->indexAt(position)),
               m_pView->viewport()->mapToGlobal(position));
}

void FeatureFavorites::showGroupMenu(const QPoint& globalPosition)
{
    showMenuOf(group(), globalPosition);
}

// Fits the menu to the item.
void FeatureFavorites::showMenuOf(ORXPropertyTreeItem* item, const QPoint& globalPosition)
{
    if (!item || !item->value())
        return;
    for (const MenuRow& row : kMenuRows) {
        if (row.type != item->itemType())
            continue;
        const bool feature = row.type == ORXPropertyTreeItem::FeatureItem;
        m_pAdd->setVisible(row.add);
        m_pAdd->setEnabled(feature && !IsFavoritesItem(item->value()->nodeName(0)));
        m_pRemove->setVisible(row.remove);
        m_pRemove->setEnabled(row.remove);
        m_pRemoveAll->setVisible(row.removeAll);
        if (row.remembersItem)
            m_pContextItem = item;
    }
    m_pCopy->setItem(item);
    m_pMenu->popup(globalPosition);
}

ORXPropertyTreeItem* FeatureFavorites::contextItem() const
{
    return ORXPropertyTreeItem::isAlive(m_pContextItem) ? m_pContextItem : nullptr;
}

ORXPropertyTreeItem* FeatureFavorites::group() const
{
    ORXPropertyTreeItem* root = m_pView->rootTreeItem();
    return root ? root->child(0) : nullptr;
}

void FeatureFavorites::addContextItem()
{
    ORXPropertyTreeItem* item = contextItem();
    if (!item || !item->value() || item->value()->nodeName(0).isEmpty())
        return;
    addFavoriteItem(item);
    favorites().append(favoriteOf(*item));
    emit SigListChanged();
}

void FeatureFavorites::removeContextItem()
{
    ORXPropertyTreeItem* item = contextItem();
    if (!item || !item->value())
        return;
    removeFromList(item->value()->nodeName(0));
    removeFavoriteItem(item);
    emit SigListChanged();
}

void FeatureFavorites::addFavoriteItem(ORXPropertyTreeItem* item)
{
    ORXPropertyTreeItem* favoritesGroup = group();
    if (!item || !item->value() || !favoritesGroup || m_items.contains(item->value()->nodeName(0)))
        return;
    auto* favorite = new ORXPropertyTreeItem(nullptr, ORXPropertyTreeItem::FeatureTreePage);
    {
        // Nothing that a reading thread publishes falls between the copy and the link.
        const ItemStateLock lock;
        favorite->copy(item);
        item->setMappingItem(favorite);
    }
    favorite->registerView(m_pView);
    favorite->setItemType(ORXPropertyTreeItem::FavoriteItem);
    m_items.insert(item->value()->nodeName(0), favorite);

    m_pView->treeModel()->addItems(favoritesGroup, {favorite});
    m_pView->openPersistentEdit(favorite, false);
    favorite->setGroupVisible(favoritesGroup->groupVisible(), m_pView->cameraID());
    favoritesGroup->setExpanded(true, m_pView->cameraID());
    // The row appears by the running search and the shown group, and its group with it.
    m_pView->updateRowsVisible(favorite, false);
    favorite->setSearchText(item->searchText(), m_pView->cameraID());
}

void FeatureFavorites::removeFavoriteItem(ORXPropertyTreeItem* favorite)
{
    ORXPropertyTreeItem* favoritesGroup = group();
    if (!favorite || !favorite->value() || !favoritesGroup)
        return;
    // Only a copy may go, never the feature itself.
    const auto shown = m_items.find(favorite->value()->nodeName(0));
    if (shown == m_items.end() || *shown != favorite)
        return;
    m_items.erase(shown);
    m_pView->treeModel()->removeItems(favoritesGroup, favorite);
    // Ends the link to the feature's own item, too.
    delete favorite;
}

void FeatureFavorites::removeAllFavoriteItems()
{
    ORXPropertyTreeItem* favoritesGroup = group();
    if (!favoritesGroup || favoritesGroup->childCount() == 0)
        return;
    m_items.clear();
    const QVector<ORXPropertyTreeItem*> children = favoritesGroup->children();
    m_pView->treeModel()->removeItems(favoritesGroup, nullptr);
    qDeleteAll(children);
}

void FeatureFavorites::clearFavorites()
{
    favorites().clear();
    removeAllFavoriteItems();
    emit SigListChanged();
}

void FeatureFavorites::GenerateFavoritesItems()
{
    removeAllFavoriteItems();
    const QList<FavoriteFeature> list = favorites();
    for (const FavoriteFeature& favorite : list) {
        if (ORXPropertyTreeItem* item = m_features.propertyItemByName(favorite.first))
            addFavoriteItem(item);
    }
}

void FeatureFavorites::moveFavorteItem(ORXPropertyTreeItem* moved, ORXPropertyTreeItem* target)
{
    if (!moved || moved == target)
        return;
    const FavoriteFeature pair = favoriteOf(*moved);
    removeFromList(pair.first);
    const int position = target ? positionOf(target->value()->nodeName(0)) : -1;
    if (position >= 0)
        favorites().insert(position, pair);
    // The moved favourite also stays at the end of the list; the group shows each name once.
    favorites().append(pair);
    orderItem(pair.first);
    emit SigListChanged();
}

// Moves the row to where the list has the name. All others stand in order, and what is being typed
// in them stays.
void FeatureFavorites::orderItem(const QString& name)
{
    QSet<QString> before;
    const QList<FavoriteFeature> list = favorites();
    for (const FavoriteFeature& favorite : list) {
        if (favorite.first == name)
            break;
        if (m_items.contains(favorite.first))
            before.insert(favorite.first);
    }
    m_pView->treeModel()->moveItem(m_items.value(name, nullptr), int(before.size()));
}

void FeatureFavorites::forgetItems()
{
    m_items.clear();
    m_pContextItem = nullptr;
}
