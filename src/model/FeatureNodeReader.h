// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/XmlDocument.h"
#include "model/FeatureNode.h"

#include <string_view>
#include <unordered_map>

// Takes the records of nodes out of one document, which outlives it. A text that occurs again, as
// names and keywords do, is kept once, which spares most of the memory and of the time.
class FeatureNodeReader
{
public:
    FeatureNodePtr read(pugi::xml_node element);

private:
    QString kept(std::string_view utf8);
    QString keptText(pugi::xml_node element);
    QString keptAttribute(pugi::xml_node element, const char* name);
    FeatureEnumEntry readEntry(pugi::xml_node element);
    QStringList invalidatorsBefore(pugi::xml_node element);
    void readChild(pugi::xml_node child, FeatureNode& node);

    std::unordered_map<std::string_view, QString> m_texts; // by their bytes in the document
};
