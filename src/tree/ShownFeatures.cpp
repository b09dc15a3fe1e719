// SPDX-License-Identifier: Apache-2.0
#include "tree/ShownFeatures.h"

#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeModel.h"

#include <QTreeView>

namespace {

bool isFeature(const ORXPropertyTreeItem& item)
{
    return item.isFeatureTreeItem() && item.value() &&
           (item.itemType() == ORXPropertyTreeItem::FeatureItem ||
            item.itemType() == ORXPropertyTreeItem::FavoriteItem);
}

} // namespace

void ShownFeatures::collect(const QTreeView& view, const ORXPropertyTreeModel& model)
{
    m_rows.clear();
    // Branches that are still to be walked; the last one is the next.
    QVector<QModelIndex> open = {QModelIndex()};
    while (!open.isEmpty()) {
        const QModelIndex index = open.takeLast();
        if (index.isValid()) {
            ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index);
            if (isFeature(*item))
                m_rows.append({item, item->value()->nodeName(0)});
            if (!view.isExpanded(index))
                continue;
        }
        for (int row = model.rowCount(index) - 1; row >= 0; --row) {
            if (!view.isRowHidden(row, index))
                open.append(model.index(row, 0, index));
        }
    }
}

int ShownFeatures::position(const ORXPropertyTreeItem* item) const
{
    for (int i = 0; i < m_rows.size(); ++i) {
        if (m_rows.at(i).item == item)
            return i;
    }
    return -1;
}

QStringList ShownFeatures::namesFrom(const QTreeView& view, const ORXPropertyTreeModel& model,
                                     const QVector<ORXPropertyTreeItem*>& inSight)
{
    // Scrolling only shifts where the list begins.
    if (m_bRowsChanged)
        collect(view, model);
    m_bRowsChanged = false;
    int first = -1;
    for (int i = 0; i < inSight.size() && first < 0; ++i)
        first = position(inSight.at(i));
    QStringList names;
    if (first < 0)
        return names;
    names.reserve(m_rows.size());
    for (int i = first; i < m_rows.size(); ++i)
        names.append(m_rows.at(i).name);
    for (int i = first - 1; i >= 0; --i)
        names.append(m_rows.at(i).name);
    return names;
}
