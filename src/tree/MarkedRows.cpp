// SPDX-License-Identifier: Apache-2.0
#include "tree/MarkedRows.h"

#include "model/ORXPropertyTreeModel.h"
#include "tree/ChangeMarks.h"
#include "tree/ORXPropertyTreeDelegate.h"
#include "tree/OpenEditors.h"
#include "tree/RowPainter.h"

#include <QTreeView>

MarkedRows::MarkedRows(QTreeView* view, ORXPropertyTreeModel* model,
                       ORXPropertyTreeDelegate* delegate, const OpenEditors* editors)
    : m_pView(view)
    , m_pModel(model)
    , m_pDelegate(delegate)
    , m_pEditors(editors)
{
    connect(editors, &OpenEditors::synced, this, [this] {
        if (m_bLate)
            m_pView->viewport()->update();
        m_bLate = false;
    });
}

void MarkedRows::setMarks(const ChangeMarks* marks)
{
    if (marks == m_pMarks)
        return;
    if (m_pMarks)
        m_pMarks->disconnect(this);
    m_pMarks = marks;
    m_pDelegate->setMarks(marks);
    if (marks)
        connect(marks, &ChangeMarks::SigFaded, this, &MarkedRows::repaint);
    m_pView->viewport()->update();
}

// A layout that is due is not done early for a mark.
void MarkedRows::repaint()
{
    if (!m_pView->isVisible())
        return;
    m_bLate = m_pEditors->isScheduled();
    if (m_bLate)
        return;
    for (ORXPropertyTreeItem* item : m_pEditors->inSight()) {
        if (m_pMarks->has(item))
            m_pView->viewport()->update(
                RowPainter::markPlace(m_pView->visualRect(m_pModel->indexFromItem(item, 0))));
    }
}
