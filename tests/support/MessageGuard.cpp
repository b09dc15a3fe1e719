// SPDX-License-Identifier: Apache-2.0
#include "support/MessageGuard.h"

#include <QtGlobal>

#include <algorithm>
#include <mutex>
#include <vector>

namespace {

struct Announced
{
    QtMsgType type;
    QRegularExpression pattern;
};

struct State
{
    std::mutex mutex;
    QStringList expected;
    QStringList all;
    QStringList unexpected;
    std::vector<Announced> announced;
    QtMessageHandler previous = nullptr;
    bool installed = false;
};

State& state()
{
    static State s;
    return s;
}

bool matchesAny(const QStringList& parts, const QString& text)
{
    for (const QString& part : parts) {
        if (text.contains(part))
            return true;
    }
    return false;
}

// What Qt's offscreen platform says of every window; no fault of the code under test.
const QLatin1String kOffscreenPlatform("This plugin does not support");

void handle(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    QtMessageHandler previous = nullptr;
    {
        State& s = state();
        const std::lock_guard<std::mutex> lock(s.mutex);
        s.all.append(text);
        const auto found =
            std::find_if(s.announced.begin(), s.announced.end(), [&](const Announced& each) {
                return each.type == type && each.pattern.match(text).hasMatch();
            });
        if (found != s.announced.end()) {
            s.announced.erase(found);
            return;
        }
        if (text.startsWith(kOffscreenPlatform))
            return;
        const bool serious = type != QtDebugMsg && type != QtInfoMsg;
        if (serious && matchesAny(s.expected, text))
            return;
        if (serious)
            s.unexpected.append(text);
        previous = s.previous;
    }
    if (previous)
        previous(type, context, text);
}

} // namespace

namespace MessageGuard {

void install()
{
    if (state().installed)
        return;
    state().installed = true;
    state().previous = qInstallMessageHandler(handle);
}

void ignoreMessage(QtMsgType type, const char* text)
{
    const QString exact = QRegularExpression::escape(QString::fromUtf8(text));
    ignoreMessage(type, QRegularExpression(QLatin1String("\\A") + exact + QLatin1String("\\z")));
}

void ignoreMessage(QtMsgType type, const QRegularExpression& pattern)
{
    const std::lock_guard<std::mutex> lock(state().mutex);
    state().announced.push_back({type, pattern});
}

void expectMessage(const QString& part)
{
    const std::lock_guard<std::mutex> lock(state().mutex);
    state().expected.append(part);
}

QStringList messages()
{
    const std::lock_guard<std::mutex> lock(state().mutex);
    return state().all;
}

bool contains(const QString& part)
{
    const QStringList lines = messages();
    for (const QString& line : lines) {
        if (line.contains(part))
            return true;
    }
    return false;
}

QStringList takeFaults()
{
    const std::lock_guard<std::mutex> lock(state().mutex);
    QStringList faults;
    for (const QString& line : qAsConst(state().unexpected))
        faults.append(QStringLiteral("unexpected log line: ") + line);
    for (const Announced& missing : state().announced)
        faults.append(QStringLiteral("log line did not come: ") + missing.pattern.pattern());
    state().unexpected.clear();
    state().announced.clear();
    state().expected.clear();
    state().all.clear();
    return faults;
}

} // namespace MessageGuard
