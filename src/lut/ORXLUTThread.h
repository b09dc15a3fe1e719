// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lut/LUTPoint.h"
#include "lut/LUTTransferReport.h"
#include "reading/SerialWorker.h"

class LUTTransfer;

// One table to be read or written.
struct LUTJob
{
    int type = 0; // ORXLUTThread::ThreadType
    qint64 cameraId = -1;
    LUTPoints points; // to be written
};

// The worker that carries look-up tables from and to the camera, each by a LUTTransfer. Owned by
// LUTCameraTransfer.
//
// | operation                                    | thread | lock                             |
// |----------------------------------------------|--------|----------------------------------|
// | SetThreadType, setPointVector, startJob,     | GUI    | the worker's, inside             |
// | resetCameraID, requestStop, StopThread       |        |                                  |
// | points, takeReport, isBusy                   | any    | the worker's, inside             |
// | work, jobEnded                               | worker | none while it calls the host     |
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
    bool publish(const LUTJob& job, const LUTTransfer& read);

    // Guarded by the worker's lock.
    LUTJob m_prepared;
    qint64 m_lCameraID = -1;
    LUTPoints m_points;
    std::deque<LUTTransferReport> m_reports; // not taken yet
};
