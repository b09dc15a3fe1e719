// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureDocInputs.h"
#include "model/FeatureNode.h"

#include <QString>

class CTreeItemValue;
class FeatureDecider;
class ORXPropertyTreeItem;

// Takes together what the description panel says of a feature: name, explanation, attributes, value
// range and usable entries. Belongs to one reading thread, since the camera is asked which entries
// it has; the HTML is written of that when a row is pressed (FeatureDocHtml).
class FeatureDocText
{
public:
    explicit FeatureDocText(FeatureDecider& decider);

    // Renews both languages' texts of the item. False, and nothing renewed, when the calling worker
    // was stopped meanwhile.
    bool update(const FeatureNodePtr& node, ORXPropertyTreeItem* item);

    // Name and explanation alone, for a feature that was not read yet: without a call to the host.
    static QString GetFeatureTitleText(const CTreeItemValue& value, const QString& language);
    // `language` is "ENG" or "CH".
    QString GetFeatureDocText(const FeatureNodePtr& node, const QString& streamable,
                              const ORXPropertyTreeItem* item, const QString& language);
    QString GetFeatureValueInfo(const FeatureNodePtr& node, const ORXPropertyTreeItem* item,
                                const QString& language);

private:
    FeatureDocInputs inputsOf(const FeatureNodePtr& node, const QString& streamable,
                              const ORXPropertyTreeItem* item);

    FeatureDecider& m_decider; // Not owned.
};
