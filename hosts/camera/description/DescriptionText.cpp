// SPDX-License-Identifier: Apache-2.0
#include "description/DescriptionText.h"

#include <QRegularExpression>
#include <QString>
#include <QTextCodec>

#include <array>

namespace DescriptionText {

namespace {

struct Pattern
{
    const char* bytes;
    int count;
    const char* codec;
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

QTextCodec* codecFor(const QByteArray& raw)
{
    for (const Pattern& pattern : kPatterns) {
        if (raw.startsWith(QByteArray::fromRawData(pattern.bytes, pattern.count)))
            return QTextCodec::codecForName(pattern.codec);
    }
    QTextCodec* utf8 = QTextCodec::codecForName("UTF-8");
    QTextCodec* declared = QTextCodec::codecForName(declaredEncoding(raw));
    if (declared && declared != utf8)
        return declared;
    QTextCodec::ConverterState state;
    utf8->toUnicode(raw.constData(), raw.size(), &state);
    return state.invalidChars == 0 ? utf8 : QTextCodec::codecForName("ISO-8859-1");
}

} // namespace

std::string toUtf8(const QByteArray& raw)
{
    QString text = codecFor(raw)->toUnicode(raw);
    if (text.startsWith(QChar(QChar::ByteOrderMark)))
        text.remove(0, 1);
    static const QRegularExpression declared(
        QStringLiteral("^(\\s*<\\?xml[^>]*encoding\\s*=\\s*)[\"'][^\"']*[\"']"));
    text.replace(declared, QStringLiteral("\\1\"UTF-8\""));
    return text.toStdString();
}

} // namespace DescriptionText
