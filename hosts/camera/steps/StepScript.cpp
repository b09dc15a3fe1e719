// SPDX-License-Identifier: Apache-2.0
#include "steps/StepScript.h"

#include <QHash>
#include <QRegularExpression>
#include <QStringList>

namespace {

enum Argument { None, Some, Milliseconds, Size, Assignment };

const QHash<QString, Argument>& verbs()
{
    static const QHash<QString, Argument> table{
        {QStringLiteral("tab"), Some},     {QStringLiteral("select"), Some},
        {QStringLiteral("expand"), Some},  {QStringLiteral("collapse"), Some},
        {QStringLiteral("line"), Some},    {QStringLiteral("check"), Assignment},
        {QStringLiteral("file"), Some},    {QStringLiteral("set"), Assignment},
        {QStringLiteral("menu"), Some},    {QStringLiteral("press"), Some},
        {QStringLiteral("search"), Some},  {QStringLiteral("type"), Some},
        {QStringLiteral("key"), Some},     {QStringLiteral("scroll"), Some},
        {QStringLiteral("size"), Size},    {QStringLiteral("choose"), Assignment},
        {QStringLiteral("settle"), None},  {QStringLiteral("center"), None},
        {QStringLiteral("until"), Some},   {QStringLiteral("wait"), Milliseconds},
        {QStringLiteral("picture"), Some},
    };
    return table;
}

bool fits(Argument kind, const QString& argument)
{
    static const QHash<int, QRegularExpression> forms{
        {None, QRegularExpression(QStringLiteral("^$"))},
        {Some, QRegularExpression(QStringLiteral("."))},
        {Milliseconds, QRegularExpression(QStringLiteral("^\\d{1,6}$"))},
        {Size, QRegularExpression(QStringLiteral("^\\d{3,5}x\\d{3,5}$"))},
        {Assignment, QRegularExpression(QStringLiteral("^[^:]+:"))},
    };
    return forms.value(kind).match(argument).hasMatch();
}

} // namespace

std::optional<StepScript> StepScript::parse(const QString& text, QString* error)
{
    StepScript script;
    for (QString line : text.split(QLatin1Char('\n'))) {
        line.truncate(line.contains(QLatin1Char('#')) ? line.indexOf(QLatin1Char('#'))
                                                      : line.size());
        for (const QString& part : line.split(QLatin1Char(';'))) {
            if (part.trimmed().isEmpty())
                continue;
            const Step step{part.section(QLatin1Char('='), 0, 0).trimmed(),
                            part.section(QLatin1Char('='), 1).trimmed()};
            if (!verbs().contains(step.verb) || !fits(verbs().value(step.verb), step.argument)) {
                if (error)
                    *error = QStringLiteral("\"%1\" is not understood").arg(part.trimmed());
                return std::nullopt;
            }
            script.steps.push_back(step);
        }
    }
    return script;
}
