// SPDX-License-Identifier: Apache-2.0
#include "device/HtmlEscape.h"

namespace {

// What stands for the character in HTML; empty when it stands for itself.
QLatin1String escapeOf(QChar character)
{
    switch (character.unicode()) {
    case '&':
        return QLatin1String("&amp;");
    case '>':
        return QLatin1String("&gt;");
    case '<':
        return QLatin1String("&lt;");
    case '"':
        return QLatin1String("&quot;");
    case '\'':
        return QLatin1String("&#39;");
    case '\n':
    case '\r':
        return QLatin1String("<br>");
    default:
        return {};
    }
}

} // namespace

QString htmlEscaped(const QString& text)
{
    QString escaped;
    escaped.reserve(text.size());
    const QChar* pending = text.cbegin();
    for (const QChar* at = pending; at != text.cend(); ++at) {
        const QLatin1String escape = escapeOf(*at);
        if (escape.isEmpty())
            continue;
        escaped.append(pending, int(at - pending));
        escaped += escape;
        pending = at + 1;
    }
    escaped.append(pending, int(text.cend() - pending));
    return escaped;
}
