// SPDX-License-Identifier: Apache-2.0
#include "faults/FaultPlan.h"

#include <QHash>
#include <QRegularExpression>
#include <QStringList>

namespace {

// Reads the words of one rule; remembers the first thing that is wrong.
class RuleReader
{
public:
    explicit RuleReader(const QStringList& words)
        : m_words(words)
    {
    }

    QString take(const char* what)
    {
        if (m_words.isEmpty()) {
            fail(QStringLiteral("%1 is missing").arg(QLatin1String(what)));
            return QString();
        }
        return m_words.takeFirst();
    }
    qlonglong takeNumber(const char* what, qlonglong minimum, qlonglong maximum)
    {
        const QString word = take(what);
        bool ok = false;
        const qlonglong number = word.toLongLong(&ok, 0);
        if (!hasFailed() && (!ok || number < minimum || number > maximum))
            fail(QStringLiteral("\"%1\" is no %2").arg(word, QLatin1String(what)));
        return number;
    }
    std::string takeText(const char* what) { return take(what).toStdString(); }

    bool atEnd() const { return m_words.isEmpty(); }
    void fail(const QString& why)
    {
        if (m_error.isEmpty())
            m_error = why;
    }
    bool hasFailed() const { return !m_error.isEmpty(); }
    const QString& error() const { return m_error; }

private:
    QStringList m_words;
    QString m_error;
};

using Rule = FaultPlan::Rule;
using Reader = void (*)(RuleReader&, Rule&);

constexpr qlonglong kMaxMs = 600000;
constexpr qlonglong kMaxCode = 0xFFFFFFFFLL;
constexpr qlonglong kMaxCount = 1000000000;

void readNothing(RuleReader&, Rule&) {}

void readPattern(RuleReader& words, Rule& rule)
{
    rule.pattern = words.takeText("feature");
}

void readTime(RuleReader& words, Rule& rule)
{
    readPattern(words, rule);
    rule.milliseconds = static_cast<int>(words.takeNumber("number of milliseconds", 0, kMaxMs));
}

void readCode(RuleReader& words, Rule& rule)
{
    readPattern(words, rule);
    rule.code = static_cast<int>(words.takeNumber("error code", -kMaxCode, kMaxCode));
}

void readMode(RuleReader& words, Rule& rule)
{
    readPattern(words, rule);
    rule.code = static_cast<int>(words.takeNumber("access mode", -kMaxCode, kMaxCode));
}

void readNumber(RuleReader& words, Rule& rule)
{
    readPattern(words, rule);
    rule.number = words.takeNumber("number", std::numeric_limits<long>::min(),
                                   std::numeric_limits<long>::max());
}

void readLock(RuleReader& words, Rule& rule)
{
    readPattern(words, rule);
    if (words.take("\"by\"") != QLatin1String("by"))
        words.fail(QStringLiteral("\"by\" is missing"));
    rule.word = words.takeText("feature that locks");
}

void readTextFault(RuleReader& words, Rule& rule)
{
    readPattern(words, rule);
    const QString word = words.take("kind of text");
    if (word != QLatin1String("unterminated") && word != QLatin1String("empty"))
        words.fail(QStringLiteral("\"%1\" is no kind of text").arg(word));
    rule.word = word.toStdString();
}

struct Verb
{
    FaultPlan::Kind kind;
    Reader reader;
    long times;       // default of the condition
    bool conditional; // takes conditions
};

const QHash<QString, Verb>& verbs()
{
    constexpr long kAlways = FaultPlan::kAlways;
    static const QHash<QString, Verb> table{
        {QStringLiteral("latency"), {FaultPlan::Latency, readTime, kAlways, true}},
        {QStringLiteral("jitter"), {FaultPlan::Jitter, readTime, kAlways, true}},
        {QStringLiteral("hang"), {FaultPlan::Hang, readTime, 1, true}},
        {QStringLiteral("error"), {FaultPlan::Error, readCode, 1, true}},
        {QStringLiteral("vanish"), {FaultPlan::Vanish, readPattern, kAlways, true}},
        {QStringLiteral("value"), {FaultPlan::Value, readNumber, kAlways, true}},
        {QStringLiteral("lock"), {FaultPlan::Lock, readLock, kAlways, false}},
        {QStringLiteral("mode"), {FaultPlan::Mode, readMode, kAlways, true}},
        {QStringLiteral("range"), {FaultPlan::Range, readPattern, kAlways, true}},
        {QStringLiteral("entries"), {FaultPlan::Entries, readNumber, kAlways, true}},
        {QStringLiteral("text"), {FaultPlan::Text, readTextFault, kAlways, true}},
        {QStringLiteral("long-name"), {FaultPlan::LongName, readPattern, kAlways, false}},
        {QStringLiteral("long-text"), {FaultPlan::LongText, readPattern, kAlways, false}},
        {QStringLiteral("disconnect"), {FaultPlan::Disconnect, readNothing, 1, true}},
    };
    return table;
}

bool readOperation(RuleReader& words, Rule& rule)
{
    static const QHash<QString, unsigned> operations{
        {QStringLiteral("read"), FaultPlan::OnRead},
        {QStringLiteral("write"), FaultPlan::OnWrite},
        {QStringLiteral("mode"), FaultPlan::OnMode},
    };
    rule.operations = operations.value(words.take("kind of call"), 0);
    return rule.operations != 0;
}

// "min=1" and its like.
bool readRangePart(const QString& word, Rule& rule)
{
    static const QHash<QString, std::optional<double> Rule::*> parts{
        {QStringLiteral("min"), &Rule::minimum},
        {QStringLiteral("max"), &Rule::maximum},
        {QStringLiteral("inc"), &Rule::increment},
        {QStringLiteral("value"), &Rule::value},
    };
    const QString key = word.section(QLatin1Char('='), 0, 0);
    bool ok = false;
    const double number = word.section(QLatin1Char('='), 1).toDouble(&ok);
    if (!ok || !parts.contains(key))
        return false;
    rule.*parts.value(key) = number;
    return true;
}

void readConditions(RuleReader& words, Rule& rule)
{
    while (!words.atEnd() && !words.hasFailed()) {
        const QString word = words.take("condition");
        if (word == QLatin1String("on")) {
            if (!readOperation(words, rule))
                words.fail(QStringLiteral("\"on\" needs read, write or mode"));
        } else if (word == QLatin1String("after")) {
            rule.after = words.takeNumber("number of calls", 0, kMaxCount);
        } else if (word == QLatin1String("times")) {
            rule.times = words.takeNumber("number of calls", 1, kMaxCount);
        } else if (word == QLatin1String("once")) {
            rule.times = 1;
        } else if (word == QLatin1String("always")) {
            rule.times = FaultPlan::kAlways;
        } else if (rule.kind != FaultPlan::Range || !readRangePart(word, rule)) {
            words.fail(QStringLiteral("\"%1\" is not understood").arg(word));
        }
    }
}

// Empty when all is well.
QString readRule(const QString& line, FaultPlan& plan)
{
    RuleReader words(line.simplified().split(QLatin1Char(' ')));
    const QString name = words.take("rule");
    if (name == QLatin1String("seed")) {
        plan.seed = static_cast<unsigned>(words.takeNumber("seed", 0, kMaxCode));
    } else if (!verbs().contains(name)) {
        words.fail(QStringLiteral("there is no rule \"%1\"").arg(name));
    } else {
        const Verb verb = verbs().value(name);
        Rule rule;
        rule.kind = verb.kind;
        rule.times = verb.times;
        verb.reader(words, rule);
        if (verb.conditional)
            readConditions(words, rule);
        plan.rules.push_back(rule);
    }
    if (!words.hasFailed() && !words.atEnd())
        words.fail(QStringLiteral("\"%1\" is too much").arg(words.take("word")));
    return words.error();
}

} // namespace

bool FaultPlan::Rule::matches(const std::string& name) const
{
    if (pattern == "*" || pattern == name)
        return true;
    if (pattern.find_first_of("*?[") == std::string::npos)
        return false;
    const QRegularExpression expression(
        QRegularExpression::wildcardToRegularExpression(QString::fromStdString(pattern)));
    return expression.match(QString::fromStdString(name)).hasMatch();
}

std::optional<FaultPlan> FaultPlan::parse(const QString& text, QString* error)
{
    FaultPlan plan;
    int number = 0;
    for (QString line : text.split(QLatin1Char('\n'))) {
        ++number;
        line.truncate(line.contains(QLatin1Char('#')) ? line.indexOf(QLatin1Char('#'))
                                                      : line.size());
        for (const QString& rule : line.split(QLatin1Char(';'))) {
            if (rule.trimmed().isEmpty())
                continue;
            const QString wrong = readRule(rule, plan);
            if (wrong.isEmpty())
                continue;
            if (error)
                *error = QStringLiteral("line %1: %2").arg(number).arg(wrong);
            return std::nullopt;
        }
    }
    return plan;
}
