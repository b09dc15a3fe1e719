// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ORXPropertyTreeItem.h"

#include <QAbstractItemModel>
#include <QStringList>

class CTreeItemValue;
class IFeatureValueWriter;

// Item model over a page's tree of items: names in column 0, values (drawn by the delegate) in
// column 1. Every child of an item is a row; the view hides rows. Owned by its view; GUI thread.
// Indexes carry the item as their internal pointer.
class ORXPropertyTreeModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    ORXPropertyTreeModel(ORXPropertyTreeItem::ParentType type, QObject* parent);

    // Shows the children of `root` (not owned); null shows nothing.
    void updateData(ORXPropertyTreeItem* root);
    ORXPropertyTreeItem* rootItem() const { return m_pRootItem; }
    // Key of the shown camera, -1 for none: edits are then accepted and ignored.
    void resetCamearID(qint64 cameraId);
    void bindingFeatureWidget(IFeatureValueWriter* page);
    void setIsCanEdit(bool canEdit);
    bool isCanEditable() const;
    void setTitle(const QStringList& titles);

    QModelIndex indexFromItem(ORXPropertyTreeItem* item, int column) const;
    static ORXPropertyTreeItem* itemFromIndex(const QModelIndex& index);
    // Hangs items without a parent under `parent`, as its last rows.
    void addItems(ORXPropertyTreeItem* parent, const QVector<ORXPropertyTreeItem*>& items);
    // Removes the row of `child` and detaches it; without a child, announces the removal of all
    // rows and detaches them, without destroying them.
    void removeItems(ORXPropertyTreeItem* parent, ORXPropertyTreeItem* child);
    // Moves the row of an item to another place below its parent; `row` is where it stands then.
    void moveItem(ORXPropertyTreeItem* item, int row);

    static bool isSameValue(const QString& tagName, const CTreeItemValue* value,
                            const QVariant& edited);
    static void setItemValue(ORXPropertyTreeItem* item, const QString& nodeName,
                             const QVariant& edited);

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

private:
    QVariant displayText(const ORXPropertyTreeItem& item) const;
    QVariant toolTip(const ORXPropertyTreeItem& item, int column) const;
    QVariant foreground(const ORXPropertyTreeItem& item, int column) const;

    bool m_bCanEdit = true;
    ORXPropertyTreeItem::ParentType m_parentType;
    qint64 m_lCameraID = -1;
    IFeatureValueWriter* m_pFeatureWidget = nullptr; // Not owned.
    QStringList m_titles;
    ORXPropertyTreeItem* m_pRootItem = nullptr; // Not owned.
};

// Format of the data of a dragged favourite: the item's address as decimal text, valid only inside
// the process.
extern const char kMoveFavoriteMime[];
