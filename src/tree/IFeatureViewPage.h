// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/IFeatureValueWriter.h"

#include <QString>

class ORXPropertyTreeItem;

// What a tree view needs of its page: the writes of its model, and someone to tell of changes.
// Implemented by the pages; GUI thread.
class IFeatureViewPage : public IFeatureValueWriter
{
public:
    virtual void itemValueChanged(ORXPropertyTreeItem* item) = 0;
    virtual void itemVisibleStateChanged(ORXPropertyTreeItem* item) = 0;
    virtual void itemExpandStateChanged(ORXPropertyTreeItem* item, bool expanded) = 0;
    virtual void itemSpecialInfoChanged(ORXPropertyTreeItem* item, int info) = 0;
    // Why the item's value cannot be edited, in the interface language; empty when it can, or when
    // nobody knows.
    virtual QString readOnlyReason(const ORXPropertyTreeItem& item) const = 0;
};
