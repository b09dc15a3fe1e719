// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStringList>
#include <QVector>

class ORXPropertyTreeItem;
class ORXPropertyTreeModel;
class QTreeView;

// The features of the description whose rows a view shows, in sight or not, in the order of the
// rows. Owned by its view, which collects them anew when rows come or go; GUI thread.
class ShownFeatures
{
public:
    // Walks the rows that are neither hidden nor below a closed branch.
    void collect(const QTreeView& view, const ORXPropertyTreeModel& model);
    void clear() { m_rows.clear(); }

    // All names: first those of `inSight` (rows from top to bottom) and what stands below, then
    // what stands above, nearest first. Empty when nothing in sight is a feature.
    QStringList namesFrom(const QVector<ORXPropertyTreeItem*>& inSight) const;

private:
    struct Row
    {
        const ORXPropertyTreeItem* item; // Not owned, only compared.
        QString name;
    };
    int position(const ORXPropertyTreeItem* item) const;

    QVector<Row> m_rows;
};
