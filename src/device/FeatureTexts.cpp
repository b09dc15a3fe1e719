// SPDX-License-Identifier: Apache-2.0
#include "device/FeatureTexts.h"

#include "device/LoadingLane.h"

#include <QDebug>
#include <QFile>

#include <cstring>
#include <future>
#include <mutex>

TranslationTable::Items FeatureTexts::s_mapPropertyTransItems;
QHash<QString, pugi::xml_node> FeatureTexts::s_AllPropertyTransItems;

namespace {

constexpr char kDisplayName[] = "DisplayName::cn";
constexpr char kDescription[] = "Description::cn";

std::mutex& tablesMutex()
{
    static std::mutex mutex;
    return mutex;
}

// The library's own table.
XmlDocument& ownTable()
{
    static XmlDocument table;
    return table;
}

XmlDocument readTable(const QString& path)
{
    XmlDocument table;
    QFile file(path);
    if (file.open(QIODevice::ReadOnly))
        table.setContent(file.readAll());
    return table;
}

std::future<XmlDocument>& comingTable()
{
    static std::future<XmlDocument> table;
    return table;
}

// Of elements of the same name the last one counts.
QString textOf(pugi::xml_node element, std::string_view tag)
{
    for (pugi::xml_node child = element.last_child(); child; child = child.previous_sibling()) {
        if (child.name() == tag)
            return XmlText::of(child);
    }
    return {};
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
    if (!comingTable().valid() && s_AllPropertyTransItems.isEmpty())
        comingTable() = LoadingLane::run([path] { return readTable(path); });
}

pugi::xml_node FeatureTexts::ownElement(const QString& feature)
{
    if (comingTable().valid()) {
        ownTable() = comingTable().get();
        for (const pugi::xml_node each : ownTable().documentElement().children("Feature"))
            s_AllPropertyTransItems.insert(XmlText::attribute(each, "Name"), each);
    }
    return s_AllPropertyTransItems.value(feature);
}

template <typename OfHost, typename OfOwn>
QString FeatureTexts::find(const QString& feature, Tables tables, const OfHost& ofHost,
                           const OfOwn& ofOwn)
{
    const std::lock_guard<std::mutex> lock(tablesMutex());
    const auto host = s_mapPropertyTransItems.constFind(feature);
    if (tables == HostFirst && host != s_mapPropertyTransItems.constEnd())
        return ofHost(**host);
    return ofOwn(ownElement(feature));
}

QString FeatureTexts::displayName(const QString& feature, Tables tables)
{
    return find(
        feature, tables, [](const CORXPropertyTransItem& item) { return item.m_strDisplayNameCN; },
        [](pugi::xml_node own) { return textOf(own, kDisplayName); });
}

QString FeatureTexts::description(const QString& feature, Tables tables)
{
    return find(
        feature, tables, [](const CORXPropertyTransItem& item) { return item.m_strDescriptionCN; },
        [](pugi::xml_node own) { return textOf(own, kDescription); });
}

QString FeatureTexts::entry(const QString& feature, const QString& entry, Tables tables)
{
    return find(
        feature, tables,
        [&](const CORXPropertyTransItem& item) {
            return item.m_mapEnumEntries.value(entry).m_strDisplayNameCN;
        },
        [name = entry.toUtf8()](pugi::xml_node own) {
            for (pugi::xml_node child = own.last_child(); child; child = child.previous_sibling()) {
                if (child.name() == std::string_view("EnumEntry") &&
                    child.attribute("Name").value() == name)
                    return textOf(child, kDisplayName);
            }
            return QString();
        });
}
