// SPDX-License-Identifier: Apache-2.0
#include "steps/StepRunner.h"

#include "steps/WindowPicture.h"

#include <QTimer>

#include <utility>

namespace {

constexpr int kPauseMs = 150;  // between steps: time to lay out and paint
constexpr int kMostMs = 30000; // that a step "until" waits
constexpr int kReadingMs = 4500;

// What these need may come when the camera was read.
bool comesWithReading(const QString& verb)
{
    return verb == QLatin1String("set") || verb == QLatin1String("line") ||
           verb == QLatin1String("check");
}

} // namespace

StepRunner::StepRunner(const StepScript& script, std::function<bool()> isSettled, QObject* parent)
    : QObject(parent)
    , m_script(script)
    , m_isSettled(std::move(isSettled))
{
}

void StepRunner::start()
{
    QTimer::singleShot(0, this, &StepRunner::runNext);
}

void StepRunner::runNext()
{
    if (m_ended)
        return;
    if (m_next == m_script.steps.size()) {
        end(QString());
        return;
    }
    const StepScript::Step& step = m_script.steps[m_next];
    if (step.verb == QLatin1String("settle") && !m_isSettled()) {
        QTimer::singleShot(kPauseMs, this, &StepRunner::runNext);
        return;
    }
    if (step.verb == QLatin1String("until") && !StepActor::isSaid(step.argument)) {
        if (++m_tries * kPauseMs > kMostMs) {
            end(QStringLiteral("until=%1: nobody says so").arg(step.argument));
            return;
        }
        QTimer::singleShot(kPauseMs, this, &StepRunner::runNext);
        return;
    }
    ++m_next;
    // Before the step itself, which may not return for as long as a dialog is open.
    const bool wait = step.verb == QLatin1String("wait");
    QTimer::singleShot(wait ? step.argument.toInt() : kPauseMs, this, &StepRunner::runNext);
    QString error;
    if (step.verb == QLatin1String("picture"))
        WindowPicture::save(step.argument, &error);
    else if (!wait && step.verb != QLatin1String("settle") && step.verb != QLatin1String("until"))
        error = m_actor.act(step);
    if (!error.isEmpty() && comesWithReading(step.verb) && ++m_tries * kPauseMs <= kReadingMs) {
        --m_next;
        return;
    }
    m_tries = 0;
    if (!error.isEmpty())
        end(QStringLiteral("%1=%2: %3").arg(step.verb, step.argument, error));
}

void StepRunner::end(const QString& error)
{
    if (m_ended)
        return;
    m_ended = true;
    Q_EMIT finished(error);
}
