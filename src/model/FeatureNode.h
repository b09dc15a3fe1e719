// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureTag.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>

// One entry of an enumeration, as the description gives it.
struct FeatureEnumEntry
{
    QString name;
    QString displayName; // may be empty
    QString valueText;
    qint64 value = 0;
    QString nameSpace;
    QString visibility; // empty when not given
    QString pIsImplemented;
    QString pIsAvailable;
    QString pIsLocked;
};
Q_DECLARE_TYPEINFO(FeatureEnumEntry, Q_MOVABLE_TYPE);

// A child element of a node that the index follows, in the order of the description.
struct FeatureReference
{
    enum Kind {
        PValue,
        PVariable,
        PInvalidator,
        PMin,
        PMax,
        PInc,
        PIsLocked,
        PIsImplemented,
        PIsAvailable,
        PSelected,
        PFeature,
        PollingTime, // text: milliseconds
        Cachable     // text: "NoCache", ...
    };

    Kind kind;
    QString text; // trimmed: the referenced name, or the element's text
};
Q_DECLARE_TYPEINFO(FeatureReference, Q_MOVABLE_TYPE);

// What the library needs of one node of the description. Made once when the description is loaded
// and never changed afterwards, so that every thread reads it freely.
struct FeatureNode
{
    QString name;
    QString tagName;
    FeatureTag tag = FeatureTag::Other;
    QString nameSpace;
    QString displayName;
    QString description;
    QString visibility; // empty when not given
    QString streamable; // empty when not given
    QString representation;
    QString unit;       // of the value, as the description has it
    QString accessMode; // first of "ImposedAccessMode" and "AccessMode"
    QString pIsImplemented;
    QString pIsAvailable;
    QString pIsLocked;
    QVector<FeatureReference> references;
    QVector<FeatureEnumEntry> entries;
    // Texts of the "pInvalidator" siblings before a "StructEntry", nearest first.
    QStringList precedingInvalidators;

    // Texts of all references of a kind, in order.
    QStringList texts(FeatureReference::Kind kind) const;
    // The first of them; null when there is none.
    QString firstText(FeatureReference::Kind kind) const;
};

using FeatureNodePtr = std::shared_ptr<const FeatureNode>;
