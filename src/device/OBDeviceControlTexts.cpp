// SPDX-License-Identifier: Apache-2.0
// The part of OBDeviceControl that deals with texts: translations, favourites, HTML.
#include "device/HtmlEscape.h"
#include "device/OBDeviceControl.h"
#include "device/XmlLimits.h"
#include "styledctl/ZELCustom.h"

#include <QDebug>
#include <QFile>

#include <cstring>
#include <mutex>

TranslationTable::Items OBDeviceControl::s_mapPropertyTransItems;
TranslationTable::Items OBDeviceControl::s_AllPropertyTransItems;
QList<FavoriteFeature> OBDeviceControl::s_mapFavoritesFeature;

namespace {

// Reading threads look texts up while a host may call Init again on the GUI thread.
std::mutex& tablesMutex()
{
    static std::mutex mutex;
    return mutex;
}

QString textOf(const TranslationTable::Items& table, const QString& name,
               QString CORXPropertyTransItem::*text)
{
    const std::shared_ptr<const CORXPropertyTransItem> item = table.value(name);
    return item ? (*item).*text : QString();
}

QString entryOf(const TranslationTable::Items& table, const QString& feature, const QString& entry)
{
    const std::shared_ptr<const CORXPropertyTransItem> item = table.value(feature);
    return item ? item->m_mapEnumEntries.value(entry).m_strDisplayNameCN : QString();
}

} // namespace

void OBDeviceControl::Init(const char* deviceXml, const char* translateXml)
{
    parsePropertyTransXml();
    LoadFavoritesXml();
    if (deviceXml)
        loadDeviceXml(deviceXml);
    if (!translateXml)
        return;
    QDomDocument document;
    if (!XmlLimits::acceptable(translateXml, std::strlen(translateXml)) ||
        !document.setContent(QString::fromUtf8(translateXml), false)) {
        qCritical("%s", "Create XML Translate DomDocument Failed");
        return;
    }
    const std::lock_guard<std::mutex> lock(tablesMutex());
    TranslationTable::addDocument(document, s_mapPropertyTransItems);
}

void OBDeviceControl::parsePropertyTransXml()
{
    if (!s_AllPropertyTransItems.isEmpty())
        return;
    QFile file(GetDllPath() + QStringLiteral("/FeatureTreeResource/FeaturesTranslate.xml"));
    if (!file.open(QIODevice::ReadOnly))
        return;
    // Decoded here like every other text, so that what is checked is what is parsed.
    const QByteArray bytes = file.readAll();
    QDomDocument document;
    if (!XmlLimits::acceptable(bytes.constData(), static_cast<std::size_t>(bytes.size())) ||
        !document.setContent(QString::fromUtf8(bytes), false))
        return;
    const std::lock_guard<std::mutex> lock(tablesMutex());
    TranslationTable::addDocument(document, s_AllPropertyTransItems);
}

void OBDeviceControl::parseOneFeature(const QDomElement& feature, TranslationTable::Items& table)
{
    TranslationTable::addFeature(feature, table);
}

QString OBDeviceControl::GetDisplayNameTrans(const QString& name)
{
    const std::lock_guard<std::mutex> lock(tablesMutex());
    const TranslationTable::Items& table =
        s_mapPropertyTransItems.contains(name) ? s_mapPropertyTransItems : s_AllPropertyTransItems;
    return textOf(table, name, &CORXPropertyTransItem::m_strDisplayNameCN);
}

QString OBDeviceControl::GetDescriptionTrans(const QString& name)
{
    const std::lock_guard<std::mutex> lock(tablesMutex());
    const TranslationTable::Items& table =
        s_mapPropertyTransItems.contains(name) ? s_mapPropertyTransItems : s_AllPropertyTransItems;
    return textOf(table, name, &CORXPropertyTransItem::m_strDescriptionCN);
}

QString OBDeviceControl::GetEnumerationTrans(const QString& feature, const QString& entry)
{
    const std::lock_guard<std::mutex> lock(tablesMutex());
    const TranslationTable::Items& table = s_mapPropertyTransItems.contains(feature)
                                               ? s_mapPropertyTransItems
                                               : s_AllPropertyTransItems;
    return entryOf(table, feature, entry);
}

QString OBDeviceControl::getPropDisplayNameTrans(const QString& name)
{
    const std::lock_guard<std::mutex> lock(tablesMutex());
    return textOf(s_AllPropertyTransItems, name, &CORXPropertyTransItem::m_strDisplayNameCN);
}

QString OBDeviceControl::getPropDescriptionTrans(const QString& name)
{
    const std::lock_guard<std::mutex> lock(tablesMutex());
    return textOf(s_AllPropertyTransItems, name, &CORXPropertyTransItem::m_strDescriptionCN);
}

QString OBDeviceControl::getPropEnumerationTrans(const QString& feature, const QString& entry)
{
    const std::lock_guard<std::mutex> lock(tablesMutex());
    return entryOf(s_AllPropertyTransItems, feature, entry);
}

QList<FavoriteFeature>* OBDeviceControl::GetFavoritesFeatureMap()
{
    return &s_mapFavoritesFeature;
}

void OBDeviceControl::LoadFavoritesXml()
{
    s_mapFavoritesFeature = FavoritesFile::load();
}

void OBDeviceControl::SaveFavoritesXml()
{
    FavoritesFile::save(s_mapFavoritesFeature);
}

QString OBDeviceControl::stringToHtmlFilter(const QString& text, const QColor& colour, bool bold)
{
    return QStringLiteral("<span style=\" color:#%1; font-size:13px;font-family:%4 ;%3\">%2</span>")
        .arg(colour.name(QColor::HexRgb).mid(1))
        .arg(htmlEscaped(text))
        .arg(bold ? QStringLiteral("font-weight:bold") : QString())
        .arg(ZELCustom::globalFontFamily(1));
}
