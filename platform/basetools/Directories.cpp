// SPDX-License-Identifier: Apache-2.0
#include "basetools/ORXInterface.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <unistd.h>

namespace {

// "/OBFeatureTree" below the standard location, created. An account without a writable home
// (embedded service users) gets a folder of its own under the system's temporary directory.
QString ensuredDirectory(QStandardPaths::StandardLocation location)
{
    const QString base = QStandardPaths::writableLocation(location);
    if (!base.isEmpty()) {
        QString path = base + QStringLiteral("/OBFeatureTree");
        if (QDir().mkpath(path) && QFileInfo(path).isWritable())
            return path;
    }
    QString fallback = QStringLiteral("%1/OBFeatureTree-%2").arg(QDir::tempPath()).arg(::getuid());
    if (!QFileInfo::exists(fallback)) {
        QDir().mkpath(fallback);
        QFile::setPermissions(fallback, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    return fallback;
}

} // namespace

QString ORXInterface::userDataPath()
{
    return ensuredDirectory(QStandardPaths::GenericDataLocation);
}

QString ORXInterface::systemTemp()
{
    return ensuredDirectory(QStandardPaths::GenericCacheLocation);
}
