// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "pages/ORXRWCCMValue.h"

#include <QString>
#include <QThread>

#include <array>
#include <atomic>
#include <functional>

// Reads the nine coefficients of the colour correction matrix, from the camera or from the settings
// file. Belongs to one ORXCCMWidget, which gives it up with abandon(): a call of the host may hang
// longer than the widget lives.
//
// The camera shows its coefficients through a selector, and only while the standard transformation
// is off. Both are put back after the last coefficient, also after a failure or a stop. One thread
// of this class reads at a time.
//
// | operation                            | thread                              | lock |
// |--------------------------------------|-------------------------------------|------|
// | run                                  | its own                             | none |
// | requestStop, isStopRequested         | any (atomic)                        | none |
// | result()                             | GUI, between finished() and start() | none |
// | everything else                      | GUI                                 | none |
class ORXCCMUpdateThread : public QThread
{
    Q_OBJECT
public:
    struct Result
    {
        bool complete = false; // false: nothing below is worth anything
        bool enabled = false;
        std::array<float, ORXRWCCMValue::kCoefficients> values{}; // device mode
        float minimum = 0.0F;
        float maximum = 0.0F;
        ORXRWCCMValue::Coefficients coefficients = ORXRWCCMValue::identity(); // file mode
        QString settingsName;
        QString fault; // English, for the log
    };

    ORXCCMUpdateThread(qint64 cameraId, bool deviceMode);

    // Starts reading; not while it reads.
    void startReading();
    void requestStop() { m_bStop = true; }
    bool isStopRequested() const { return m_bStop; }
    // To be called instead of delete: destroys the thread now, or when its run has ended.
    void abandon();
    const Result& result() const;
    void setEnabledFlag(bool enabled) { m_result.enabled = enabled; }

    // Stops all threads of this class; returns when none calls the host any more.
    static void stopAll();

protected:
    void run() override;

private:
    ~ORXCCMUpdateThread() override;

    void onFinished();
    void readFile();
    bool readDevice();
    bool readCoefficients();
    bool fail(const QString& fault);

    const qint64 m_lCameraID;
    const bool m_bDeviceMode;
    std::atomic<bool> m_bStop{false};
    bool m_bAbandoned = false;
    Result m_result;
};
