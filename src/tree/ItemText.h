// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QVariant>

class ORXPropertyTreeItem;

// Names and values of items as text, in the interface language where they have one. GUI thread.
namespace ItemText {

QString name(const ORXPropertyTreeItem& item);
// As the value reads in the item's row: a number in the feature's own form, an entry by its name.
QString value(const ORXPropertyTreeItem& item, const QVariant& value);
// The value that the row shows; empty until it was read.
QString shownValue(const ORXPropertyTreeItem& item);
// "ExposureTime = 10000 us"; one line for each shown row of a category.
QString lines(const ORXPropertyTreeItem& item);

} // namespace ItemText
