// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QMap>

// The group that was selected last on each page of the side column, and the place before a search,
// to which its end goes back unless the user has chosen another meanwhile. By rows of the column.
class GroupPlaces
{
public:
    void select(int page, int group) { m_groups.insert(page, group); }
    // The first group when none was selected.
    int selected(int page) const { return m_groups.value(page); }

    // A search begins while `page` is shown.
    void rememberPlace(int page)
    {
        m_groupsBefore = m_groups;
        m_nPageBefore = page;
    }
    // The user has chosen: there is nothing to go back to.
    void forgetPlace() { m_nPageBefore = -1; }
    // The search has ended while `page` is shown. The page to go back to, its selected group as it
    // was then; -1 when there is none or the place is the same.
    int goBack(int page)
    {
        const int before = m_nPageBefore;
        m_nPageBefore = -1;
        if (before < 0 || (before == page && m_groups == m_groupsBefore))
            return -1;
        m_groups = m_groupsBefore;
        return before;
    }

private:
    QMap<int, int> m_groups; // page to group
    QMap<int, int> m_groupsBefore;
    int m_nPageBefore = -1;
};
