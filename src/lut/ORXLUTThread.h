// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lut/LUTPoint.h"
#include "lut/LUTTransferReport.h"
#include "reading/SerialWorker.h"

// One table to be read or written.
struct LUTJob
{
    int type = 0; // ORXLUTThread::ThreadType
    qint64 cameraId = -1;
    LUTPoints points; // to be written
};

// Carries look-up tables from and to the camera, point by point over "LUTIndex" and "LUTValue".
// Owned by QLUTDrawWidget.
//
// | operation                                    | thread | lock                             |
// |----------------------------------------------|--------|----------------------------------|
// | SetThreadType, setPointVector, startJob,     | GUI    | the worker's, inside             |
// | resetCameraID, requestStop, StopThread       |        |                                  |
// | points, takeReport, isBusy                   | any    | the worker's, inside             |
// | everything else                              | worker | none while it calls the host     |
// | signals                                      | emitted by the worker; connect queued     |
//
// A job never holds up the GUI thread: what has to wait for the running job is kept and run after
// it. Only StopThread waits.
class ORXLUTThread : public SerialWorker<LUTJob>
{
    Q_OBJECT
public:
    enum ThreadType {
        LoadFromCamera = 0,
        SetToCamera = 1,
        ReloadFromCamera = 2 // after setting
    };

    explicit ORXLUTThread(QObject* parent = nullptr);
    ~ORXLUTThread() override;

    // Prepares a job. False when one of the same type runs or waits already; a job of another type
    // runs after the present one.
    bool SetThreadType(int type);
    // The table that the prepared job writes.
    void setPointVector(const LUTPoints& points);
    // Starts the prepared job now or after the running one.
    void startJob();

    // Ends every job: they belong to the camera before. The same camera again changes nothing.
    void resetCameraID(qint64 cameraId);
    // As SerialWorker's; what waited has ended then, too.
    void requestStop() override;
    // As requestStop(), and waits for the host's call in progress, without limit; a call that takes
    // long is reported in the log.
    void StopThread() { stopAndWait(); }
    // The table that was read last from the present camera; empty when there is none.
    LUTPoints points() const;
    // The oldest report that nobody has taken; one for each SigReport.
    LUTTransferReport takeReport();

    // Device access; false when the host refuses. The values are the host's, unchecked.
    bool GetLutIndex(long long& value, long long& maximum, long long& minimum);
    bool SetLutIndex(long long value);
    bool GetLutValue(long long& value, long long& maximum, long long& minimum);
    bool SetLutValue(long long value);

signals:
    // First that there is a report of a job, then the signals of its kind.
    void SigReport();
    void SigProgress(int done, int total);
    void SigUpdateLUTInfo(int maximumIndex, int maximumValue, float xScale, float yScale);
    void SigLoadFromCameraFinished();
    void SigSetToCameraFinished();
    void SigThreadEnd();

protected:
    void work(LUTJob& job) override;
    void jobEnded() override;

private:
    void GetPointFromCamera();
    void GetPointGroup(int maximumIndex, int maximumValue);
    void SetPointToCamera();
    bool publish(const LUTPoints& points);
    void countPoint();
    void fileReport();

    // Guarded by the worker's lock.
    LUTJob m_prepared;
    qint64 m_lCameraID = -1;
    LUTPoints m_points;
    std::deque<LUTTransferReport> m_reports; // not taken yet

    // The worker's own.
    const LUTJob* m_pJob = nullptr; // the running one. Not owned.
    LUTTransferReport m_report;
    float m_fXScale = 0.0F; // pixels for each index and value
    float m_fYScale = 0.0F;
};
