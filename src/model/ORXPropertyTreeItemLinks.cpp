// SPDX-License-Identifier: Apache-2.0
// The tree operations of ORXPropertyTreeItem: parents and children.
#include "model/CTreeItemValue.h"
#include "model/ItemStateLock.h"
#include "model/ORXPropertyTreeItem.h"

ORXPropertyTreeItem* ORXPropertyTreeItem::parentLocked(ParentType type) const
{
    if (type < kParentTypes)
        return m_parents[type];
    for (ORXPropertyTreeItem* parent : m_parents) {
        if (parent)
            return parent;
    }
    return nullptr;
}

ORXPropertyTreeItem* ORXPropertyTreeItem::parent(ParentType type) const
{
    const ItemStateLock lock;
    return parentLocked(type);
}

void ORXPropertyTreeItem::setParent(ORXPropertyTreeItem* parent, ParentType type)
{
    const ItemStateLock lock;
    if (type >= kParentTypes || m_parents[type] == parent)
        return;
    if (m_parents[type])
        m_parents[type]->m_children.removeOne(this);
    m_parents[type] = parent;
    if (parent)
        parent->addChild(this);
}

ORXPropertyTreeItem* ORXPropertyTreeItem::child(int index) const
{
    const ItemStateLock lock;
    return m_children.value(index, nullptr);
}

int ORXPropertyTreeItem::childCount() const
{
    const ItemStateLock lock;
    return m_children.size();
}

QVector<ORXPropertyTreeItem*> ORXPropertyTreeItem::children() const
{
    const ItemStateLock lock;
    return m_children;
}

int ORXPropertyTreeItem::indexInParent(ParentType type) const
{
    const ItemStateLock lock;
    const ORXPropertyTreeItem* above = parentLocked(type);
    if (!above)
        return -1;
    // Rows rarely move, so the last known position is tried before the list is searched.
    int& hint = m_rowHints[type < kParentTypes ? type : 0];
    if (above->m_children.value(hint, nullptr) != this)
        hint = above->m_children.indexOf(const_cast<ORXPropertyTreeItem*>(this));
    return hint;
}

void ORXPropertyTreeItem::addChild(ORXPropertyTreeItem* item)
{
    const ItemStateLock lock;
    if (item && !m_children.contains(item))
        m_children.append(item);
}

void ORXPropertyTreeItem::insertChild(int index, ORXPropertyTreeItem* item)
{
    const ItemStateLock lock;
    if (item && !m_children.contains(item))
        m_children.insert(qBound(0, index, m_children.size()), item);
}

void ORXPropertyTreeItem::removeChild(ORXPropertyTreeItem* item)
{
    const ItemStateLock lock;
    m_children.removeOne(item);
}

void ORXPropertyTreeItem::moveChild(ORXPropertyTreeItem* item, int index)
{
    const ItemStateLock lock;
    const int from = m_children.indexOf(item);
    if (from >= 0)
        m_children.move(from, qBound(0, index, m_children.size() - 1));
}

void ORXPropertyTreeItem::swapChild(ORXPropertyTreeItem* a, ORXPropertyTreeItem* b)
{
    const ItemStateLock lock;
    if (!a || !b)
        return;
    const int first = m_children.indexOf(a);
    const int second = m_children.indexOf(b);
    if (first >= 0 && second >= 0)
        std::swap(m_children[first], m_children[second]);
}

ORXPropertyTreeItem* ORXPropertyTreeItem::findChild(const QString& nodeName) const
{
    const ItemStateLock lock;
    for (ORXPropertyTreeItem* child : m_children) {
        if (child->m_pValue && child->m_pValue->nodeName(0) == nodeName)
            return child;
    }
    return nullptr;
}

void ORXPropertyTreeItem::clear()
{
    const ItemStateLock lock;
    QVector<ORXPropertyTreeItem*> children;
    children.swap(m_children);
    qDeleteAll(children);
}
