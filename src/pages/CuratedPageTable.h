// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CTreeFloatItemValue.h"
#include "model/CTreeIntergerItemValue.h"
#include "model/FeatureTag.h"

#include <QMap>
#include <QString>
#include <QVector>

#include <variant>

// What a curated page shows, as a table: its groups, and in each group the features of the camera
// and page items, in order. Adding a feature to a page is one line here.
//
//     {"Custom_Example", QT_TRANSLATE_NOOP("ORXExample", "Example"), {
//         "Gain",
//         {"Custom_Steps", QT_TRANSLATE_NOOP("ORXExample", "Steps"), FeatureTag::Integer,
//          CTreeIntergerItemValue::Numbers{5, 1, 10, 1}, "Gain"},
//     }},

// Entries of a page item that is an enumeration: English texts, numbered from 0, and the number at
// the start.
struct CuratedEntries
{
    qint64 current = 0;
    QVector<const char*> texts;
};

// Value, and range where there is one, that a page item starts with. Nothing for commands and for
// items that the page fills by itself.
using CuratedValue = std::variant<std::monostate, bool, CTreeIntergerItemValue::Numbers,
                                  CTreeFloatItemValue::Numbers, CuratedEntries>;

// One line of a group. A name that begins with "Custom_" is a page item, made by the page; any
// other is the feature of that name, which is left out when the camera lacks it.
struct CuratedItem
{
    CuratedItem(const char* itemName) // implicit, for tables
        : name(itemName)
    {
    }
    CuratedItem(const char* itemName, const char* itemText, FeatureTag itemTag = FeatureTag::Other,
                const char* leader = nullptr)
        : name(itemName)
        , text(itemText)
        , tag(itemTag)
        , visibleWith(leader)
    {
    }
    CuratedItem(const char* itemName, const char* itemText, FeatureTag itemTag,
                const CuratedValue& start, const char* leader = nullptr)
        : name(itemName)
        , text(itemText)
        , tag(itemTag)
        , value(start)
        , visibleWith(leader)
    {
    }

    static bool isOwnName(const QString& name);
    bool isOwn() const { return isOwnName(QString::fromLatin1(name)); }

    const char* name;
    const char* text = nullptr; // English display text of a page item
    FeatureTag tag = FeatureTag::Other;
    CuratedValue value;
    // Item of the page whose visibility the page item follows; hidden while the camera lacks it.
    // Null: hidden until the page shows it.
    const char* visibleWith = nullptr;
};

struct CuratedGroup
{
    const char* name;
    const char* title; // English
    QVector<CuratedItem> items;
};

struct CuratedPageTable
{
    const char* context; // of the translations
    const char* title;   // English
    QVector<CuratedGroup> groups;

    // Node name to English text, of groups and page items.
    QMap<QString, QString> texts() const;
};
