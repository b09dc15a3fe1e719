// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QString>

// Whole files. The folder is made; false when not all was written.
bool storeFile(const QString& path, const QByteArray& content);
// "unreadable" for a file that cannot be read.
QByteArray bytesOf(const QString& path);
