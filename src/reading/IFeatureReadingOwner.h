// SPDX-License-Identifier: Apache-2.0
#pragma once

class FeatureMutex;
class QString;

// What a reading thread needs of the tree it reads for. Implemented by the tree; called on reading
// threads.
class IFeatureReadingOwner
{
public:
    virtual ~IFeatureReadingOwner() = default;

    // Held during the update of each item.
    virtual FeatureMutex* GetFeatureMutex() = 0;
    // A polled feature has changed. Only emits a signal.
    virtual void EmitPollingFeatureChanged(const QString& name) = 0;
};
