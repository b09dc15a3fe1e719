// SPDX-License-Identifier: Apache-2.0
#include "main/GroupDots.h"

#include "main/CFeatureGroupModel.h"
#include "main/GroupRows.h"
#include "model/ItemStateLock.h"

GroupDots::GroupDots(const GroupRows* rows, CFeatureGroupModel* model)
    : m_pRows(rows)
    , m_pModel(model)
{
}

// Of all pages; a favourite stands in the favourites, too.
GroupDots::Groups GroupDots::groupsOf(ORXPropertyTreeItem* item) const
{
    // Once for the whole way up on all pages.
    const ItemStateLock lock;
    Groups groups;
    ORXPropertyTreeItem* favorite = item->mappingItem();
    for (int page = 0; page < m_pModel->rowCount(); ++page) {
        for (ORXPropertyTreeItem* each : {item, favorite}) {
            const ORXPropertyTreeItem* group = each ? m_pRows->groupOf(page, each) : nullptr;
            if (group)
                groups.append(group);
        }
    }
    return groups;
}

void GroupDots::noteChanged(const QVector<ORXPropertyTreeItem*>& items,
                            const ORXPropertyTreeItem* shown)
{
    for (ORXPropertyTreeItem* item : items) {
        if (!item->visible())
            continue;
        const Groups groups = groupsOf(item);
        if (groups.contains(shown))
            continue;
        for (const ORXPropertyTreeItem* group : groups)
            m_pModel->setDot(group, true);
    }
}

void GroupDots::look(const ORXPropertyTreeItem* group)
{
    m_pModel->setDot(group, false);
}

void GroupDots::clear()
{
    m_pModel->clearDots();
}
