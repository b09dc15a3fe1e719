// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QVector>

class ORXPropertyTreeItem;

// A search over all items of a camera's pages. GUI thread.
namespace ItemSearch {

// Gives every item below the roots, and the roots, the text to search, and tells the views of those
// that are or were shown. An item that hangs in several pages is told once. Empty text ends the
// search.
void apply(const QVector<ORXPropertyTreeItem*>& roots, const QString& text, qint64 cameraId);

} // namespace ItemSearch
