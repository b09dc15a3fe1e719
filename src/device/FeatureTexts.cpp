// SPDX-License-Identifier: Apache-2.0
#include "device/FeatureTexts.h"

#include "device/XmlLimits.h"

#include <QDebug>
#include <QDomDocument>
#include <QFile>

#include <cstring>
#include <mutex>

TranslationTable::Items FeatureTexts::s_mapPropertyTransItems;
TranslationTable::Items FeatureTexts::s_AllPropertyTransItems;

namespace {

std::mutex& tablesMutex()
{
    static std::mutex mutex;
    return mutex;
}

// Decoded here like every other text, so that what is checked is what is parsed.
bool parse(const char* xml, std::size_t bytes, QDomDocument& document)
{
    return XmlLimits::acceptable(xml, bytes) &&
           document.setContent(QString::fromUtf8(xml, static_cast<int>(bytes)), false);
}

} // namespace

void FeatureTexts::addHostXml(const char* xml)
{
    QDomDocument document;
    if (!parse(xml, std::strlen(xml), document)) {
        qCritical("%s", "Create XML Translate DomDocument Failed");
        return;
    }
    const std::lock_guard<std::mutex> lock(tablesMutex());
    TranslationTable::addDocument(document, s_mapPropertyTransItems);
}

void FeatureTexts::loadOwn(const QString& path)
{
    if (!s_AllPropertyTransItems.isEmpty())
        return;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QByteArray bytes = file.readAll();
    QDomDocument document;
    if (!parse(bytes.constData(), static_cast<std::size_t>(bytes.size()), document))
        return;
    const std::lock_guard<std::mutex> lock(tablesMutex());
    TranslationTable::addDocument(document, s_AllPropertyTransItems);
}

FeatureTexts::Item FeatureTexts::find(const QString& feature, Tables tables)
{
    const std::lock_guard<std::mutex> lock(tablesMutex());
    const bool byHost = tables == HostFirst && s_mapPropertyTransItems.contains(feature);
    return (byHost ? s_mapPropertyTransItems : s_AllPropertyTransItems).value(feature);
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
