// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

class ORXPropertyTreeItem;

// A view of items. Registered with items, not owned by them; register and remove on the GUI thread.
//
// The operations are called on the thread that changes the item. On a reading thread they are
// called under the item state lock and must do no more than hand it on to the GUI thread; after
// removeView() has returned they are not called for that item any more.
class IORXFeatureNotify
{
public:
    virtual ~IORXFeatureNotify() = default;

    virtual void itemVisibleChanged(qint64 cameraId, ORXPropertyTreeItem* item, bool visible);
    virtual void itemExpanded(qint64 cameraId, ORXPropertyTreeItem* item, bool expanded);
    // `column`: -1 after a read, 1 to refresh the cell only, 2 after a write of the user.
    virtual void itemValueChanged(qint64 cameraId, ORXPropertyTreeItem* item, int column,
                                  bool needRecreateEditor);
    virtual void itemSpecialInfoChanged(qint64 cameraId, ORXPropertyTreeItem* item, int info);
};
