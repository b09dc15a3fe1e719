// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureNodeMap.h"
#include "model/ReadOnlyCause.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

// Says from the description which features decide that another one cannot be written: what
// "pIsLocked" and "pIsAvailable" lead to through formulas, converters and registers. A register is
// spoken for by the features that take their value from it. Walks take linear time and survive
// circles and nodes that do not exist. GUI thread.
class FeatureDeciders
{
public:
    enum class Row { None, Hidden, Shown };
    // The row that the user has of a feature.
    using RowOf = std::function<Row(const QString& name)>;

    struct Decider
    {
        QString name;
        bool isValueItself = false; // its value decides, not a formula with it
    };

    explicit FeatureDeciders(const FeatureNodeMap& nodes);

    // The features with a row that decide, in the order of the description, each once, and without
    // the feature itself. One without a shown row stands only for what has none below it.
    QVector<Decider> of(const QString& feature, ReadOnlyCause cause, const RowOf& rowOf) const;
    // Whether the description has a road by which the feature's value could be written.
    bool canEverBeWritten(const QString& feature) const;

private:
    class Walk;

    // What decides by the description: names of nodes.
    QStringList startsOf(const QString& feature, ReadOnlyCause cause) const;
    // The nodes that a value comes from, one after the other.
    QVector<FeatureNodePtr> valueRoad(const QString& feature) const;

    FeatureNodeMap m_nodes;
    QHash<QString, QStringList> m_holders; // node -> features that take their value from it
};
