// SPDX-License-Identifier: Apache-2.0
#include "device/HtmlEscape.h"

QString htmlEscaped(const QString& text)
{
    // The ampersand comes first, since the other replacements bring new ones.
    static const struct
    {
        QLatin1String from;
        QLatin1String to;
    } kEscapes[] = {
        {QLatin1String("&"), QLatin1String("&amp;")},
        {QLatin1String(">"), QLatin1String("&gt;")},
        {QLatin1String("<"), QLatin1String("&lt;")},
        {QLatin1String("\""), QLatin1String("&quot;")},
        {QLatin1String("'"), QLatin1String("&#39;")},
        {QLatin1String("\n"), QLatin1String("<br>")},
        {QLatin1String("\r"), QLatin1String("<br>")},
    };
    QString escaped = text;
    for (const auto& escape : kEscapes)
        escaped.replace(escape.from, escape.to);
    return escaped;
}
