// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/ChildProcess.h"

#include <QLockFile>
#include <QString>

// A GigE Vision camera on the loopback interface: the fake camera program of Aravis in a process of
// its own. Waits its turn when another test uses the interface.
class FakeGigECamera
{
public:
    FakeGigECamera();
    ~FakeGigECamera();

    // Empty when the needed programs are installed, else the reason to skip a test.
    static QString reasonToSkip();

    // False when the program does not answer.
    bool start();
    // As if the cable were pulled.
    void kill();

    // A feature's value read by another program over the same protocol; empty when it fails.
    static QString readIndependently(const QString& feature);

    static QString address() { return QStringLiteral("127.0.0.1"); }
    QString serial() const { return m_serial; }

private:
    QLockFile m_lock;
    ChildProcess m_process;
    QString m_serial;
};
