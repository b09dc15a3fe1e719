// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QObject>
#include <QVector>

class ORXFeatureTreeView;
class ORXPropertyTreeItem;

// What a search means for the views of the pages: opens the branches that hold hits and closes them
// again at its end, and takes the keyboard from hit to hit. Owned by a camera's column; GUI thread.
class FeatureSearch : public QObject
{
    Q_OBJECT
public:
    explicit FeatureSearch(QObject* parent);

    // The items of these views carry the search text; an empty one ends the search.
    void apply(const QVector<ORXFeatureTreeView*>& views, const QString& text);
    // Makes a hit below a group the current row: with `next` the one behind the current row, else
    // the first one. False when there is none.
    bool goToHit(ORXFeatureTreeView* view, ORXPropertyTreeItem* group, bool next) const;

private:
    void rememberClosed(const ORXFeatureTreeView* view, ORXPropertyTreeItem* item);
    bool openBranches(ORXFeatureTreeView* view, ORXPropertyTreeItem* item) const;
    void closeAgain(ORXFeatureTreeView* view);

    bool m_bSearching = false;
    // Branches that were closed before the search. Not owned.
    QHash<const ORXFeatureTreeView*, QVector<ORXPropertyTreeItem*>> m_closed;
};
