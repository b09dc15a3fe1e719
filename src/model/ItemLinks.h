// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ItemStateLock.h"

#include <QVector>

#include <array>
#include <utility>

// The pages that an item may hang in.
class ItemPages
{
public:
    // Which page a parent link belongs to.
    enum ParentType {
        FeatureTreePage = 0,
        CommonPage = 1,
        TriggerPage = 2,
        ImageProcessingPage = 3,
        AnyParent = 5 // query only: the whole tree's parent, else the one of the lowest page
    };

protected:
    static constexpr int kParentTypes = 5;
};

// The links of an item: one parent for each page that it hangs in, and its children, which it owns
// but for those that a page borrowed. `Item` derives from it. Tree operations are for the GUI
// thread, queries for any; each takes the item state lock for its own length.
template <typename Item>
class ItemLinks : public ItemPages
{
public:
    ItemLinks(const ItemLinks&) = delete;
    ItemLinks& operator=(const ItemLinks&) = delete;

    Item* parent(ParentType type) const
    {
        const ItemStateLock lock;
        if (type < kParentTypes)
            return m_parents[type];
        for (Item* parent : m_parents) {
            if (parent)
                return parent;
        }
        return nullptr;
    }

    void setParent(Item* parent, ParentType type)
    {
        const ItemStateLock lock;
        if (type >= kParentTypes || m_parents[type] == parent)
            return;
        if (m_parents[type])
            m_parents[type]->m_children.removeOne(self());
        m_parents[type] = parent;
        if (parent)
            parent->addChild(self());
    }

    Item* child(int index) const
    {
        const ItemStateLock lock;
        return m_children.value(index, nullptr);
    }

    int childCount() const
    {
        const ItemStateLock lock;
        return int(m_children.size());
    }

    QVector<Item*> children() const
    {
        const ItemStateLock lock;
        return m_children;
    }

    int indexInParent(ParentType type) const
    {
        const ItemStateLock lock;
        const Item* above = parent(type);
        if (!above)
            return -1;
        // Rows rarely move, so the last known position is tried before the list is searched.
        int& hint = m_rowHints[type < kParentTypes ? type : 0];
        if (above->m_children.value(hint, nullptr) != this)
            hint = int(above->m_children.indexOf(const_cast<ItemLinks*>(this)->self()));
        return hint;
    }

    void addChild(Item* item)
    {
        const ItemStateLock lock;
        if (item && !m_children.contains(item))
            m_children.append(item);
    }

    void insertChild(int index, Item* item)
    {
        const ItemStateLock lock;
        if (item && !m_children.contains(item))
            m_children.insert(qBound(0, index, m_children.size()), item);
    }

    void removeChild(Item* item)
    {
        const ItemStateLock lock;
        m_children.removeOne(item);
    }

    // To that index among the children.
    void moveChild(Item* item, int index)
    {
        const ItemStateLock lock;
        const int from = int(m_children.indexOf(item));
        if (from >= 0)
            m_children.move(from, qBound(0, index, m_children.size() - 1));
    }

    void swapChild(Item* a, Item* b)
    {
        const ItemStateLock lock;
        if (!a || !b)
            return;
        const int first = int(m_children.indexOf(a));
        const int second = int(m_children.indexOf(b));
        if (first >= 0 && second >= 0)
            std::swap(m_children[first], m_children[second]);
    }

    // Destroys every child.
    void clear()
    {
        const ItemStateLock lock;
        QVector<Item*> children;
        children.swap(m_children);
        qDeleteAll(children);
    }

protected:
    ItemLinks() = default;
    ~ItemLinks() = default;

    // With the item state lock held: neither copied nor counted up.
    const QVector<Item*>& lockedChildren() const { return m_children; }

    // Of a new item: becomes the last child without a search for it.
    void joinNew(Item* parent, ParentType type)
    {
        const ItemStateLock lock;
        if (!parent || type >= kParentTypes)
            return;
        m_parents[type] = parent;
        m_rowHints[type] = int(parent->m_children.size());
        parent->m_children.append(self());
    }

    // A page may have borrowed the item; its list must not keep a pointer to it.
    void leaveParents()
    {
        const ItemStateLock lock;
        for (Item*& parent : m_parents) {
            if (parent)
                parent->m_children.removeOne(self());
            parent = nullptr;
        }
    }

private:
    Item* self() { return static_cast<Item*>(this); }

    QVector<Item*> m_children;                   // Owned, but for borrowed children of pages.
    std::array<Item*, kParentTypes> m_parents{}; // Not owned.
    mutable std::array<int, kParentTypes> m_rowHints{};
};
