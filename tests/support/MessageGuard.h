// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRegularExpression>
#include <QStringList>

// Turns every warning, critical or fatal log line that a test did not announce into a test failure.
// GuardedTest installs it in front of Qt Test's own handler, so MessageGuard::ignoreMessage() does
// not work with it; the operations here take its place. Thread-safe.
namespace MessageGuard {

// Installs the handler, once.
void install();

// Announces one line of the type, exactly this text or matching the pattern. It is swallowed; a
// test function that ends without it fails.
void ignoreMessage(QtMsgType type, const char* text);
void ignoreMessage(QtMsgType type, const QRegularExpression& pattern);

// Lets lines of any level that contain `part` pass until the end of the running test function.
void expectMessage(const QString& part);

// All lines, of every level, since the start of the running test function.
QStringList messages();

// True when at least one line since the start of the test function contains `part`.
bool contains(const QString& part);

// Ends a test function: returns what was wrong (lines that nobody announced, announced ones that
// did not come) and forgets everything.
QStringList takeFaults();

} // namespace MessageGuard
