// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ccm/ORXRWCCMValue.h"
#include "reading/SerialWorker.h"

#include <QString>

#include <array>

class FeatureMutex;

// One reading of a matrix.
struct CCMJob
{
    FeatureMutex* featureMutex = nullptr; // Not owned; may be null.
};

// Reads the nine coefficients of the colour correction matrix, from the camera or from the settings
// file. Owned by a ColorMatrix.
//
// The camera shows its coefficients through a selector, and only while the standard transformation
// is off. Both are put back after the last coefficient, also after a failure or a stop. Meanwhile
// the tree's feature mutex is held, so that no reading pass takes a coefficient for that of the
// selected entry; as long as the transformation need not be touched, a pass that waits gets its
// turn between two coefficients, with the selector put back.
//
// | operation              | thread       | lock                                             |
// |------------------------|--------------|--------------------------------------------------|
// | startReading           | GUI          | the worker's, inside                             |
// | result                 | any          | the worker's, inside                             |
// | work                   | its own      | the feature mutex; the worker's at its end       |
// | SigJobEnded            | emitted by the worker; connect queued                           |
class ORXCCMUpdateThread : public SerialWorker<CCMJob>
{
    Q_OBJECT
public:
    struct Result
    {
        bool complete = false; // everything was read
        bool stopped = false;  // told to stop before everything was read
        bool enabled = false;
        std::array<float, ORXRWCCMValue::kCoefficients> values{}; // of the camera
        float minimum = 0.0F;                                     // of the values
        float maximum = 0.0F;
        ORXRWCCMValue::Coefficients coefficients = ORXRWCCMValue::identity(); // of the file
        QString settingsName; // of the file; empty until it was asked for
        QString fault;        // English, for the log
    };

    // `deviceMode`: the matrix lives in the camera, not in the settings file.
    explicit ORXCCMUpdateThread(bool deviceMode);
    ~ORXCCMUpdateThread() override;

    void startReading(FeatureMutex* featureMutex);
    // Of the last reading that ended.
    Result result() const;

signals:
    void SigJobEnded();

protected:
    void work(CCMJob& job) override;
    void jobEnded() override;

private:
    void readFile(Result& result) const;
    bool readDevice(Result& result, FeatureMutex* featureMutex) const;
    bool readCoefficients(Result& result, class FeatureLock& lock, bool mayGiveWay) const;

    const bool m_bDeviceMode;
    Result m_result; // guarded by the worker's lock
};
