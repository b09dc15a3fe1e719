// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureNode.h"

#include <QMap>
#include <QStringList>

class FeatureDecider;
class ORXPropertyTreeItem;

// Reads one feature's value, range and usable entries from the camera into its item: one reader per
// tag. Belongs to one reading thread, which holds the feature mutex. A failed read leaves the item
// as it was, and so does a stop of the worker (StopRequest) in the middle of one.
class FeatureValueReader
{
public:
    explicit FeatureValueReader(FeatureDecider& decider);

    // `cameraId` goes to the views that follow the chunk setting.
    void UpdateGenICamItemValue(const FeatureNode& node, ORXPropertyTreeItem* item,
                                qint64 cameraId);

    // The usable entries of an enumeration.
    struct EntryLists
    {
        QStringList display; // each text once
        QStringList translated;
        QMap<qint64, QString> valueMap;
        QMap<QString, QString> nameMap;
    };
    // Adds the entry unless it is not implemented, not available or locked now.
    void addEnumerationEntry(const FeatureEnumEntry& entry, const QString& featureName,
                             EntryLists& lists);

    // Reads the value alone into the item, as the camera reports it, in the calling thread; true on
    // success. A failed read leaves the value as it was.
    static bool readDirectly(ORXPropertyTreeItem* item);
    // Whether features of the tag have a value to read.
    static bool hasReader(FeatureTag tag);

private:
    using Reader = bool (FeatureValueReader::*)(const FeatureNode&, ORXPropertyTreeItem*);
    static Reader readerOf(FeatureTag tag);

    bool readBoolean(const FeatureNode& node, ORXPropertyTreeItem* item);
    bool readInteger(const FeatureNode& node, ORXPropertyTreeItem* item);
    bool readFloat(const FeatureNode& node, ORXPropertyTreeItem* item);
    bool readEnumeration(const FeatureNode& node, ORXPropertyTreeItem* item);
    bool readString(const FeatureNode& node, ORXPropertyTreeItem* item);

    FeatureDecider& m_decider; // Not owned.
};
