// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDeadlineTimer>
#include <QTest>

#ifndef OBFT_TEST_TIMEOUT_FACTOR
#define OBFT_TEST_TIMEOUT_FACTOR 1
#endif

// How long a test waits for what the whole window takes a while to do, on a loaded machine. Under
// an emulator it waits longer, as ctest does.
constexpr int kWindowPatienceMs = 20000 * OBFT_TEST_TIMEOUT_FACTOR;

// Lets events pass, a little at a time, until the patience is over.
class Patience
{
public:
    bool isLeft()
    {
        QTest::qWait(5);
        return !m_end.hasExpired();
    }

private:
    QDeadlineTimer m_end{kWindowPatienceMs};
};

// As QTRY_VERIFY and QTRY_COMPARE with that patience, but what holds once is not looked at a second
// time: a worker may move what the camera has the moment after.
#define OBFT_TRY_VERIFY(condition) OBFT_TRY(condition, QVERIFY(condition))
#define OBFT_TRY_COMPARE(actual, expected)                                                         \
    OBFT_TRY((actual) == (expected), QCOMPARE(actual, expected))
#define OBFT_TRY(condition, complain)                                                              \
    do {                                                                                           \
        Patience patience;                                                                         \
        bool holds = false;                                                                        \
        while (!(holds = (condition)) && patience.isLeft()) {                                      \
        }                                                                                          \
        if (!holds)                                                                                \
            complain;                                                                              \
    } while (false)
