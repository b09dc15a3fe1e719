// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "program/ExitCode.h"
#include "program/HostCallbacks.h"
#include "program/HostOptions.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <future>
#include <memory>

class Camera;
class StepRunner;

// One run of the feature window on one camera: opens the window, waits for the first read, runs the
// script, takes the picture, brings a lost camera back. Owned by main(); GUI thread.
class HostSession : public QObject
{
    Q_OBJECT
public:
    // `camera` is not owned and must outlive this object. With `unattended` the session ends by
    // itself after the first read, the steps and the picture.
    HostSession(Camera& camera, const HostOptions& options, bool unattended);
    ~HostSession() override;

    // Opens the window. Afterwards run the event loop: the session leaves it with an ExitCode.
    void start();

private:
    void openWindow();
    void onAction(int action);
    void onTick();
    void watchFirstRead();
    void watchConnection();
    void runSteps();
    void finish(const QString& error);
    void report() const;

    Camera& m_camera; // Not owned.
    const HostOptions m_options;
    const bool m_unattended;
    HostCallbacks m_callbacks;
    std::unique_ptr<StepRunner> m_steps;
    std::future<int> m_reconnecting;
    QTimer m_tick;
    QElapsedTimer m_sinceStart;
    qint64 m_firstReadMs = -1;
    bool m_windowOpen = false;
    bool m_cameraIsBack = false; // and the window still shows what was before
    bool m_reopening = false;    // the window goes away because the host replaces it
};
