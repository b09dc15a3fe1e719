// SPDX-License-Identifier: Apache-2.0
#include "model/CTreeBooleanItemValue.h"

QString CTreeBooleanItemValue::displayValue() const
{
    return checked() ? QStringLiteral("True") : QStringLiteral("False");
}

QVariant CTreeBooleanItemValue::value() const
{
    return checked();
}

void CTreeBooleanItemValue::setValue(const QVariant& value)
{
    setChecked(value.toBool());
}

QString CTreeBooleanItemValue::createCurrentStauts(bool readOnly) const
{
    return readOnlyStatus(readOnly) + displayValue();
}

void CTreeBooleanItemValue::copy(const CTreeItemValue* from, bool all)
{
    const ItemStateLock lock;
    CTreeItemValue::copy(from, all);
    if (const auto* other = dynamic_cast<const CTreeBooleanItemValue*>(from))
        m_bValue = other->m_bValue;
}

bool CTreeBooleanItemValue::checked() const
{
    const ItemStateLock lock;
    return m_bValue;
}

void CTreeBooleanItemValue::setChecked(bool checked)
{
    const ItemStateLock lock;
    m_bValue = checked;
}
