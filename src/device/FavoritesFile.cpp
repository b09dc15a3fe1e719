// SPDX-License-Identifier: Apache-2.0
#include "device/FavoritesFile.h"

#include "basetools/ORXInterface.h"
#include "device/XmlLimits.h"

#include <QDebug>
#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QSaveFile>

namespace FavoritesFile {

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
    const QByteArray utf8 = text.toUtf8();
    QDomDocument document;
    if (!XmlLimits::acceptable(utf8.constData(), static_cast<std::size_t>(utf8.size())) ||
        !document.setContent(text)) {
        qCritical("%s", "loadFavoritesXml failed.333");
        return {};
    }
    const QDomElement root = document.documentElement();
    if (root.isNull()) {
        qCritical("%s", "loadFavoritesXml failed.444");
        return {};
    }
    QList<FavoriteFeature> favorites;
    for (QDomElement entry = root.firstChildElement(); !entry.isNull();
         entry = entry.nextSiblingElement()) {
        FavoriteFeature favorite;
        for (QDomElement field = entry.firstChildElement(); !field.isNull();
             field = field.nextSiblingElement()) {
            if (field.tagName() == QLatin1String("Name"))
                favorite.first = field.text();
            else if (field.tagName() == QLatin1String("DisplayName"))
                favorite.second = field.text();
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
