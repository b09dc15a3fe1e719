// SPDX-License-Identifier: Apache-2.0
#include "device/TranslationTable.h"

#include <QDomDocument>

namespace TranslationTable {

namespace {

struct ItemField
{
    QLatin1String tag;
    QString CORXPropertyTransItem::*text;
};

const ItemField kItemFields[] = {
    {QLatin1String("DisplayName::en"), &CORXPropertyTransItem::m_strDisplayName},
    {QLatin1String("DisplayName::cn"), &CORXPropertyTransItem::m_strDisplayNameCN},
    {QLatin1String("Description::en"), &CORXPropertyTransItem::m_strDescription},
    {QLatin1String("Description::cn"), &CORXPropertyTransItem::m_strDescriptionCN},
};

CORXPropertyTransEnumEntry readEntry(const QDomElement& element)
{
    CORXPropertyTransEnumEntry entry;
    entry.m_strName = element.attribute(QStringLiteral("Name"));
    entry.m_strDisplayName = element.firstChildElement(QStringLiteral("DisplayName::en")).text();
    entry.m_strDisplayNameCN = element.firstChildElement(QStringLiteral("DisplayName::cn")).text();
    return entry;
}

} // namespace

void addFeature(const QDomElement& feature, Items& table)
{
    auto item = std::make_shared<CORXPropertyTransItem>();
    item->m_strName = feature.attribute(QStringLiteral("Name"));
    for (QDomElement child = feature.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        const QString tag = child.tagName();
        if (tag == QLatin1String("EnumEntry")) {
            const CORXPropertyTransEnumEntry entry = readEntry(child);
            item->m_mapEnumEntries.insert(entry.m_strName, entry);
            continue;
        }
        for (const ItemField& field : kItemFields) {
            if (tag == field.tag)
                (*item).*field.text = child.text();
        }
    }
    table.insert(item->m_strName, item);
}

void addDocument(const QDomDocument& document, Items& table)
{
    const QDomElement root = document.documentElement();
    for (QDomElement feature = root.firstChildElement(QStringLiteral("Feature")); !feature.isNull();
         feature = feature.nextSiblingElement(QStringLiteral("Feature")))
        addFeature(feature, table);
}

} // namespace TranslationTable
