// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "userset/UserSetTable.h"

#include <QPointer>

class IORXFeatureNotify;
class ORXFeatureTree;
class ORXPropertyTreeItem;

// The camera's features of the user sets, as the items of its whole tree: read as the passes left
// them, written through the tree. Everything says "not there" once the tree has gone. Owned by the
// dialog; GUI thread.
class UserSetFeatures
{
public:
    // A camera without a tree has none of the features.
    explicit UserSetFeatures(qint64 cameraId);

    // Whether the camera has all that the dialog needs.
    bool isComplete() const;
    ORXFeatureTree* tree() const;
    qint64 cameraID() const { return m_lCameraID; }
    // Null when the camera lacks it or its items have gone.
    ORXPropertyTreeItem* item(UserSetTable::Feature feature) const;
    // -1 without one.
    int number(UserSetTable::Feature feature) const;
    // Writes unless the item has the value already. The host may release the library meanwhile.
    bool write(UserSetTable::Feature feature, int value);
    bool execute(UserSetTable::Feature feature);

    void registerView(IORXFeatureNotify* view);
    void removeView(IORXFeatureNotify* view);

private:
    const qint64 m_lCameraID;
    QPointer<ORXFeatureTree> m_pTree;                                    // Not owned.
    std::array<ORXPropertyTreeItem*, UserSetTable::kFeatures> m_items{}; // Not owned.
};
