// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QImage>
#include <QString>

// Pictures of the program's own windows, also off screen. GUI thread.
namespace WindowPicture {

// All visible top-level windows as they lie above each other, the largest one at the bottom; null
// when none is visible.
QImage grab();

// Saves grab() in the format that the file's suffix names. False with a reason in *error.
bool save(const QString& file, QString* error);

} // namespace WindowPicture
