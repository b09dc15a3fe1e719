// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QObject>
#include <QStringList>

class IFeatureItems;
class ORXPropertyTreeItem;

// Which rows of a tree are locked, and how often: several workers may have selectors elsewhere at
// the same time, and a row can be used again when the last of them has ended, whatever the order.
// Owned by the tree, used through SelectorRowsLock; GUI thread.
class LockedRows : public QObject
{
    Q_OBJECT
public:
    // `items` is not owned, and outlives it.
    explicit LockedRows(const IFeatureItems& items);

    // Each lock() of a name is ended by one unlock(). Names that the tree lacks do nothing.
    void lock(const QStringList& names);
    void unlock(const QStringList& names);

signals:
    // Of rows whose state has changed, to tell their views.
    void SigRowChanged(ORXPropertyTreeItem* item);

private:
    void show(const QString& name);

    const IFeatureItems& m_items; // Not owned.
    QHash<QString, int> m_locks;  // by name; none is 0
};
