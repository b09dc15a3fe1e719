// SPDX-License-Identifier: Apache-2.0
#pragma once

class ORXPropertyTreeItem;
class QString;

// The features of a camera's whole tree by name, for whoever borrows or copies them. Implemented by
// the tree; GUI thread.
class IFeatureItems
{
public:
    virtual ~IFeatureItems() = default;

    // Null when the camera has no such feature.
    virtual ORXPropertyTreeItem* propertyItemByName(const QString& name) const = 0;
};
