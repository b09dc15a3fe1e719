// SPDX-License-Identifier: Apache-2.0
#include "device/FeatureTexts.h"

#include "device/XmlDocument.h"

#include <QDebug>
#include <QFile>
#include <QHash>

#include <cstring>
#include <future>
#include <memory>
#include <mutex>

TranslationTable::Items FeatureTexts::s_mapPropertyTransItems;
TranslationTable::Items FeatureTexts::s_AllPropertyTransItems;

namespace {

std::mutex& tablesMutex()
{
    static std::mutex mutex;
    return mutex;
}

// The library's own table, and the last element of each feature in it.
struct OwnTable
{
    XmlDocument document;
    QHash<QString, pugi::xml_node> features;
};

std::unique_ptr<OwnTable> readOwnTable(const QString& path)
{
    auto table = std::make_unique<OwnTable>();
    QFile file(path);
    if (file.open(QIODevice::ReadOnly) && table->document.setContent(file.readAll())) {
        for (const pugi::xml_node feature : table->document.documentElement().children("Feature"))
            table->features.insert(XmlText::attribute(feature, "Name"), feature);
    }
    return table;
}

std::future<std::unique_ptr<OwnTable>>& comingTable()
{
    static std::future<std::unique_ptr<OwnTable>> table;
    return table;
}

// With the tables' mutex held.
const OwnTable& ownTable()
{
    static std::unique_ptr<OwnTable> table = std::make_unique<OwnTable>();
    if (comingTable().valid())
        table = comingTable().get();
    return *table;
}

} // namespace

void FeatureTexts::addHostXml(const char* xml)
{
    XmlDocument document;
    if (!document.setContent(xml, std::strlen(xml))) {
        qCritical("%s", "Create XML Translate DomDocument Failed");
        return;
    }
    const std::lock_guard<std::mutex> lock(tablesMutex());
    TranslationTable::addDocument(document, s_mapPropertyTransItems);
}

void FeatureTexts::beginOwn(const QString& path)
{
    const std::lock_guard<std::mutex> lock(tablesMutex());
    // A system that gives no thread reads it when the first text is asked for.
    if (ownTable().features.isEmpty())
        comingTable() = std::async(std::launch::async | std::launch::deferred, readOwnTable, path);
}

FeatureTexts::Item FeatureTexts::findOwn(const QString& feature)
{
    const auto known = s_AllPropertyTransItems.constFind(feature);
    if (known != s_AllPropertyTransItems.constEnd())
        return *known;
    const pugi::xml_node element = ownTable().features.value(feature);
    if (!element)
        return nullptr;
    TranslationTable::addFeature(element, s_AllPropertyTransItems);
    return s_AllPropertyTransItems.value(feature);
}

FeatureTexts::Item FeatureTexts::find(const QString& feature, Tables tables)
{
    const std::lock_guard<std::mutex> lock(tablesMutex());
    const bool byHost = tables == HostFirst && s_mapPropertyTransItems.contains(feature);
    return byHost ? s_mapPropertyTransItems.value(feature) : findOwn(feature);
}

QString FeatureTexts::displayName(const QString& feature, Tables tables)
{
    const Item item = find(feature, tables);
    return item ? item->m_strDisplayNameCN : QString();
}

QString FeatureTexts::description(const QString& feature, Tables tables)
{
    const Item item = find(feature, tables);
    return item ? item->m_strDescriptionCN : QString();
}

QString FeatureTexts::entry(const QString& feature, const QString& entry, Tables tables)
{
    const Item item = find(feature, tables);
    return item ? item->m_mapEnumEntries.value(entry).m_strDisplayNameCN : QString();
}
