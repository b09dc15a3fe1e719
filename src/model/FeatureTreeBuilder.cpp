// SPDX-License-Identifier: Apache-2.0
#include "model/FeatureTreeBuilder.h"

#include "device/OBDeviceControl.h"
#include "model/CTreeItemValue.h"
#include "model/FeatureVisibility.h"
#include "model/ORXPropertyTreeItem.h"

#include <QDebug>

QString favoritesGroupName()
{
    return QStringLiteral("ORXCustom_Favorites");
}

void FeatureTreeBuilder::clear()
{
    m_items.clear();
    m_path.clear();
    m_reported.clear();
    m_itemCount = 0;
}

void FeatureTreeBuilder::createItems(ORXPropertyTreeItem* root, const FeatureNodeMap& nodes,
                                     IORXFeatureNotify* view)
{
    clear();
    root->clear();
    m_nodes = nodes;
    m_pView = view;
    m_nUserLevel = OBDeviceControl::GetUserLevel();
    root->registerView(view);

    auto* favorites = new ORXPropertyTreeItem(root, ORXPropertyTreeItem::FeatureTreePage);
    favorites->value()->setDisplayName(QStringLiteral("Favorites"));
    favorites->value()->setNodeName(favoritesGroupName());
    favorites->value()->setTranslatedByTables();
    favorites->setItemType(ORXPropertyTreeItem::FavoritesGroup);
    favorites->registerView(view);

    if (const FeatureNodePtr rootCategory = nodes.category(QStringLiteral("Root")))
        creatItemRecursion(root, *rootCategory);
    m_nodes = FeatureNodeMap();
}

ORXPropertyTreeItem* FeatureTreeBuilder::createItem(ORXPropertyTreeItem* parent,
                                                    const QString& name)
{
    auto* item = new ORXPropertyTreeItem(parent, ORXPropertyTreeItem::FeatureTreePage);
    item->value()->setDisplayName(name);
    item->value()->setNodeName(name);
    item->value()->setTranslatedByTables();
    item->registerView(m_pView);
    m_items.insert(name, item);
    ++m_itemCount;
    return item;
}

void FeatureTreeBuilder::describe(ORXPropertyTreeItem* item, const FeatureNode& node) const
{
    CTreeItemValue* value = item->value();
    if (!node.displayName.isEmpty())
        value->setDisplayName(node.displayName);
    value->setDescription(node.description);
    value->setUnit(node.unit);
    item->setVisibilityString(FeatureVisibility::of(node));
}

// An item with children shows when one of them does, so it is asked for when it has them.
void FeatureTreeBuilder::hideByLevel(ORXPropertyTreeItem* item) const
{
    constexpr qint64 kNobody = -1; // no view shows the items yet
    item->setVisible(FeatureVisibility::isShownAt(item->visibilityString(), m_nUserLevel), kNobody);
}

void FeatureTreeBuilder::creatItemRecursion(ORXPropertyTreeItem* parent,
                                            const FeatureNode& category)
{
    m_path.append(category.name);
    for (const QString& name : category.texts(FeatureReference::PFeature)) {
        if (m_itemCount >= kMaxItems) {
            // Every category on the way back meets the limit, too; the first one is named.
            if (m_itemCount++ == kMaxItems)
                reportOnce(category.name, QStringLiteral("lists more features than can be shown"));
            break;
        }
        ORXPropertyTreeItem* item = createItem(parent, name);
        const FeatureNodePtr node = m_nodes.node(name);
        if (node)
            describe(item, *node);
        if (const FeatureNodePtr inner = m_nodes.category(name)) {
            if (m_path.contains(name))
                reportOnce(name, QStringLiteral("contains itself"));
            else if (m_path.size() >= kMaxCategoryDepth)
                reportOnce(name, QStringLiteral("is nested too deep"));
            else
                creatItemRecursion(item, *inner);
            hideByLevel(item);
            continue;
        }
        item->setItemType(ORXPropertyTreeItem::FeatureItem);
        if (!node)
            continue; // nothing will ever be read
        item->setTagName(node->tagName);
        item->setWasRead(false, -1);
        hideByLevel(item);
    }
    m_path.removeLast();
}

void FeatureTreeBuilder::reportOnce(const QString& name, const QString& what)
{
    if (m_reported.contains(name))
        return;
    m_reported.insert(name);
    qCritical().noquote() << QStringLiteral("Feature description: category %1 %2").arg(name, what);
}
