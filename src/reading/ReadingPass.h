// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "reading/FeaturesUpdateType.h"

#include <QFlags>
#include <QSet>
#include <QString>

// One pass of a reading thread: what it covers, and what it refreshes of each item.
struct ReadingPass
{
    // What the update of one item refreshes.
    enum UpdateStatus {
        UpdateValueAll = 1,     // the value, whether or not the item is visible
        UpdateValueVisible = 2, // the value of a visible item
        UpdateVisibility = 4,   // access mode, implemented state, visibility and user level
        UpdateAttribute = 8     // read-only state, representation, description texts
    };
    Q_DECLARE_FLAGS(UpdateFlags, UpdateStatus)

    _FEATURES_UPDATE_TYPE_ type = FEATURES_UPDATE_ALL;
    UpdateFlags flags;
    // Of a pass over the whole tree: only these features; empty means all.
    QSet<QString> only;
    // Of a pass over the whole tree: the features that it has begun. Guarded by the worker's lock.
    QSet<QString> begun;
    // Of a pass over names: whether it takes further names. Guarded by the worker's lock.
    bool takesNames = true;

    // Whether a pass with these flags leaves nothing to do for one with `wanted`.
    bool covers(UpdateFlags wanted) const
    {
        if (flags.testFlag(UpdateValueAll))
            wanted.setFlag(UpdateValueVisible, false);
        return (wanted & ~flags) == 0;
    }
};
Q_DECLARE_OPERATORS_FOR_FLAGS(ReadingPass::UpdateFlags)
