// SPDX-License-Identifier: Apache-2.0
#include "model/CTreeEnumationItemValue.h"

QString CTreeEnumationItemValue::displayValue() const
{
    const ItemStateLock lock;
    return m_valueMap.value(m_nValue);
}

QVariant CTreeEnumationItemValue::value() const
{
    return number();
}

// Entry numbers come and go as unsigned 32-bit; a number above 2^31 arrives as a negative int.
void CTreeEnumationItemValue::setValue(const QVariant& value)
{
    setNumber(static_cast<qint64>(static_cast<quint32>(value.toLongLong())));
}

QString CTreeEnumationItemValue::createCurrentStauts(bool readOnly) const
{
    const ItemStateLock lock;
    QString status = readOnlyStatus(readOnly) + QStringLiteral("m_nValue:%1;").arg(m_nValue);
    for (const QString& entry : m_displayList)
        status += entry + QLatin1Char(';');
    return status;
}

void CTreeEnumationItemValue::copy(const CTreeItemValue* from, bool all)
{
    const ItemStateLock lock;
    CTreeItemValue::copy(from, all);
    if (const auto* other = dynamic_cast<const CTreeEnumationItemValue*>(from)) {
        m_nValue = other->m_nValue;
        m_valueMap = other->m_valueMap;
        m_displayList = other->m_displayList;
        m_displayListCN = other->m_displayListCN;
    }
}

qint64 CTreeEnumationItemValue::number() const
{
    const ItemStateLock lock;
    return m_nValue;
}

void CTreeEnumationItemValue::setNumber(qint64 value)
{
    const ItemStateLock lock;
    m_nValue = value;
}

QStringList CTreeEnumationItemValue::displayList() const
{
    const ItemStateLock lock;
    return m_displayList;
}

QStringList CTreeEnumationItemValue::displayListCN() const
{
    const ItemStateLock lock;
    return m_displayListCN;
}

QMap<qint64, QString> CTreeEnumationItemValue::valueMap() const
{
    const ItemStateLock lock;
    return m_valueMap;
}

QMap<QString, QString> CTreeEnumationItemValue::nameMap() const
{
    const ItemStateLock lock;
    return m_nameMap;
}

void CTreeEnumationItemValue::replaceEnumList(const QStringList& displayList,
                                              const QStringList& displayListCN,
                                              const QMap<qint64, QString>& valueMap,
                                              const QMap<QString, QString>& nameMap)
{
    const ItemStateLock lock;
    m_displayList = displayList;
    m_displayListCN = displayListCN;
    m_valueMap = valueMap;
    m_nameMap = nameMap;
}
