// SPDX-License-Identifier: Apache-2.0
#include "tree/SelectorRowsLock.h"

#include "tree/LockedRows.h"
#include "tree/ORXFeatureTree.h"

#include <utility>

void SelectorRowsLock::lock(ORXFeatureTree* tree, const QStringList& names)
{
    LockedRows* rows = tree ? tree->lockedRows() : nullptr;
    const QStringList wanted = rows ? names : QStringList();
    if (m_pRows == rows && m_names == wanted)
        return;
    // The new ones first, so that a row of both is not usable in between.
    if (rows)
        rows->lock(wanted);
    unlock();
    m_pRows = rows;
    m_names = wanted;
}

void SelectorRowsLock::lockSelector(ORXFeatureTree* tree, const QString& selector)
{
    QStringList names;
    if (tree)
        tree->descriptionIndex().GetFeaturePSelectedList(selector, names);
    names.prepend(selector);
    lock(tree, names);
}

void SelectorRowsLock::unlock()
{
    const QStringList names = std::exchange(m_names, {});
    if (m_pRows)
        m_pRows->unlock(names);
    m_pRows.clear();
}
