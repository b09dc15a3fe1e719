// SPDX-License-Identifier: Apache-2.0
#include "model/CTreeIntergerItemValue.h"

#include "basetools/ORXInterface.h"

#include <QSet>

#include <algorithm>

namespace {

// Beyond this a spin box cannot be used sensibly; the number is typed instead.
constexpr qint64 kLargestSpinBoxMaximum = 1125899906842623;

bool isAddressFeature(const QString& nodeName)
{
    static const QSet<QString> names = {QStringLiteral("GevCurrentIPAddress"),
                                        QStringLiteral("GevCurrentSubnetMask"),
                                        QStringLiteral("GevCurrentDefaultGateway"),
                                        QStringLiteral("GevPersistentIPAddress"),
                                        QStringLiteral("GevPersistentSubnetMask"),
                                        QStringLiteral("GevPersistentDefaultGateway"),
                                        QStringLiteral("GevSCDA")};
    return names.contains(nodeName);
}

} // namespace

QString CTreeIntergerItemValue::displayValue() const
{
    Numbers n;
    Type kind = PureNumber;
    {
        const ItemStateLock lock;
        n = m_numbers;
        kind = type();
    }
    // The minimum is tested first, so that it wins where the range is upside down.
    const qint64 shown =
        n.m_nValue < n.m_nMinValue ? n.m_nMinValue : std::min(n.m_nValue, n.m_nMaxValue);
    switch (kind) {
    case IPV4Address:
    case SubnetMask:
        return ORXInterface::intIP2strIP(static_cast<quint32>(shown & 0xFFFFFFFF));
    case MACAddress:
        return ORXInterface::intMac2strMac(static_cast<quint64>(shown));
    case HexNumber:
        return ORXInterface::int2HexText(shown);
    case PureNumber:
        break;
    }
    return QString::number(shown);
}

QVariant CTreeIntergerItemValue::value() const
{
    return numbers().m_nValue;
}

void CTreeIntergerItemValue::setValue(const QVariant& value)
{
    setNumber(value.toLongLong());
}

QString CTreeIntergerItemValue::createCurrentStauts(bool readOnly) const
{
    const ItemStateLock lock;
    // The representation stands behind the marker on purpose: a change of it needs a new editor.
    return readOnlyStatus(readOnly) +
           QStringLiteral(
               "m_nValue:%1; m_nMinValue:%2; m_nMaxValue:%3; m_nIncrement:%4; NeedRecreateEditor:")
               .arg(m_numbers.m_nValue)
               .arg(m_numbers.m_nMinValue)
               .arg(m_numbers.m_nMaxValue)
               .arg(m_numbers.m_nIncrement) +
           m_strRepresentation;
}

void CTreeIntergerItemValue::copy(const CTreeItemValue* from, bool all)
{
    const ItemStateLock lock;
    CTreeItemValue::copy(from, all);
    if (const auto* other = dynamic_cast<const CTreeIntergerItemValue*>(from)) {
        m_strRepresentation = other->m_strRepresentation;
        m_numbers = other->m_numbers;
    }
}

CTreeIntergerItemValue::Numbers CTreeIntergerItemValue::numbers() const
{
    const ItemStateLock lock;
    return m_numbers;
}

void CTreeIntergerItemValue::setNumbers(const Numbers& numbers)
{
    const ItemStateLock lock;
    m_numbers = numbers;
}

void CTreeIntergerItemValue::setNumber(qint64 value)
{
    const ItemStateLock lock;
    m_numbers.m_nValue = value;
}

QString CTreeIntergerItemValue::representation() const
{
    const ItemStateLock lock;
    return m_strRepresentation;
}

void CTreeIntergerItemValue::setRepresentation(const QString& representation)
{
    const ItemStateLock lock;
    m_strRepresentation = representation;
    if (!hasOwnForm() && m_numbers.m_nMaxValue > kLargestSpinBoxMaximum)
        m_strRepresentation = QStringLiteral("PureNumber");
}

bool CTreeIntergerItemValue::hasOwnForm() const
{
    return m_strRepresentation == QLatin1String("HexNumber") ||
           m_strRepresentation == QLatin1String("IPV4Address") ||
           m_strRepresentation == QLatin1String("MACAddress");
}

bool CTreeIntergerItemValue::isEditedAsText() const
{
    const ItemStateLock lock;
    return hasOwnForm() || m_strRepresentation == QLatin1String("PureNumber");
}

CTreeIntergerItemValue::Type CTreeIntergerItemValue::type() const
{
    const ItemStateLock lock;
    if (!hasOwnForm())
        return PureNumber;
    const QString name = nodeName(0);
    if (isAddressFeature(name) || m_strRepresentation == QLatin1String("IPV4Address")) {
        const bool mask = name == QLatin1String("GevCurrentSubnetMask") ||
                          name == QLatin1String("GevPersistentSubnetMask");
        return mask ? SubnetMask : IPV4Address;
    }
    if (name == QLatin1String("GevMACAddress") ||
        m_strRepresentation == QLatin1String("MACAddress"))
        return MACAddress;
    return HexNumber;
}
