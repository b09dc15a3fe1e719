// SPDX-License-Identifier: Apache-2.0
#include "device/XmlLimits.h"

#include <cstring>
#include <string_view>

namespace XmlLimits {

namespace {

// Position behind `end`, searched from `from`; the text's end when it does not occur.
std::size_t behind(std::string_view text, std::size_t from, std::string_view end)
{
    const std::size_t found = text.find(end, from);
    return found == std::string_view::npos ? text.size() : found + end.size();
}

std::size_t behind(std::string_view text, std::size_t from, char end)
{
    const std::size_t found = text.find(end, from);
    return found == std::string_view::npos ? text.size() : found + 1;
}

// Position behind the tag that starts at `from`; ">" inside quoted attribute values does not end
// it.
std::size_t behindTag(std::string_view text, std::size_t from)
{
    for (std::size_t i = from; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '>')
            return i + 1;
        if (c != '"' && c != '\'')
            continue;
        i = text.find(c, i + 1);
        if (i == std::string_view::npos)
            break;
    }
    return text.size();
}

bool startsWith(std::string_view text, std::size_t at, std::string_view part)
{
    return text.compare(at, part.size(), part) == 0;
}

// The declaration "<?xml ...?>" has quoted values as a tag has; other processing instructions may
// hold single quotes.
bool isDeclaration(std::string_view text, std::size_t at)
{
    constexpr std::string_view kBegin = "<?xml";
    const std::size_t next = at + kBegin.size();
    return startsWith(text, at, kBegin) && next < text.size() &&
           (text[next] == ' ' || text[next] == '\t' || text[next] == '\r' || text[next] == '\n');
}

} // namespace

bool acceptable(const char* text, std::size_t bytes)
{
    if (bytes > kMaxBytes)
        return false;
    const std::string_view view(text, bytes);
    int depth = 0;
    for (std::size_t at = view.find('<'); at < view.size(); at = view.find('<', at)) {
        switch (at + 1 < view.size() ? view[at + 1] : '\0') {
        case '/':
            --depth;
            at = behind(view, at, '>');
            break;
        case '!':
            if (startsWith(view, at, "<!--"))
                at = behind(view, at + 4, "-->");
            else if (startsWith(view, at, "<![CDATA["))
                at = behind(view, at, "]]>");
            else
                return false;
            break;
        case '?':
            at = isDeclaration(view, at) ? behindTag(view, at) : behind(view, at, "?>");
            break;
        default: {
            const std::size_t end = behindTag(view, at);
            const bool closesItself = end >= 2 && view[end - 2] == '/';
            if (!closesItself && ++depth > kMaxDepth)
                return false;
            at = end;
        }
        }
    }
    return true;
}

} // namespace XmlLimits
