// SPDX-License-Identifier: Apache-2.0
#include "tree/ContextMenuKey.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace {

bool asksForMenu(const QKeyEvent& event)
{
    const bool shiftF10 = event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier;
    return event.key() == Qt::Key_Menu || shiftF10;
}

// Spin boxes hand the focus to theirs.
bool hasOwnMenu(const QWidget* widget)
{
    return widget && (qobject_cast<const QLineEdit*>(widget) || widget->findChild<QLineEdit*>());
}

} // namespace

ContextMenuKey::ContextMenuKey(QAbstractItemView* view)
    : QObject(view)
    , m_pView(view)
{
    view->installEventFilter(this);
}

bool ContextMenuKey::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !asksForMenu(*static_cast<QKeyEvent*>(event)))
        return QObject::eventFilter(watched, event);
    if (!m_pView->hasFocus() && hasOwnMenu(QApplication::focusWidget()))
        return false;
    const QModelIndex row = m_pView->currentIndex();
    m_pView->scrollTo(row);
    const QRect place = m_pView->visualRect(row);
    if (place.isValid())
        emit m_pView->customContextMenuRequested(place.center());
    return true;
}
