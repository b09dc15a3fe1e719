// SPDX-License-Identifier: Apache-2.0
#include "model/CTreeCommandItemValue.h"

QString CTreeCommandItemValue::displayValue() const
{
    const ItemStateLock lock;
    return m_strText;
}

QVariant CTreeCommandItemValue::value() const
{
    return displayValue();
}

void CTreeCommandItemValue::setValue(const QVariant& value)
{
    const ItemStateLock lock;
    m_strText = value.toString();
}
