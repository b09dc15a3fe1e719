// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cameras/Camera.h"
#include "support/ChildProcess.h"

#include <QLockFile>
#include <QString>

#include <memory>

// A GigE Vision camera on the loopback interface: the fake camera program of Aravis in a process of
// its own. Waits its turn when another test uses the interface.
class FakeGigECamera
{
public:
    // With the description in a file, or with its own.
    explicit FakeGigECamera(const QString& descriptionFile = {});
    ~FakeGigECamera();

    // Empty when the needed programs are installed, else the reason to skip a test.
    static QString reasonToSkip();

    // False when the program does not answer.
    bool start();
    // Starts it and opens it as a host does; null when that fails, which is said as a warning.
    std::unique_ptr<Camera> open();
    // As if the cable were pulled.
    void kill();

    // A feature's value read by another program over the same protocol; empty when it fails.
    static QString readIndependently(const QString& feature);

    static QString address() { return QStringLiteral("127.0.0.1"); }
    QString serial() const { return m_serial; }

private:
    QLockFile m_lock;
    ChildProcess m_process;
    const QString m_serial;
    const QString m_descriptionFile;
};
