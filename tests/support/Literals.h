// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringList>

// "text"_s: a QString of the UTF-8 literal.
inline QString operator""_s(const char* text, std::size_t bytes)
{
    return QString::fromUtf8(text, static_cast<int>(bytes));
}

// The words of a text that blanks separate.
inline QStringList words(const char* text)
{
    return QString::fromUtf8(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}
