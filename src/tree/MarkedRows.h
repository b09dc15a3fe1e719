// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QPointer>

class ChangeMarks;
class OpenEditors;
class ORXPropertyTreeDelegate;
class ORXPropertyTreeModel;
class QTreeView;

// Has the marks of changes painted anew while they fade: of the rows in sight, and of these only
// the marks. Belongs to its view; GUI thread.
class MarkedRows : public QObject
{
    Q_OBJECT
public:
    // The view shows the model with the delegate. None of them is owned.
    MarkedRows(QTreeView* view, ORXPropertyTreeModel* model, ORXPropertyTreeDelegate* delegate,
               const OpenEditors* editors);

    // Null for none. Not owned.
    void setMarks(const ChangeMarks* marks);

private:
    void repaint();

    QTreeView* m_pView;                   // Not owned.
    ORXPropertyTreeModel* m_pModel;       // Not owned.
    ORXPropertyTreeDelegate* m_pDelegate; // Not owned.
    const OpenEditors* m_pEditors;        // Not owned.
    QPointer<const ChangeMarks> m_pMarks;
    bool m_bLate = false; // waits until the rows in sight are known again
};
