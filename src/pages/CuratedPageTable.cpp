// SPDX-License-Identifier: Apache-2.0
#include "pages/CuratedPageTable.h"

bool CuratedItem::isOwnName(const QString& name)
{
    return name.startsWith(QLatin1String("Custom_"));
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
