// SPDX-License-Identifier: Apache-2.0
#include "reading/ThreadWait.h"

#include "reading/ThreadAnnotations.h"

#include <QDebug>
#include <QThread>

namespace {

constexpr unsigned long kReportWaitingAfterMs = 1000;

} // namespace

void waitForThread(QThread& thread, const char* who)
{
    if (!thread.wait(kReportWaitingAfterMs)) {
        qInfo("%s: waiting for a call of the host to return", who);
        thread.wait();
    }
    OBFT_HAPPENS_AFTER(&thread);
}
