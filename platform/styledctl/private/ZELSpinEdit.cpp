// SPDX-License-Identifier: Apache-2.0
#include "styledctl/private/ZELSpinEdit.h"

#include "styledctl/ZELCustom.h"

#include <QAbstractSpinBox>
#include <QLineEdit>

void ZELSpinEdit::prepare(QAbstractSpinBox* box, QLineEdit* edit)
{
    QLocale locale = QLocale::c();
    locale.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
    box->setLocale(locale);
    box->setKeyboardTracking(false);
    box->setFocusPolicy(Qt::StrongFocus);
    box->setAccelerated(true);
    edit->setStyle(ZELCustom::style());
}
