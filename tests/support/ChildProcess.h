// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QProcess>

// A program that a test starts. For QProcess itself Qt 5.15 calls clone() with CLONE_PIDFD, which
// qemu-user 7.2 refuses; for any class derived from it, plain fork().
class ChildProcess : public QProcess
{
};
