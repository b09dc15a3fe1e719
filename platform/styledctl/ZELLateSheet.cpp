// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELLateSheet.h"

#include <QEvent>
#include <QWidget>

namespace {

// Qt polishes all widgets of a window that appears, those that stay hidden, too.
bool staysHidden(const QWidget* widget)
{
    for (; widget && !widget->isWindow(); widget = widget->parentWidget()) {
        if (widget->isHidden() && widget->testAttribute(Qt::WA_WState_ExplicitShowHide))
            return true;
    }
    return false;
}

} // namespace

ZELLateSheet::ZELLateSheet(QWidget* widget)
    : QObject(widget)
    , m_widget(widget)
{
    widget->installEventFilter(this);
}

void ZELLateSheet::set(QWidget* widget, const QString& sheet)
{
    auto* late = widget->findChild<ZELLateSheet*>(QString(), Qt::FindDirectChildrenOnly);
    const bool waits = late && !late->m_bSet;
    if (!waits && widget->testAttribute(Qt::WA_WState_Polished)) {
        // Setting a sheet polishes every child again: not without need.
        if (sheet != widget->styleSheet())
            widget->setStyleSheet(sheet);
        return;
    }
    if (!waits)
        late = new ZELLateSheet(widget);
    late->m_sheet = sheet;
}

bool ZELLateSheet::eventFilter(QObject*, QEvent* event)
{
    const bool polished = event->type() == QEvent::Polish && !staysHidden(m_widget);
    if (polished || event->type() == QEvent::Show) {
        m_bSet = true;
        m_widget->removeEventFilter(this);
        m_widget->setStyleSheet(m_sheet);
        deleteLater();
    }
    return false;
}
