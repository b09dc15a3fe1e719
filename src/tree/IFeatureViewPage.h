// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/IFeatureValueWriter.h"

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
};
