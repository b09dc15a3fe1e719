// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QSignalSpy>
#include <QTest>
#include <QTimer>

// Lets a timer of 1 ms run out twenty times, with events processed, for tests that show that
// nothing happens any more. False when that does not come about.
inline bool twentyPeriodsPass()
{
    QTimer timer;
    const QSignalSpy spy(&timer, &QTimer::timeout);
    timer.start(1);
    return QTest::qWaitFor([&] { return spy.count() >= 20; }, 20000);
}
