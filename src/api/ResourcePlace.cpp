// SPDX-License-Identifier: Apache-2.0
#include "api/ResourcePlace.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <dlfcn.h>

namespace ResourcePlace {

namespace {

const QLatin1String kFolder("FeatureTreeResource");

QString libraryDirectory()
{
    // Any object of the library tells which file it came from.
    static const char here = 0;
    Dl_info info = {};
    if (dladdr(&here, &info) == 0 || !info.dli_fname)
        return {};
    return QFileInfo(QFile::decodeName(info.dli_fname)).canonicalPath();
}

} // namespace

QString directory()
{
    const QString program = QCoreApplication::applicationDirPath();
    const QString library = libraryDirectory();
    for (const QString& place :
         {program, library, library + QStringLiteral("/" OBFT_RESOURCES_FROM_LIBRARY)}) {
        if (!place.isEmpty() && QDir(place).exists(kFolder))
            return QDir::cleanPath(place);
    }
    return program;
}

} // namespace ResourcePlace
