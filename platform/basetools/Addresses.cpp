// SPDX-License-Identifier: Apache-2.0
#include "basetools/ORXInterface.h"

#include <QRegularExpression>

#include <optional>

namespace {

constexpr quint64 kMacMask = 0xFFFFFFFFFFFFULL;

std::optional<quint32> parseIp(const QString& text)
{
    static const QRegularExpression pattern(QRegularExpression::anchoredPattern(
        QStringLiteral("([0-9]{1,3})\\.([0-9]{1,3})\\.([0-9]{1,3})\\.([0-9]{1,3})")));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    quint32 address = 0;
    for (int i = 1; i <= 4; ++i) {
        const uint octet = match.captured(i).toUInt();
        if (octet > 255)
            return std::nullopt;
        address = (address << 8) | octet;
    }
    return address;
}

} // namespace

QString ORXInterface::intIP2strIP(quint32 address)
{
    return QStringLiteral("%1.%2.%3.%4")
        .arg(address >> 24)
        .arg((address >> 16) & 0xFF)
        .arg((address >> 8) & 0xFF)
        .arg(address & 0xFF);
}

quint32 ORXInterface::strIP2IntIP(const QString& text)
{
    return parseIp(text).value_or(0);
}

bool ORXInterface::CheckIpAble(const QString& text)
{
    return parseIp(text).has_value();
}

bool ORXInterface::CheckSubnetMask(const QString& text)
{
    const std::optional<quint32> mask = parseIp(text);
    if (!mask || *mask == 0)
        return false;
    // Contiguous ones at the left leave ones at the right after inversion: adding 1 clears them.
    const quint32 hosts = ~*mask;
    return (hosts & (hosts + 1)) == 0;
}

QString ORXInterface::intMac2strMac(quint64 address)
{
    QString digits = QStringLiteral("%1").arg(address & kMacMask, 12, 16, QLatin1Char('0'));
    for (int at = 10; at > 0; at -= 2)
        digits.insert(at, QLatin1Char(':'));
    return digits.toUpper();
}

quint64 ORXInterface::strMac2IntMac(const QString& text)
{
    if (!CheckMac(text))
        return 0;
    QString digits = text;
    digits.remove(QLatin1Char(':')).remove(QLatin1Char('-'));
    return digits.toULongLong(nullptr, 16);
}

bool ORXInterface::CheckMac(const QString& text)
{
    static const QRegularExpression pattern(QRegularExpression::anchoredPattern(
        QStringLiteral("[0-9A-Fa-f]{2}([:-])(?:[0-9A-Fa-f]{2}\\1){4}[0-9A-Fa-f]{2}")));
    return pattern.match(text).hasMatch();
}
