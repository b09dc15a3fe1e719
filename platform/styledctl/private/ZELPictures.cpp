// SPDX-License-Identifier: Apache-2.0
#include "styledctl/private/ZELPictures.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QHash>
#include <QImageReader>
#include <QPixmap>

namespace ZELPictures {

namespace {

QHash<QString, QIcon>& icons()
{
    static QHash<QString, QIcon> icons;
    return icons;
}

// Qt's own reader of PNG, asked directly: a search by name or content first loads the plugins for
// all other formats. Those are left to QIcon, whatever their names, as is the picture of twice the
// size for a fine screen.
QIcon loaded(const QString& path)
{
    if (!path.endsWith(QStringLiteral(".png")) || qApp->devicePixelRatio() > 1.0)
        return QIcon(path);
    QImageReader reader(path, "png");
    reader.setAutoDetectImageFormat(false);
    const QPixmap picture = QPixmap::fromImageReader(&reader);
    return picture.isNull() ? QIcon(path) : QIcon(picture);
}

} // namespace

QIcon icon(const QString& path)
{
    const auto known = icons().constFind(path);
    if (known != icons().constEnd())
        return *known;
    // Its resources may be registered later.
    if (path.isEmpty() || !QFileInfo::exists(path))
        return {};
    // Pixmaps must not outlive the application; another one may follow.
    if (icons().isEmpty())
        qAddPostRoutine([] { icons().clear(); });
    return *icons().insert(path, loaded(path));
}

} // namespace ZELPictures
