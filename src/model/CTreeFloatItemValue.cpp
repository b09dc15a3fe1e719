// SPDX-License-Identifier: Apache-2.0
#include "model/CTreeFloatItemValue.h"

namespace {

QString fixed(float number, int decimals)
{
    return QString::number(static_cast<double>(number), 'f', decimals);
}

} // namespace

QString CTreeFloatItemValue::displayValue() const
{
    return fixed(numbers().m_fValue, 4);
}

QVariant CTreeFloatItemValue::value() const
{
    return numbers().m_fValue;
}

void CTreeFloatItemValue::setValue(const QVariant& value)
{
    setNumber(value.toFloat());
}

QString CTreeFloatItemValue::createCurrentStauts(bool readOnly) const
{
    const Numbers n = numbers();
    return readOnlyStatus(readOnly) +
           QStringLiteral("m_fValue:%1; m_fMinValue:%2; m_fMaxValue:%3")
               .arg(fixed(n.m_fValue, 3), fixed(n.m_fMinValue, 3), fixed(n.m_fMaxValue, 3));
}

void CTreeFloatItemValue::copy(const CTreeItemValue* from, bool all)
{
    const ItemStateLock lock;
    CTreeItemValue::copy(from, all);
    if (const auto* other = dynamic_cast<const CTreeFloatItemValue*>(from))
        m_numbers = other->m_numbers;
}

CTreeFloatItemValue::Numbers CTreeFloatItemValue::numbers() const
{
    const ItemStateLock lock;
    return m_numbers;
}

void CTreeFloatItemValue::setNumbers(const Numbers& numbers)
{
    const ItemStateLock lock;
    m_numbers = numbers;
}

void CTreeFloatItemValue::setNumber(float value)
{
    const ItemStateLock lock;
    m_numbers.m_fValue = value;
}
