// SPDX-License-Identifier: Apache-2.0
#include "description/TextNumbers.h"

#include <charconv>
#include <cmath>
#include <system_error>

namespace TextNumbers {

namespace {

template <typename Number>
bool parseWhole(const std::string& text, Number* value)
{
    Number parsed{};
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, parsed);
    if (result.ec != std::errc() || result.ptr != end || text.empty())
        return false;
    *value = parsed;
    return true;
}

} // namespace

bool parse(const std::string& text, std::int64_t* value)
{
    return parseWhole(text, value);
}

bool parse(const std::string& text, double* value)
{
    double parsed = 0.0;
    if (!parseWhole(text, &parsed) || !std::isfinite(parsed))
        return false;
    *value = parsed;
    return true;
}

} // namespace TextNumbers
