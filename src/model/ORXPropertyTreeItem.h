// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureTag.h"
#include "model/ItemLinks.h"
#include "model/ItemViews.h"
#include "model/LiveItems.h"
#include "model/ReadOnlyCause.h"

#include <QString>

#include <memory>

class CTreeItemValue;

// What a special update of an item is about.
enum class NotifyViewSpecial : int {
    ChunkSelectionChanged = 0 // the chunk (or frame information) switch was read
};

// One row of a page: a feature, a category, or an entry that a page adds. The same item may hang in
// several pages; a second item can be tied to it as its mapping item and is kept in step.
//
// | operation                                         | thread         | lock               |
// |---------------------------------------------------|----------------|--------------------|
// | construction, destruction, tree operations,       | GUI            | item state, inside |
// | registerView, removeView, setMappingItem,         |                |                    |
// | setTagName, copy, search, group visibility        |                |                    |
// | setVisible, setWasRead, setExpanded, setReadOnly, | GUI or reading | item state, inside |
// | texts, endUpdateItem, notify...                   |                |                    |
// | accessors                                         | any            | item state, inside |
//
// On the GUI thread views are called without the lock; on a reading thread under it (see
// IORXFeatureNotify). An item owns its children in the whole tree and the value.
class ORXPropertyTreeItem : public ItemLinks<ORXPropertyTreeItem>
{
public:
    enum ITEM_TYEP {
        FavoriteItem = 0, // a favourite's copy under the favourites group
        FavoritesGroup = 1,
        FeatureItem = 2,
        CategoryItem = 3,
        CustomItem = 4 // made by a page; also the root of the whole tree
    };

    ORXPropertyTreeItem(ORXPropertyTreeItem* parent, ParentType type);
    ~ORXPropertyTreeItem();

    // False once the item was destroyed. For pointers that travelled through a queue.
    static bool isAlive(const ORXPropertyTreeItem* item) { return LiveItems::contains(item); }
    // How many items were destroyed so far: while it stands still, all that were alive still are.
    static quint64 destroyedCount() { return LiveItems::destroyedCount(); }

    bool visible() const; // of an item with children: whether any child is visible
    bool groupVisible() const { return locked(m_bGroupVisible); }
    bool searchMatch() const { return locked(m_bSearchMatch); }
    bool isExpanded() const { return locked(m_bExpanded); }
    bool isDefaultExpanded() const { return locked(m_bDefaultExpanded); }
    void setDefaultExpanded(bool expanded); // sets the current expansion, too
    bool readOnly() const { return locked(m_bReadOnly); }
    // Of the mapping item, too. A new cause is told to the views by the next endUpdateItem(), also
    // when nothing else has changed.
    void setReadOnly(bool readOnly, ReadOnlyCause cause = ReadOnlyCause::None);
    QString tagName() const { return locked(m_strTagName); }
    FeatureTag tag() const { return locked(m_tag); }
    // Changes the class of the value; names and texts survive, typed values start again.
    void setTagName(const QString& tagName);
    CTreeItemValue* value() const; // Owned by the item.
    ITEM_TYEP itemType() const { return locked(m_itemType); }
    void setItemType(ITEM_TYEP type);
    QString visibilityString() const { return locked(m_strVisibility); }
    void setVisibilityString(const QString& visibility);
    // False until the camera was asked for the value of a feature of the description; what is not
    // read has no value to show and no editor. Other items have their value from the start.
    bool wasRead() const { return locked(m_bWasRead); }
    bool isFeatureTreeItem() const
    {
        return locked(m_bIsFeatureTreeItem);
    } // stems from the description
    void setIsFeatureTreeItem(bool is);
    ORXPropertyTreeItem* mappingItem() const { return locked(m_pMappingItem); }
    void setMappingItem(ORXPropertyTreeItem* item); // both directions; null unties
    QString searchText() const { return locked(m_strSearchText); }
    QString getHighlightSerachText() const; // HTML; empty without a match

    ORXPropertyTreeItem* findChild(const QString& nodeName) const;
    // Items of the subtree that match a non-empty search text and are visible.
    int searchChildCount() const;

    // Each of these tells the views, with the camera's key.
    void setVisible(bool visible, qint64 cameraId);
    void setWasRead(bool read, qint64 cameraId); // of the mapping item, too
    void setGroupVisible(bool visible, qint64 cameraId);
    void setExpanded(bool expanded, qint64 cameraId);
    void setSearchText(const QString& text, qint64 cameraId);
    // The two halves of setSearchText, for a search over many items (ItemSearch): the first stores
    // and tells nobody, the second tells the views.
    struct SearchEffect
    {
        bool wasShown = false;
        bool shown = false;
    };
    SearchEffect applySearchText(const QString& text);
    void tellVisible(bool shown, qint64 cameraId);
    void notifyViewUpdate(qint64 cameraId, int column, bool needRecreateEditor);
    void notifiViewSpecialUpdate(NotifyViewSpecial info, qint64 cameraId);
    // Publishes what a read changed; returns false, and tells nobody, when nothing did.
    bool endUpdateItem(qint64 cameraId);
    // Views show the item's state now. When it is not the one that was published last, but an edit
    // or a read that is under way, the next endUpdateItem() tells all views, even if the camera
    // took the edit back.
    void noteShownState();

    void registerView(IORXFeatureNotify* view) { m_views.add(view); }
    void removeView(IORXFeatureNotify* view) { m_views.remove(view); }

    void copy(const ORXPropertyTreeItem* from);
    // Rich text of a name with the search text marked.
    QString toKeywordHtml(const QString& text) const;

private:
    template <typename T>
    static T locked(const T& field)
    {
        const ItemStateLock lock;
        return field;
    }
    QString searchedName() const;
    // Calls the views of the item and then those of the mapping item, after its value took over
    // this one's typed value if `copyValue`.
    void callAllViews(bool copyValue, const ItemViews::Call& call);
    void callMappingViews(bool copyValue, const ItemViews::Call& call);

    bool m_bVisible = true;
    bool m_bGroupVisible = true;
    bool m_bSearchMatch = true;
    bool m_bReadOnly = true;
    bool m_bWasRead = true;
    bool m_bDefaultExpanded = true;
    bool m_bExpanded = true;
    bool m_bIsFeatureTreeItem = true;
    bool m_bShownUnpublished = false; // since the last endUpdateItem()
    ITEM_TYEP m_itemType = CategoryItem;
    FeatureTag m_tag = FeatureTag::Other;
    QString m_strTagName;
    QString m_strVisibility = QStringLiteral("Beginner");
    std::unique_ptr<CTreeItemValue> m_pValue;
    ORXPropertyTreeItem* m_pMappingItem = nullptr; // Not owned.
    ItemViews m_views;
    QString m_strSearchText;
};

// Every feature may be shown; kept as the one place where a product could hide some by name.
bool isCanVisible(const QString& nodeName);
// The interface language ("CH" or "ENG"), whatever the page.
QString getMatchLangue(ORXPropertyTreeItem::ParentType type);
