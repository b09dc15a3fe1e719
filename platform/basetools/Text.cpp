// SPDX-License-Identifier: Apache-2.0
#include "basetools/ORXInterface.h"

#include "basetools/QtDifferences.h"

#include <cstring>

namespace {

int utf8Size(const QString& text, int at, int units)
{
    const uint code = text.at(at).unicode();
    if (units == 2)
        return 4;
    if (text.at(at).isSurrogate())
        return int(text.mid(at, 1).toUtf8().size());
    return code < 0x80 ? 1 : code < 0x800 ? 2 : 3;
}

} // namespace

QString ORXInterface::fromLocalText(const char* text, int maxBytes)
{
    if (!text || maxBytes <= 0)
        return QString();
    const int size = int(::strnlen(text, size_t(maxBytes)));
    const QtDifferences::DecodedText utf8 = QtDifferences::decodeUtf8(text, size);
    return utf8.hasFaults ? QString::fromLocal8Bit(text, size) : utf8.text;
}

QByteArray ORXInterface::toLocalText(const QString& text)
{
    const QByteArray local = text.toLocal8Bit();
    return QString::fromLocal8Bit(local) == text ? local : text.toUtf8();
}

qint64 ORXInterface::string2Int(const QString& text)
{
    const QString trimmed = text.trimmed();
    bool ok = false;
    if (trimmed.startsWith(QLatin1String("0x"), Qt::CaseInsensitive)) {
        const quint64 value = trimmed.mid(2).toULongLong(&ok, 16);
        return ok ? qint64(value) : 0;
    }
    const qint64 value = trimmed.toLongLong(&ok, 10);
    if (ok)
        return value;
    const quint64 large = trimmed.toULongLong(&ok, 10);
    return ok ? qint64(large) : 0;
}

QString ORXInterface::cutString(const QString& text, int maxBytes)
{
    int bytes = 0;
    int at = 0;
    while (at < text.size()) {
        const bool pair = text.at(at).isHighSurrogate() && at + 1 < text.size() &&
                          text.at(at + 1).isLowSurrogate();
        const int units = pair ? 2 : 1;
        bytes += utf8Size(text, at, units);
        if (bytes > maxBytes)
            break;
        at += units;
    }
    return text.left(at);
}

QString ORXInterface::int2HexText(qint64 value)
{
    return QStringLiteral("0x") + QString::number(quint64(value), 16).toUpper();
}
