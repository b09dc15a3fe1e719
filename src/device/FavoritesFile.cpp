// SPDX-License-Identifier: Apache-2.0
#include "device/FavoritesFile.h"

#include "basetools/ORXInterface.h"
#include "device/XmlDocument.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSaveFile>

namespace FavoritesFile {

namespace {

// An ampersand that begins no reference: no XML, although the parser takes it for text.
bool hasLoneAmpersand(const QString& text)
{
    static const QRegularExpression kLone(
        QStringLiteral("&(?!(#[0-9]+|#x[0-9A-Fa-f]+|amp|lt|gt|quot|apos);)"));
    return text.contains(kLone);
}

} // namespace

QString path()
{
    return ORXInterface::systemTemp() + QStringLiteral("/FeatureTree/FavoriteFeatures.xml");
}

QList<FavoriteFeature> load()
{
    QFile file(path());
    if (!file.exists()) {
        QDir().mkpath(ORXInterface::systemTemp() + QStringLiteral("/FeatureTree/"));
        qInfo("%s", "loadFavoritesXml failed.111");
        return {};
    }
    if (!file.open(QIODevice::ReadOnly)) {
        qCritical("%s", "loadFavoritesXml failed.222");
        return {};
    }
    // The declaration names another encoding than the one written, so the text is decoded here and
    // the parser gets it as a string.
    const QString text = QString::fromLocal8Bit(file.readAll());
    XmlDocument document;
    if (hasLoneAmpersand(text) || !document.setContent(text.toUtf8())) {
        qCritical("%s", document.lacksRoot() ? "loadFavoritesXml failed.444"
                                             : "loadFavoritesXml failed.333");
        return {};
    }
    QList<FavoriteFeature> favorites;
    for (pugi::xml_node entry = XmlText::firstElement(document.documentElement()); entry;
         entry = XmlText::nextElement(entry)) {
        FavoriteFeature favorite;
        for (pugi::xml_node field = XmlText::firstElement(entry); field;
             field = XmlText::nextElement(field)) {
            if (XmlText::name(field) == "Name")
                favorite.first = XmlText::of(field);
            else if (XmlText::name(field) == "DisplayName")
                favorite.second = XmlText::of(field);
        }
        if (!favorite.first.isEmpty() && !favorite.second.isEmpty())
            favorites.append(favorite);
    }
    return favorites;
}

void save(const QList<FavoriteFeature>& favorites)
{
    // The declared encoding and the missing escapes are the format that other readers of this file
    // know; both stay as they are.
    QString text = QStringLiteral("<?xml version=\"1.0\" encoding=\"GB2312\"?>\r\n<Favorites>");
    for (const FavoriteFeature& favorite : favorites) {
        text += QLatin1String("<Feature><Name>") + favorite.first +
                QLatin1String("</Name><DisplayName>") + favorite.second +
                QLatin1String("</DisplayName></Feature>");
    }
    text += QLatin1String("</Favorites>");

    // QSaveFile makes missing files only in existing folders, and replaces the old file in one
    // step, so that a crash in the middle loses nothing.
    QSaveFile file(path());
    if (!file.open(QIODevice::WriteOnly))
        return;
    file.write(text.toLocal8Bit());
    // commit() itself does not notice when buffered bytes do not reach the disk.
    if (file.flush())
        file.commit();
}

} // namespace FavoritesFile
