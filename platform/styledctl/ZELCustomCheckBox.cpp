// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomCheckBox.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOption>

ZELCustomCheckBox::ZELCustomCheckBox(QWidget* parent, StyleSelector style)
    : ZELCustomCheckBox(QString(), parent, style)
{
}

ZELCustomCheckBox::ZELCustomCheckBox(const QString& text, QWidget* parent, StyleSelector style)
    : QCheckBox(text, parent)
    , ZELCustomLook(this, style)
{
    setFocusPolicy(Qt::StrongFocus);
}

ZELLook::Shape ZELCustomCheckBox::cShape() const
{
    return cStyle() == Style_Switch    ? Shape::Switch
           : cStyle() == Style_Compact ? Shape::Compact
                                       : Shape::Framed;
}

void ZELCustomCheckBox::cDrawControl(QPainter* painter, const QRect& rect) const
{
    QStyleOptionButton option;
    initStyleOption(&option);
    option.rect = rect;
    option.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
    painter->save();
    painter->setFont(font());
    style()->drawControl(QStyle::CE_CheckBox, &option, painter, this);
    painter->restore();
}

void ZELCustomCheckBox::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && !event->isAutoRepeat())
        click();
    else
        QCheckBox::keyPressEvent(event);
}
