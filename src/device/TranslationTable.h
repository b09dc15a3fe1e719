// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/CORXPropertyTransItem.h"

#include <QMap>
#include <QString>

class QDomDocument;
class QDomElement;

// Reading of translation tables (feature name to its texts in two languages). Tables own their
// items; an item that is replaced lives on, since earlier readers may still hold it.
namespace TranslationTable {

using Items = QMap<QString, CORXPropertyTransItem*>;

// Adds every "Feature" child of the document's root; an item of the same name is replaced.
void addDocument(const QDomDocument& document, Items& table);
// Adds one "Feature" element.
void addFeature(const QDomElement& feature, Items& table);

} // namespace TranslationTable
