// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureDocInputs.h"
#include "model/FeatureNode.h"

#include <QString>

class CTreeItemValue;
class FeatureDecider;
class ORXPropertyTreeItem;

// Builds the description panel's HTML of a feature: name, explanation, attributes, value range and
// usable entries. Belongs to one reading thread, so that pressing a row only inserts ready HTML.
class FeatureDocText
{
public:
    explicit FeatureDocText(FeatureDecider& decider);

    // Renews both languages' texts of the item when one of their inputs changed. False, and nothing
    // renewed, when the calling worker was stopped meanwhile.
    bool update(const FeatureNode& node, ORXPropertyTreeItem* item);

    // Name and explanation alone, for a feature that was not read yet: without a call to the host.
    static QString GetFeatureTitleText(const CTreeItemValue& value, const QString& language);
    // `language` is "ENG" or "CH".
    QString GetFeatureDocText(const FeatureNode& node, const QString& streamable,
                              ORXPropertyTreeItem* item, const QString& language);
    QString GetFeatureValueInfo(const FeatureNode& node, ORXPropertyTreeItem* item,
                                const QString& language);

private:
    FeatureDocInputs inputsOf(const FeatureNode& node, ORXPropertyTreeItem* item);

    FeatureDecider& m_decider; // Not owned.
};
