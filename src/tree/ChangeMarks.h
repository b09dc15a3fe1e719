// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tree/ValueChange.h"

#include <QHash>
#include <QObject>
#include <QTimer>
#include <QVector>

class ValueWatch;

// The marks of the rows whose value has changed, unless the user has edited that very row: whole
// for a second, then fading, gone after kFadeMs. One object for each tree, for every page that
// shows its items; its one timer runs only while a mark lives. Owned by the tree; GUI thread.
class ChangeMarks : public QObject
{
    Q_OBJECT
public:
    static constexpr int kFadeMs = 3000;

    // `watch` is not owned; it tells of the changes, and the time.
    explicit ChangeMarks(ValueWatch* watch);

    // Of the item's mark, or of the one that it mirrors: 1 for a new one, 0 without one.
    qreal strength(const ORXPropertyTreeItem* item) const;
    // Also true of a mark that has ended, while SigFaded tells of its end.
    bool has(const ORXPropertyTreeItem* item) const { return markOf(item) != nullptr; }
    bool isRunning() const { return m_timer.isActive(); }
    // Before items go, and when what has changed says nothing any more.
    void clear();

    // Whether a change is one that the user did not make himself, in that very row.
    static bool isMarked(const ValueChange& change);

signals:
    // Marks have come or look weaker: rows that have one are painted anew.
    void SigFaded();
    void SigCleared();

private:
    void mark(const QVector<ValueChange>& changes);
    void fade();
    const qint64* markOf(const ORXPropertyTreeItem* item) const;

    ValueWatch* m_pWatch;                              // Not owned.
    QHash<const ORXPropertyTreeItem*, qint64> m_marks; // item, not owned -> when it changed
    QTimer m_timer;
};
