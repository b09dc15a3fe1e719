// SPDX-License-Identifier: Apache-2.0
#pragma once

class QString;
class QVariant;

// What the item model needs of a page: the write of an edited value. Implemented by the pages; GUI
// thread.
class IFeatureValueWriter
{
public:
    virtual ~IFeatureValueWriter() = default;

    // Writes `value` to the feature; true on success. May run pending events, in which the camera
    // may go.
    virtual bool setFeatureValue(const QString& tagName, const QString& nodeName,
                                 const QVariant& value) = 0;
    // Called after a successful write, when the item has taken the value.
    virtual void afterSetFeatureValue(const QString& nodeName) = 0;
};
