// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELLateSheet.h"

#include <QEvent>
#include <QWidget>

ZELLateSheet::ZELLateSheet(QWidget* widget)
    : QObject(widget)
    , m_widget(widget)
{
    widget->installEventFilter(this);
}

void ZELLateSheet::set(QWidget* widget, const QString& sheet)
{
    if (widget->testAttribute(Qt::WA_WState_Polished)) {
        // Setting a sheet polishes every child again: not without need.
        if (sheet != widget->styleSheet())
            widget->setStyleSheet(sheet);
        return;
    }
    auto* late = widget->findChild<ZELLateSheet*>(QString(), Qt::FindDirectChildrenOnly);
    if (!late)
        late = new ZELLateSheet(widget);
    late->m_sheet = sheet;
}

bool ZELLateSheet::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::Polish) {
        m_widget->removeEventFilter(this);
        m_widget->setStyleSheet(m_sheet);
        deleteLater();
    }
    return false;
}
