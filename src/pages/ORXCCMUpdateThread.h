// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "pages/ORXRWCCMValue.h"

#include <QString>
#include <QThread>

#include <array>
#include <atomic>
#include <mutex>

class QMutex;

// Reads the nine coefficients of the colour correction matrix, from the camera or from the settings
// file. Belongs to one ORXCCMWidget, which gives it up with abandon(): a call of the host may hang
// longer than the widget lives.
//
// The camera shows its coefficients through a selector, and only while the standard transformation
// is off. Both are put back after the last coefficient, also after a failure or a stop. Meanwhile
// the tree's feature mutex is held, so that no reading pass takes a coefficient for that of the
// selected entry, and no second thread of this class moves the selector.
//
// | operation                            | thread       | lock                                   |
// |--------------------------------------|--------------|----------------------------------------|
// | run                                  | its own      | the feature mutex; m_mutex at its end  |
// | requestStop, isStopRequested         | any (atomic) | none                                   |
// | result, setEnabledFlag               | any          | m_mutex, inside                        |
// | everything else                      | GUI          | none                                   |
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

    // Starts reading; not while it reads. `featureMutex` is that of the camera's tree, not owned,
    // and must live until the end or stopAll(). Null when there is no tree: then nothing is read.
    void startReading(QMutex* featureMutex);
    void requestStop() { m_bStop = true; }
    bool isStopRequested() const { return m_bStop; }
    // To be called instead of delete: destroys the thread now, or when its run has ended.
    void abandon();
    // What the last run has found.
    Result result() const;
    void setEnabledFlag(bool enabled);

    // Stops all threads of this class; returns when none calls the host any more.
    static void stopAll();

protected:
    void run() override;

private slots:
    void onFinished();

private:
    ~ORXCCMUpdateThread() override;

    void destroy();
    static void readFile(Result& result);
    bool readDevice(Result& result) const;
    bool readCoefficients(Result& result) const;

    const qint64 m_lCameraID;
    const bool m_bDeviceMode;
    std::atomic<bool> m_bStop{false};
    bool m_bAbandoned = false;
    QMutex* m_pFeatureMutex = nullptr; // Not owned.
    mutable std::mutex m_mutex;
    Result m_result; // guarded by m_mutex
};
