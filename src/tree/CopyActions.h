// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QPointer>

class ORXPropertyTreeItem;
class QAbstractItemView;
class QAction;
class QMenu;

// Copies what a row of a view says to the clipboard: the last three lines of the context menu, and
// Ctrl+C in the view. Owned by its parent; GUI thread.
class CopyActions : public QObject
{
    Q_OBJECT
public:
    // Appends the actions to the menu. Neither is owned.
    CopyActions(QMenu* menu, QAbstractItemView* view, QObject* parent);

    // The item that the menu is about to be shown for.
    void setItem(ORXPropertyTreeItem* item);
    void retranslate();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum What { Value, Name, Text };
    void copy(What what) const;

    QPointer<QAbstractItemView> m_pView;    // Not owned.
    QAction* m_pValue;                      // Owned by the menu.
    QAction* m_pName;                       // Owned by the menu.
    QAction* m_pText;                       // Owned by the menu.
    ORXPropertyTreeItem* m_pItem = nullptr; // Not owned; may have gone.
};
