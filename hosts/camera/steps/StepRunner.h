// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "steps/StepActor.h"
#include "steps/StepScript.h"

#include <QObject>

#include <functional>

// Runs a script step by step from timers, so that it goes on inside the event loop of a dialog that
// one of its steps has opened. GUI thread.
class StepRunner : public QObject
{
    Q_OBJECT
public:
    // `isSettled` tells whether nothing new is being read; asked while a step "settle" runs.
    StepRunner(const StepScript& script, std::function<bool()> isSettled,
               QObject* parent = nullptr);

    void start();

Q_SIGNALS:
    // Once; `error` is empty when all steps were done, else it tells which one failed and why.
    void finished(const QString& error);

private:
    void runNext();
    void end(const QString& error);

    const StepScript m_script;
    const std::function<bool()> m_isSettled;
    StepActor m_actor;
    std::size_t m_next = 0;
    int m_tries = 0; // of the step that waits
    bool m_ended = false;
};
