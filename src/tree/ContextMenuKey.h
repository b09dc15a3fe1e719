// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>

class QAbstractItemView;

// Asks for the context menu of a view's current row when the Menu key or Shift+F10 is pressed in
// the view, or in an editor that has no menu of its own. Not every platform makes a context menu
// event of these keys. Owned by its view, whose policy is Qt::CustomContextMenu; GUI thread.
class ContextMenuKey : public QObject
{
    Q_OBJECT
public:
    explicit ContextMenuKey(QAbstractItemView* view);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QAbstractItemView* m_pView; // Not owned.
};
