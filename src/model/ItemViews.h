// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QSet>

#include <functional>

class IORXFeatureNotify;
class ORXPropertyTreeItem;

// The views of one item, and how they are called. Belongs to its item.
//
// | operation   | thread         | lock                                                       |
// |-------------|----------------|------------------------------------------------------------|
// | add, remove | GUI            | item state, inside                                         |
// | call        | GUI            | none while a view is called                                |
// | call        | reading        | item state, while the views are called: neither they nor   |
// |             |                | the item can go in between                                 |
class ItemViews
{
public:
    using Call = std::function<void(IORXFeatureNotify* view, ORXPropertyTreeItem* item)>;

    void add(IORXFeatureNotify* view); // Not owned.
    void remove(IORXFeatureNotify* view);

    // Calls each view with `item`, to which these views belong; false when a view destroyed it.
    bool call(ORXPropertyTreeItem* item, const Call& tell) const;

private:
    QSet<IORXFeatureNotify*> m_views; // Not owned.
};
