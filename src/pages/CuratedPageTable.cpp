// SPDX-License-Identifier: Apache-2.0
#include "pages/CuratedPageTable.h"

#include <cstring>

bool CuratedItem::isOwnName(const QString& name)
{
    return name.startsWith(QLatin1String("Custom_"));
}

QStringList CuratedPageTable::namesOf(const char* group) const
{
    QStringList names;
    for (const CuratedGroup& each : groups) {
        if (std::strcmp(each.name, group) != 0)
            continue;
        for (const CuratedItem& item : each.items)
            names.append(QString::fromLatin1(item.name));
    }
    return names;
}

QMap<QString, QString> CuratedPageTable::texts() const
{
    QMap<QString, QString> texts;
    for (const CuratedGroup& group : groups) {
        texts.insert(QString::fromLatin1(group.name), QString::fromLatin1(group.title));
        for (const CuratedItem& item : group.items) {
            if (item.text)
                texts.insert(QString::fromLatin1(item.name), QString::fromLatin1(item.text));
        }
    }
    return texts;
}
