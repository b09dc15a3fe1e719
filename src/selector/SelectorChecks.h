// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "selector/CheckRows.h"
#include "selector/SelectorStateThread.h"
#include "tree/SelectorRowsLock.h"

#include <QMap>
#include <QTimer>
#include <QVector>

class CTreeEnumationItemValue;
class ORXFeatureTree;
class ORXFeatureTreeView;
class ORXPropertyTreeItem;

// Check boxes that stand for what a selector selects: one box for each entry, in rows below a group
// of a page. Reads their states and writes what the user checks. Owned by the page; GUI thread. The
// camera is asked by a SelectorStateThread.
class SelectorChecks : public QObject
{
    Q_OBJECT
public:
    // Node names of a selector and of what it selects.
    struct Names
    {
        const char* selector;
        const char* enable;
    };

    // `choices`: the first pair that the camera has now is taken. `tag` is that of the rows.
    SelectorChecks(const QVector<Names>& choices, FeatureTag tag, QObject* parent);
    ~SelectorChecks() override;

    // Turns to the camera of `tree` and to its rows below `group`. When the group has none yet they
    // are made, as many as the description has entries for, and owned by the group. Which entries
    // the camera has is known after it was read.
    void attach(ORXFeatureTree* tree, ORXPropertyTreeItem* group, ORXFeatureTreeView* view,
                qint64 cameraId);
    // The first half of stopHostCalls(): returns at once.
    void requestStop();
    // Nothing is asked of the host any more; a running call, and what puts the selector back, is
    // waited for. Boxes that were not written yet show again what the camera has; the log names
    // them.
    void stopHostCalls();
    // As above; forgets camera and rows, which may go now.
    void clear();
    // Entries, words of the interface language, visibility and access, as the camera's features
    // have them now.
    void refresh();
    // Whether the user sees the rows; the states are read anew when they come into sight, and not
    // at all while they are out of sight. What the user has checked is written all the same.
    void setShown(bool shown);
    // Reads the states soon; many requests are one.
    void requestStates();

    FeatureTag tag() const { return m_rows.tag(); }
    // True when the name is that of the selector, or of what it selects.
    bool concerns(const QString& nodeName) const;
    // The user has changed a box; false for an unknown name.
    bool write(const QString& nodeName, bool on);

private:
    const Names* chosen() const;
    int mostEntries() const;
    ORXPropertyTreeItem* cameraItem(const char* name) const;
    const CTreeEnumationItemValue* entries() const;
    SelectorStateThread::Pair pair() const;
    void readStates();
    void onJobEnded();
    void lockRows();
    void forgetWrites();
    void onStatesRead(const QString& selector, const QVector<int>& states);
    void onWritten(const QString& selector, qint64 entry, bool on, const QString& feature,
                   int error);
    void showState(int index);
    QString nodeName(qint64 entry) const;

    const QVector<Names> m_choices;
    const Names* m_names = nullptr;    // the choice for this camera; null without. Not owned.
    ORXFeatureTree* m_pTree = nullptr; // Not owned.
    qint64 m_lCameraID = -1;
    CheckRows m_rows;
    QVector<qint64> m_numbers; // entries in the order of the boxes
    bool m_bShown = false;
    QMap<qint64, bool> m_known;   // state by entry as the camera told it last
    QMap<qint64, int> m_underWay; // number of writes by entry
    SelectorRowsLock m_rowsLock;  // while the selector may stand elsewhere
    QTimer m_timer;
    SelectorStateThread m_thread;
};
