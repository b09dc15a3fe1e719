// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStringList>
#include <QVector>

class ORXPropertyTreeItem;
class ORXPropertyTreeModel;
class QTreeView;

// The features of the description whose rows a view shows, in sight or not, in the order of the
// rows. Owned by its view; GUI thread.
class ShownFeatures
{
public:
    // Rows have come, gone, or been shown, hidden, expanded or collapsed.
    void rowsChanged() { m_bRowsChanged = true; }

    // All names: first those of `inSight` (rows from top to bottom) and what stands below, then
    // what stands above, nearest first. Empty when nothing in sight is a feature.
    QStringList namesFrom(const QTreeView& view, const ORXPropertyTreeModel& model,
                          const QVector<ORXPropertyTreeItem*>& inSight);

private:
    struct Row
    {
        const ORXPropertyTreeItem* item; // Not owned, only compared.
        QString name;
    };
    // Walks the rows that are neither hidden nor below a closed branch.
    void collect(const QTreeView& view, const ORXPropertyTreeModel& model);
    int position(const ORXPropertyTreeItem* item) const;

    QVector<Row> m_rows;
    bool m_bRowsChanged = true; // since m_rows were collected
};
