// SPDX-License-Identifier: Apache-2.0
#include "tree/ORXPropertySpinBox.h"

#include "device/ORXListenTools.h"

#include <QEvent>
#include <QLineEdit>

ORXPropertySpinBox::ORXPropertySpinBox(QWidget* parent, StyleSelector style)
    : ZELCustomSpinBox64(parent, style)
{
}

ORXPropertySpinBox::~ORXPropertySpinBox()
{
    ORXListenTools::instance()->removeListener(this);
}

void ORXPropertySpinBox::resetToolTip()
{
    setToolTip(tr("Min:%1; Max:%2; Step Value:%3").arg(minimum()).arg(maximum()).arg(singleStep()));
}

int ORXPropertySpinBox::notify(int code, void*)
{
    if (code != ListenCode::kCommitPendingEdit || !lineEdit()->hasFocus())
        return 0;
    bool ok = false;
    const qint64 typed = lineEdit()->text().toLongLong(&ok, 10);
    if (ok)
        setValue(typed);
    return 0;
}

void ORXPropertySpinBox::deselect()
{
    lineEdit()->deselect();
}

void ORXPropertySpinBox::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        resetToolTip();
    ZELCustomSpinBox64::changeEvent(event);
}
