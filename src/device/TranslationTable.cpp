// SPDX-License-Identifier: Apache-2.0
#include "device/TranslationTable.h"

namespace TranslationTable {

namespace {

struct ItemField
{
    std::string_view tag;
    QString CORXPropertyTransItem::*text;
};

const ItemField kItemFields[] = {
    {"DisplayName::en", &CORXPropertyTransItem::m_strDisplayName},
    {"DisplayName::cn", &CORXPropertyTransItem::m_strDisplayNameCN},
    {"Description::en", &CORXPropertyTransItem::m_strDescription},
    {"Description::cn", &CORXPropertyTransItem::m_strDescriptionCN},
};

CORXPropertyTransEnumEntry readEntry(pugi::xml_node element)
{
    CORXPropertyTransEnumEntry entry;
    entry.m_strName = XmlText::attribute(element, "Name");
    entry.m_strDisplayName = XmlText::of(element.child("DisplayName::en"));
    entry.m_strDisplayNameCN = XmlText::of(element.child("DisplayName::cn"));
    return entry;
}

} // namespace

void addFeature(pugi::xml_node feature, Items& table)
{
    auto item = std::make_shared<CORXPropertyTransItem>();
    item->m_strName = XmlText::attribute(feature, "Name");
    for (pugi::xml_node child = XmlText::firstElement(feature); child;
         child = XmlText::nextElement(child)) {
        const std::string_view tag = child.name();
        if (tag == "EnumEntry") {
            const CORXPropertyTransEnumEntry entry = readEntry(child);
            item->m_mapEnumEntries.insert(entry.m_strName, entry);
            continue;
        }
        for (const ItemField& field : kItemFields) {
            if (tag == field.tag)
                (*item).*field.text = XmlText::of(child);
        }
    }
    table.insert(item->m_strName, item);
}

void addDocument(const XmlDocument& document, Items& table)
{
    for (const pugi::xml_node feature : document.documentElement().children("Feature"))
        addFeature(feature, table);
}

} // namespace TranslationTable
