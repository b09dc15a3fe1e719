// SPDX-License-Identifier: Apache-2.0
#include "model/CTreeStringItemValue.h"

QString CTreeStringItemValue::displayValue() const
{
    const ItemStateLock lock;
    return m_strValue;
}

QVariant CTreeStringItemValue::value() const
{
    return displayValue();
}

void CTreeStringItemValue::setValue(const QVariant& value)
{
    const ItemStateLock lock;
    m_strValue = value.toString();
}

QString CTreeStringItemValue::createCurrentStauts(bool readOnly) const
{
    return readOnlyStatus(readOnly) + displayValue();
}

void CTreeStringItemValue::copy(const CTreeItemValue* from, bool all)
{
    const ItemStateLock lock;
    CTreeItemValue::copy(from, all);
    if (const auto* other = dynamic_cast<const CTreeStringItemValue*>(from)) {
        m_nMaxLength = other->m_nMaxLength;
        m_strValue = other->m_strValue;
    }
}

int CTreeStringItemValue::maxLength() const
{
    const ItemStateLock lock;
    return m_nMaxLength;
}

void CTreeStringItemValue::setText(const QString& text, int maxLength)
{
    const ItemStateLock lock;
    m_strValue = text;
    m_nMaxLength = maxLength;
}
