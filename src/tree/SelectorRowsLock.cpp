// SPDX-License-Identifier: Apache-2.0
#include "tree/SelectorRowsLock.h"

#include "model/CTreeItemValue.h"
#include "tree/ORXFeatureTree.h"

void SelectorRowsLock::lock(ORXFeatureTree* tree, const QStringList& names)
{
    if (m_pTree == tree && m_names == names)
        return;
    unlock();
    m_pTree = tree;
    m_names = tree ? names : QStringList();
    setEnabled(false);
}

void SelectorRowsLock::lockSelector(ORXFeatureTree* tree, const QString& selector)
{
    QStringList names;
    if (tree)
        tree->descriptionIndex().GetFeaturePSelectedList(selector, names);
    names.prepend(selector);
    lock(tree, names);
}

// With nothing locked the tree is not touched: it may be in the middle of its own end.
void SelectorRowsLock::unlock()
{
    if (m_names.isEmpty())
        return;
    setEnabled(true);
    m_names.clear();
    m_pTree.clear();
}

void SelectorRowsLock::setEnabled(bool enabled)
{
    if (!m_pTree)
        return;
    for (const QString& name : qAsConst(m_names)) {
        ORXPropertyTreeItem* item = m_pTree->propertyItemByName(name);
        if (!item || !item->value())
            continue;
        item->value()->setEnabled(enabled);
        // The favourite's copy has a switch of its own.
        if (ORXPropertyTreeItem* mirror = item->mappingItem())
            mirror->value()->setEnabled(enabled);
        item->notifyViewUpdate(m_pTree->cameraID(), 1, false);
    }
}
