// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QVarLengthArray>
#include <QVector>

class CFeatureGroupModel;
class GroupRows;
class ORXPropertyTreeItem;

// Which groups of the side column carry a dot: those with a feature whose value has changed since
// they were shown last. What the shown group shows was seen, and sets no dot on other pages that
// have the same feature. Whoever tells of changes leaves out polled features that change of
// themselves: they do so for ever. Owned by the column's view; GUI thread.
class GroupDots
{
public:
    // Not owned.
    GroupDots(const GroupRows* rows, CFeatureGroupModel* model);

    // These have changed while `shown` was shown, null for no group.
    void noteChanged(const QVector<ORXPropertyTreeItem*>& items, const ORXPropertyTreeItem* shown);
    // The group is shown.
    void look(const ORXPropertyTreeItem* group);
    void clear();

private:
    // One for each page at the most, and the favourites.
    using Groups = QVarLengthArray<const ORXPropertyTreeItem*, 8>;
    Groups groupsOf(ORXPropertyTreeItem* item) const;

    const GroupRows* m_pRows;     // Not owned.
    CFeatureGroupModel* m_pModel; // Not owned.
};
