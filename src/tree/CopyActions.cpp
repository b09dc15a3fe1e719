// SPDX-License-Identifier: Apache-2.0
#include "tree/CopyActions.h"

#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "model/ORXPropertyTreeModel.h"
#include "tree/ItemText.h"

#include <QAbstractItemView>
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>

CopyActions::CopyActions(QMenu* menu, QAbstractItemView* view, QObject* parent)
    : QObject(parent)
    , m_pView(view)
{
    menu->addSeparator();
    m_pValue = menu->addAction(QString());
    m_pName = menu->addAction(QString());
    m_pText = menu->addAction(QString());
    m_pText->setShortcut(QKeySequence::Copy);
    m_pText->setShortcutContext(Qt::WidgetShortcut); // shown only; the view has the key
    connect(m_pValue, &QAction::triggered, this, [this] { copy(Value); });
    connect(m_pName, &QAction::triggered, this, [this] { copy(Name); });
    connect(m_pText, &QAction::triggered, this, [this] { copy(Text); });
    view->installEventFilter(this);
    retranslate();
}

void CopyActions::retranslate()
{
    m_pValue->setText(tr("Copy Value"));
    m_pName->setText(tr("Copy Name"));
    m_pText->setText(tr("Copy as Text"));
}

void CopyActions::setItem(ORXPropertyTreeItem* item)
{
    m_pItem = item;
    m_pValue->setEnabled(!ItemText::shownValue(*item).isEmpty());
    m_pName->setEnabled(!item->value()->nodeName(0).isEmpty());
    m_pText->setEnabled(!ItemText::lines(*item).isEmpty());
}

void CopyActions::copy(What what) const
{
    if (!ORXPropertyTreeItem::isAlive(m_pItem))
        return;
    const QString text = what == Value  ? ItemText::shownValue(*m_pItem)
                         : what == Name ? m_pItem->value()->nodeName(0)
                                        : ItemText::lines(*m_pItem);
    if (!text.isEmpty())
        QGuiApplication::clipboard()->setText(text);
}

bool CopyActions::eventFilter(QObject* watched, QEvent* event)
{
    const bool isKey =
        event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (watched != m_pView || !isKey ||
        !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy))
        return QObject::eventFilter(watched, event);
    event->accept();
    ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(m_pView->currentIndex());
    if (item && event->type() == QEvent::KeyPress) {
        m_pItem = item;
        copy(Text);
    }
    return true;
}
