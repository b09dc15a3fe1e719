// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/TranslationTable.h"
#include "device/XmlDocument.h"

#include <QHash>
#include <QString>

// Second-language texts of the features: the host's table and the library's own. Any thread; a lock
// of its own, inside, since reading threads look texts up while a host may give another table.
class FeatureTexts
{
public:
    FeatureTexts() = delete;

    // Which tables are asked: the library's only where the host's does not know the feature, or the
    // library's alone.
    enum Tables { HostFirst, OwnOnly };

    // Adds to the host's table; a text that does not parse is logged as critical.
    static void addHostXml(const char* xml);
    // Begins to read the library's own table (UTF-8) in the loading lane, unless it was read;
    // nothing comes from a file that cannot be used. Its texts are taken out as they are asked for:
    // a camera has a part of them. Who asks first waits for the table, a few milliseconds.
    static void beginOwn(const QString& path);

    // Empty where there is none.
    static QString displayName(const QString& feature, Tables tables);
    static QString description(const QString& feature, Tables tables);
    static QString entry(const QString& feature, const QString& entry, Tables tables);

private:
    // With the tables' mutex held: the text that one of the two takes out of the table that knows
    // the feature; the library's own element may be null.
    template <typename OfHost, typename OfOwn>
    static QString find(const QString& feature, Tables tables, const OfHost& ofHost,
                        const OfOwn& ofOwn);
    static pugi::xml_node ownElement(const QString& feature);

    static TranslationTable::Items s_mapPropertyTransItems;        // the host's
    static QHash<QString, pugi::xml_node> s_AllPropertyTransItems; // the library's own
};
