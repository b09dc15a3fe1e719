// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "pages/DemoPageTest.h"

#include <QVector>

// Base of tests of a curated page, with what is to be shown of each: the rows of its groups, and
// its titles in both languages.
class CuratedPageTest : public DemoPageTest
{
    Q_OBJECT
private slots:
    void groupsHoldTheirFeatures_data();
    void groupsHoldTheirFeatures();
    void titlesInBothLanguages_data();
    void titlesInBothLanguages();

protected:
    struct Group
    {
        const char* name;
        QStringList items; // names in order
    };
    struct Expected
    {
        int tab;
        QStringList english; // titles of the page and of its groups
        QStringList chinese;
        QVector<Group> groups;
        QStringList hidden; // rows of the page's own that the demo camera does not show at first
    };
    explicit CuratedPageTest(const Expected& expected);

private:
    const Expected m_expected;
};
