// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureDeciders.h"

#include <QCoreApplication>

#include <functional>

class ORXPropertyTreeItem;

// Says why a feature cannot be written, and which features decide that: "Locked by Exposure Auto
// (Continuous)". The cause is what the last pass found, the values are those that were read last;
// nothing is asked of the host. Texts are in the interface language. GUI thread.
class ReadOnlyReason
{
    Q_DECLARE_TR_FUNCTIONS(ReadOnlyReason)
public:
    // The item of a feature; null when there is none.
    using ItemOf = std::function<const ORXPropertyTreeItem*(const QString& name)>;
    explicit ReadOnlyReason(const ItemOf& itemOf);

    void setNodes(const FeatureNodeMap& nodes) { m_deciders = FeatureDeciders(nodes); }

    // Empty when the feature can be written, was not read yet, or is no editor's.
    QString text(const ORXPropertyTreeItem& item) const;
    // The same with a link to each decider that has a shown row.
    QString html(const ORXPropertyTreeItem& item) const;
    // The features that the texts name.
    QStringList decidersOf(const ORXPropertyTreeItem& item) const;
    // The feature that a link of html() leads to.
    static QString featureOf(const QString& href);

private:
    struct Named
    {
        const ORXPropertyTreeItem* item; // Not owned.
        bool showsValue;
    };
    using Write = QString (*)(const Named& decider);

    static bool isTold(const ORXPropertyTreeItem& item);
    FeatureDeciders::Row rowOf(const QString& name) const;
    QVector<Named> named(const ORXPropertyTreeItem& item) const;
    QString sentence(const ORXPropertyTreeItem& item, Write write) const;

    const ItemOf m_itemOf;
    FeatureDeciders m_deciders;
};
