// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

// "text"_s: a QString of the UTF-8 literal.
inline QString operator""_s(const char* text, std::size_t bytes)
{
    return QString::fromUtf8(text, static_cast<int>(bytes));
}
