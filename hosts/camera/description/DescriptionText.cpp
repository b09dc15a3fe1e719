// SPDX-License-Identifier: Apache-2.0
#include "description/DescriptionText.h"

#include "basetools/QtDifferences.h"

#include <QRegularExpression>
#include <QString>

#include <array>

namespace DescriptionText {

namespace {

struct Pattern
{
    const char* bytes;
    int count;
    const char* encoding;
};

// Longer marks first: the mark of UTF-32 begins with that of UTF-16. The last two rows are "<?"
// and "<" followed by a letter in UTF-16 without mark, told apart by where the zero byte stands.
constexpr std::array<Pattern, 7> kPatterns{{
    {"\x00\x00\xFE\xFF", 4, "UTF-32"},
    {"\xFF\xFE\x00\x00", 4, "UTF-32"},
    {"\xEF\xBB\xBF", 3, "UTF-8"},
    {"\xFE\xFF", 2, "UTF-16"},
    {"\xFF\xFE", 2, "UTF-16"},
    {"\x00<", 2, "UTF-16BE"},
    {"<\x00", 2, "UTF-16LE"},
}};

// The encoding named in the declaration, empty when there is none.
QByteArray declaredEncoding(const QByteArray& raw)
{
    static const QRegularExpression expression(
        QStringLiteral("^\\s*<\\?xml[^>]*encoding\\s*=\\s*[\"']([A-Za-z0-9._-]+)[\"']"));
    const auto match = expression.match(QString::fromLatin1(raw.left(256)));
    return match.captured(1).toLatin1();
}

bool isUtf8(const QByteArray& encoding)
{
    return encoding.toLower().replace('-', "").replace('_', "") == "utf8";
}

QString decoded(const QByteArray& raw)
{
    for (const Pattern& pattern : kPatterns) {
        if (raw.startsWith(QByteArray::fromRawData(pattern.bytes, pattern.count)))
            return QtDifferences::decode(pattern.encoding, raw).value_or(QString());
    }
    const QByteArray declared = declaredEncoding(raw);
    const auto text = isUtf8(declared) ? std::nullopt : QtDifferences::decode(declared, raw);
    if (text)
        return *text;
    const auto utf8 = QtDifferences::decodeUtf8(raw.constData(), int(raw.size()));
    return utf8.hasFaults ? QString::fromLatin1(raw) : utf8.text;
}

} // namespace

std::string toUtf8(const QByteArray& raw)
{
    QString text = decoded(raw);
    if (text.startsWith(QChar(QChar::ByteOrderMark)))
        text.remove(0, 1);
    static const QRegularExpression declared(
        QStringLiteral("^(\\s*<\\?xml[^>]*encoding\\s*=\\s*)[\"'][^\"']*[\"']"));
    text.replace(declared, QStringLiteral("\\1\"UTF-8\""));
    return text.toStdString();
}

} // namespace DescriptionText
