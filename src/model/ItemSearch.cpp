// SPDX-License-Identifier: Apache-2.0
#include "model/ItemSearch.h"

#include "model/ItemStateLock.h"
#include "model/ORXPropertyTreeItem.h"

#include <QSet>

namespace ItemSearch {

namespace {

void collect(ORXPropertyTreeItem* item, QVector<ORXPropertyTreeItem*>& items,
             QSet<ORXPropertyTreeItem*>& seen)
{
    if (seen.contains(item))
        return;
    seen.insert(item);
    const QVector<ORXPropertyTreeItem*> children = item->children();
    for (ORXPropertyTreeItem* child : children)
        collect(child, items, seen);
    items.append(item);
}

void tell(const QVector<ORXPropertyTreeItem*>& items, bool shown, qint64 cameraId)
{
    const quint64 destroyed = ORXPropertyTreeItem::destroyedCount();
    for (ORXPropertyTreeItem* item : items) {
        if (ORXPropertyTreeItem::destroyedCount() == destroyed ||
            ORXPropertyTreeItem::isAlive(item))
            item->tellVisible(shown, cameraId);
    }
}

} // namespace

void apply(const QVector<ORXPropertyTreeItem*>& roots, const QString& text, qint64 cameraId)
{
    QVector<ORXPropertyTreeItem*> items;
    QSet<ORXPropertyTreeItem*> seen;
    for (ORXPropertyTreeItem* root : roots)
        collect(root, items, seen);
    // Rows that come or go are told first. Those that stay only repaint, for which a view has to
    // know its rows' places: told in turn, it would lay itself out anew for each of them. Rows that
    // are and stay away, nearly all of them in groups that are not shown, change nothing.
    QVector<ORXPropertyTreeItem*> come;
    QVector<ORXPropertyTreeItem*> go;
    QVector<ORXPropertyTreeItem*> stay;
    {
        const ItemStateLock lock;
        for (ORXPropertyTreeItem* item : qAsConst(items)) {
            const ORXPropertyTreeItem::SearchEffect effect = item->applySearchText(text);
            if (effect.shown)
                (effect.wasShown ? stay : come).append(item);
            else if (effect.wasShown)
                go.append(item);
        }
    }
    tell(come, true, cameraId);
    tell(go, false, cameraId);
    tell(stay, true, cameraId);
}

} // namespace ItemSearch
