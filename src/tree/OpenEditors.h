// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ORXPropertyTreeItem.h"

#include <QModelIndex>
#include <QObject>
#include <QSet>
#include <QTimer>
#include <QVector>

class ORXPropertyTreeDelegate;
class ORXPropertyTreeModel;
class QTreeView;

// The editors that a view has open: those of every row in sight whose value was read, and the one
// in use. Belongs to its view; GUI thread.
//
// An editor closes before its row goes, for whatever reason. What is being typed in it is dropped,
// and the focus comes to the view (see EditorFocus).
class OpenEditors : public QObject
{
    Q_OBJECT
public:
    // The view shows the model with the delegate. None of them is owned.
    OpenEditors(QTreeView* view, ORXPropertyTreeModel* model, ORXPropertyTreeDelegate* delegate,
                ORXPropertyTreeItem::ParentType page);

    // Whether the item's value cell, or its name cell as well, has an editor when it is in sight.
    static bool hasEditor(const ORXPropertyTreeItem& item);
    static bool hasNameEditor(const ORXPropertyTreeItem& item);

    bool isOpen(ORXPropertyTreeItem* item) const { return m_open.contains(item); }
    // The editor of an item's value (or, column 0, name) cell; null when it is not open.
    QWidget* editorOf(ORXPropertyTreeItem* item, int column = 1) const;
    // The widget directly in the viewport that is, or holds, the widget; null when it stands
    // elsewhere.
    QWidget* editorAround(QWidget* widget) const;
    // The cell whose editor is, or holds, the widget.
    QModelIndex cellOf(QWidget* widget) const;

    // The items whose rows were in sight at the last sync(), from top to bottom. Not owned.
    const QVector<ORXPropertyTreeItem*>& inSight() const { return m_inSight; }
    // Opens the editors of the rows in sight and closes those that have left it, but for one in
    // use.
    void sync();
    // The same once control is back in the event loop.
    void schedule();
    bool isScheduled() const { return m_timer.isActive(); }

    // Shows the items' values in the editors that are open.
    void refill(ORXPropertyTreeItem* item);
    void refillAll();
    // Tells assistive technology anew what the open editors are, without filling them.
    void describeAll();
    // Makes the item's editors anew.
    void renew(ORXPropertyTreeItem* item);
    // Closes the editors of the item, or of all items below it.
    void closeBelow(ORXPropertyTreeItem* item);
    // Closes those whose row the view no longer has.
    void closeWithoutRow();
    // Before rows go: forgets what is in sight.
    void rowsGo() { m_inSight.clear(); }
    // Before all editors go at once.
    void dropAll();

signals:
    // Around a sync() that was scheduled.
    void aboutToSync();
    void synced();

private:
    void open(ORXPropertyTreeItem* item);
    void close(ORXPropertyTreeItem* item);
    void closeOutOfSight();

    QTreeView* m_view;                   // Not owned.
    ORXPropertyTreeModel* m_model;       // Not owned.
    ORXPropertyTreeDelegate* m_delegate; // Not owned.
    ORXPropertyTreeItem::ParentType m_pageType;
    bool m_bSyncing = false;
    QVector<ORXPropertyTreeItem*> m_inSight; // Not owned.
    QSet<ORXPropertyTreeItem*> m_open;       // Items whose editors are open. Not owned.
    QTimer m_timer;
};
