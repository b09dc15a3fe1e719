// SPDX-License-Identifier: Apache-2.0
#include "model/KeywordHtml.h"

#include "device/HtmlEscape.h"
#include "styledctl/ZELCustom.h"

#include <QFont>

namespace KeywordHtml {

namespace {

QString span(const QString& colour, const QString& text)
{
    return QLatin1String("<span style=\" color:") + colour +
           QLatin1String("; font-size:14px;font-family:Microsoft yahei ;font-weight:400\">") +
           text + QLatin1String("</span>");
}

} // namespace

QString mark(const QString& text, const QString& keyword)
{
    // Where that font is not installed, marked names must not look different from the others.
    static const bool substituted = [] {
        QFont::insertSubstitution(QStringLiteral("Microsoft yahei"), ZELCustom::globalFontFamily());
        return true;
    }();
    Q_UNUSED(substituted)
    static const QString normal =
        ZELCustom::getDataBaseColor(QStringLiteral("CommonColor_FeatureTree_Font")).name();
    static const QString marked =
        ZELCustom::getDataBaseColor(QStringLiteral("CommonColor_PushButton_Bottom_Border")).name();
    const QString source = htmlEscaped(text);
    QString html;
    int from = 0;
    int found = keyword.isEmpty() ? -1 : int(source.indexOf(keyword, 0, Qt::CaseInsensitive));
    while (found >= 0) {
        if (found > from)
            html += span(normal, source.mid(from, found - from));
        html += span(marked, source.mid(found, keyword.size()));
        from = found + int(keyword.size());
        found = int(source.indexOf(keyword, from, Qt::CaseInsensitive));
    }
    if (from < source.size())
        html += span(normal, source.mid(from));
    return html;
}

} // namespace KeywordHtml
