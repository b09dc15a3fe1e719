// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QList>
#include <QPair>
#include <QString>

// A favourite feature: its name and the display name it had when it was added.
using FavoriteFeature = QPair<QString, QString>;

// The file that keeps the user's favourites from one run to the next. GUI thread.
namespace FavoritesFile {

// Path of the file, under the user's temporary directory.
QString path();

// The favourites of the file, in its order, duplicates kept. Entries without a name or display name
// are skipped. Failures are logged and give an empty list; a missing folder is created.
QList<FavoriteFeature> load();

// Replaces the file, whole or not at all. Writes nothing when the folder is missing.
void save(const QList<FavoriteFeature>& favorites);

} // namespace FavoritesFile
