// SPDX-License-Identifier: Apache-2.0
#include "main/FeatureSearch.h"

#include "model/ORXPropertyTreeItem.h"
#include "model/ORXPropertyTreeModel.h"
#include "tree/ORXFeatureTreeView.h"

namespace {

bool isHit(const ORXPropertyTreeItem& item)
{
    return item.childCount() == 0 && item.searchMatch() && item.visible();
}

void collectHits(const ORXPropertyTreeItem& item, QVector<ORXPropertyTreeItem*>& hits)
{
    const QVector<ORXPropertyTreeItem*> children = item.children();
    for (ORXPropertyTreeItem* child : children) {
        if (isHit(*child))
            hits.append(child);
        else
            collectHits(*child, hits);
    }
}

} // namespace

FeatureSearch::FeatureSearch(QObject* parent)
    : QObject(parent)
{
}

void FeatureSearch::apply(const QVector<ORXFeatureTreeView*>& views, const QString& text)
{
    const bool starts = !m_bSearching && !text.isEmpty();
    m_bSearching = !text.isEmpty();
    for (ORXFeatureTreeView* view : views) {
        ORXPropertyTreeItem* root = view->rootTreeItem();
        if (!root)
            continue;
        if (starts)
            rememberClosed(view, root);
        if (m_bSearching)
            openBranches(view, root);
        else
            closeAgain(view);
    }
    if (!m_bSearching)
        m_closed.clear();
}

void FeatureSearch::rememberClosed(const ORXFeatureTreeView* view, ORXPropertyTreeItem* item)
{
    const QVector<ORXPropertyTreeItem*> children = item->children();
    for (ORXPropertyTreeItem* child : children) {
        if (child->childCount() == 0)
            continue;
        // A group has no row of its own to open it by: it stays open.
        if (item != view->rootTreeItem() &&
            !view->isExpanded(view->treeModel()->indexFromItem(child, 0)))
            m_closed[view].append(child);
        rememberClosed(view, child);
    }
}

// Returns whether there is a hit below.
bool FeatureSearch::openBranches(ORXFeatureTreeView* view, ORXPropertyTreeItem* item) const
{
    bool hit = false;
    const QVector<ORXPropertyTreeItem*> children = item->children();
    for (ORXPropertyTreeItem* child : children) {
        if (child->childCount() == 0) {
            hit = hit || isHit(*child);
        } else if (openBranches(view, child)) {
            hit = true;
            const QModelIndex branch = view->treeModel()->indexFromItem(child, 0);
            if (!view->isExpanded(branch))
                view->expand(branch);
        }
    }
    return hit;
}

void FeatureSearch::closeAgain(ORXFeatureTreeView* view)
{
    const QVector<ORXPropertyTreeItem*> closed = m_closed.value(view);
    for (ORXPropertyTreeItem* item : closed) {
        // The tree may have been made anew during the search.
        if (ORXPropertyTreeItem::isAlive(item))
            view->collapse(view->treeModel()->indexFromItem(item, 0));
    }
}

bool FeatureSearch::goToHit(ORXFeatureTreeView* view, ORXPropertyTreeItem* group, bool next) const
{
    QVector<ORXPropertyTreeItem*> hits;
    if (group)
        collectHits(*group, hits);
    const ORXPropertyTreeItem* current = ORXPropertyTreeModel::itemFromIndex(view->currentIndex());
    int target = 0;
    for (int i = 0; next && i < hits.size(); ++i) {
        if (hits.at(i) == current)
            target = i + 1;
    }
    if (target >= hits.size())
        return false;
    const QModelIndex row = view->treeModel()->indexFromItem(hits.at(target), 0);
    view->setCurrentIndex(row);
    view->scrollTo(row);
    return true;
}
