// SPDX-License-Identifier: Apache-2.0
#include "styledctl/private/ZELPictures.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QHash>

namespace ZELPictures {

namespace {

QHash<QString, QIcon>& icons()
{
    static QHash<QString, QIcon> icons;
    return icons;
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
    return *icons().insert(path, QIcon(path));
}

} // namespace ZELPictures
