// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureNodeMap.h"

#include <QStringList>
#include <QVector>

// Features that share their selectors.
struct FeatureFileGroup
{
    QStringList selectors; // a selector before what it selects; empty for plain features
    QStringList features;  // in the order of the description
};

// Which features of a description belong into a feature file, and in what order they can be written
// back. Any thread.
namespace FeatureFileOrder {

// The features among `names` that the description calls streamable and that have a value, in
// groups, each at the place of its first feature. A selector that is set on the way to others is in
// no list of features: the lines that set it and put it back say where it stands.
QVector<FeatureFileGroup> groups(const FeatureNodeMap& nodes, const QStringList& names);

// The selectors on which a feature's value depends, a selector before what it selects.
class Selectors
{
public:
    explicit Selectors(const FeatureNodeMap& nodes);

    QStringList of(const QString& feature) const;
    bool isSelector(const QString& name) const { return m_selectors.contains(name); }
    // What a selector selects, directly and through others.
    QStringList selectedBy(const QString& selector) const;
    // All selectors and all that they select.
    QStringList allConcerned() const;

private:
    QHash<QString, QStringList> m_selectedBy; // feature -> selectors, in the description's order
    QHash<QString, QStringList> m_selectors;  // selector -> features
};

} // namespace FeatureFileOrder
