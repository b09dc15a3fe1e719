// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointer>
#include <QStringList>

class LockedRows;
class ORXFeatureTree;

// Locks rows on every page while a worker has a selector elsewhere than where the user sees it:
// what the user writes then would land on another entry. Passes go on updating the rows, and their
// own read-only state is not touched; a row that others lock as well stays locked until they have
// ended too. Owned by what owns the worker, and may outlive the tree; GUI thread.
class SelectorRowsLock
{
public:
    SelectorRowsLock() = default;
    ~SelectorRowsLock() { unlock(); }
    SelectorRowsLock(const SelectorRowsLock&) = delete;
    SelectorRowsLock& operator=(const SelectorRowsLock&) = delete;

    // Locks the rows of the features that the tree has; those locked before are unlocked.
    void lock(ORXFeatureTree* tree, const QStringList& names);
    // The same of a selector and of all that it selects by the description.
    void lockSelector(ORXFeatureTree* tree, const QString& selector);
    void unlock();
    bool isLocked() const { return !m_names.isEmpty(); }

private:
    QPointer<LockedRows> m_pRows; // Not owned.
    QStringList m_names;
};
