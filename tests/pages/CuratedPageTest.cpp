// SPDX-License-Identifier: Apache-2.0
#include "pages/CuratedPageTest.h"

#include "model/ORXPropertyTreeItem.h"

CuratedPageTest::CuratedPageTest(const Expected& expected)
    : m_expected(expected)
{
}

void CuratedPageTest::groupsHoldTheirFeatures_data()
{
    const Rows<QStringList> row("items");
    for (const Group& group : m_expected.groups)
        row(group.name, group.items);
}

void CuratedPageTest::groupsHoldTheirFeatures()
{
    QFETCH(QStringList, items);
    const int tab = m_expected.tab;
    open();
    QStringList groups;
    for (const Group& group : m_expected.groups)
        groups += QString::fromLatin1(group.name);
    QCOMPARE(m_window->groups(tab), groups);
    QVERIFY(m_window->show(tab, items.first().toLatin1()));
    // Rows without a name are kept for what a camera may have more.
    QStringList held = m_window->items(tab, QTest::currentDataTag());
    held.removeAll(QString());
    QCOMPARE(held, items);
    // Of the camera's features each row is that of the whole tree; page items have rules of their
    // own.
    for (const QString& name : qAsConst(items)) {
        const QByteArray latin = name.toLatin1();
        const ORXPropertyTreeItem* whole = m_window->item(kTree, latin);
        QVERIFY2(!whole == latin.startsWith("Custom_"), latin);
        QVERIFY2(!whole || m_window->item(tab, latin) == whole, latin);
        const bool shown = whole ? whole->visible() : !m_expected.hidden.contains(name);
        QVERIFY2(m_window->isRowShown(tab, latin) == shown, latin);
    }
}

void CuratedPageTest::titlesInBothLanguages_data()
{
    const Rows<int, QStringList> row("language", "titles");
    row("English", 0, m_expected.english);
    row("Chinese", 1, m_expected.chinese);
}

void CuratedPageTest::titlesInBothLanguages()
{
    QFETCH(int, language);
    open({}, language);
    QTEST(m_window->titles(m_expected.tab), "titles");
}
