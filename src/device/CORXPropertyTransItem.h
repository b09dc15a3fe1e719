// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QMap>
#include <QString>

// Names of one enumeration entry in a translation table.
struct CORXPropertyTransEnumEntry
{
    QString m_strName;
    QString m_strDisplayName;   // English
    QString m_strDisplayNameCN; // second language
};

// Names and descriptions of one feature in a translation table, which owns it.
struct CORXPropertyTransItem
{
    QString m_strName;
    QString m_strDisplayName; // English; stored, never shown
    QString m_strDisplayNameCN;
    QString m_strDescription; // English; stored, never shown
    QString m_strDescriptionCN;
    QMap<QString, CORXPropertyTransEnumEntry> m_mapEnumEntries;
};
