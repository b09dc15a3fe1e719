// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/CORXPropertyTransItem.h"
#include "device/XmlDocument.h"

#include <QMap>
#include <QString>

#include <memory>

// Reading of translation tables (feature name to its texts in two languages). Tables share their
// items with whoever copies them; an item that is replaced goes with its last table.
namespace TranslationTable {

using Items = QMap<QString, std::shared_ptr<const CORXPropertyTransItem>>;

// Adds every "Feature" child of the document's root; an item of the same name is replaced.
void addDocument(const XmlDocument& document, Items& table);
// Adds one "Feature" element.
void addFeature(pugi::xml_node feature, Items& table);

} // namespace TranslationTable
