// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QModelIndex>
#include <QObject>
#include <QPixmap>
#include <QStyleOptionViewItem>

class ORXPropertyTreeDelegate;
class ORXPropertyTreeItem;
class ORXPropertyTreeModel;
class QDropEvent;
class QMimeData;
class QTreeView;

// How the user moves favourites in a view: by dragging a row, or by a key. Belongs to the view; GUI
// thread.
class FavoriteMoves : public QObject
{
    Q_OBJECT
public:
    // The view shows the model with the delegate. None of them is owned.
    FavoriteMoves(QTreeView* view, ORXPropertyTreeModel* model, ORXPropertyTreeDelegate* delegate);

    // Whether what is dragged is a favourite, of whichever view.
    static bool carriesFavorite(const QMimeData* mime);
    // Shows where it would land; false when it may not land under the pointer.
    bool showTarget(const QDropEvent* event);
    void clearTarget();
    // Moves the favourite to where it was dropped; false when it may not land there.
    bool drop(const QDropEvent* event);
    // Drags the row of the cell, if it is a favourite's. Returns when the drag has ended, with
    // events running meanwhile. `option` is how the view paints its cells.
    void drag(const QModelIndex& cell, const QStyleOptionViewItem& option);
    // What dragging does, by one shown row; false when the row is no favourite.
    bool moveByOne(const QModelIndex& row, bool up);

signals:
    // The favourite is to stand before `target`, or at the end without one.
    void SigFavoriteMoved(ORXPropertyTreeItem* moved, ORXPropertyTreeItem* target);

private:
    bool canLandOn(const QModelIndex& target, const QMimeData* mime) const;
    ORXPropertyTreeItem* lastFavorite() const;
    QModelIndex shownSibling(const QModelIndex& row, int step) const;
    QPixmap picture(const QModelIndex& cell, const QStyleOptionViewItem& option) const;

    QTreeView* m_view;                   // Not owned.
    ORXPropertyTreeModel* m_model;       // Not owned.
    ORXPropertyTreeDelegate* m_delegate; // Not owned.
    bool m_bTargetShown = false;
};
