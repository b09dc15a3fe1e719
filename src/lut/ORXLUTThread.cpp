// SPDX-License-Identifier: Apache-2.0
#include "lut/ORXLUTThread.h"

#include "lut/LUTPlot.h"
#include "lut/LUTTransfer.h"

#include <QDebug>

#include <algorithm>

ORXLUTThread::ORXLUTThread(QObject* parent)
    : SerialWorker("LUT", parent)
{
}

ORXLUTThread::~ORXLUTThread()
{
    finish();
}

// Jobs --------------------------------------------------------------------------------------------

// A request of another type waits for the running job, but never here: the camera may take minutes
// for a table, and this is the GUI thread. The job is kept until the worker comes to it.
bool ORXLUTThread::SetThreadType(int type)
{
    return locked([&](const Waiting& waiting, const LUTJob* running) {
        const bool waits = std::any_of(waiting.cbegin(), waiting.cend(),
                                       [type](const LUTJob& job) { return job.type == type; });
        if (waits || (running && !stopRequested() && running->type == type))
            return false;
        m_prepared = {type, m_lCameraID, {}};
        return true;
    });
}

void ORXLUTThread::setPointVector(const LUTPoints& points)
{
    locked([&](Waiting&, LUTJob*) { m_prepared.points = points; });
}

void ORXLUTThread::startJob()
{
    post(locked([this](Waiting&, LUTJob*) { return m_prepared; }));
}

void ORXLUTThread::resetCameraID(qint64 cameraId)
{
    const bool another = locked([&](Waiting&, LUTJob*) {
        if (cameraId == m_lCameraID)
            return false;
        m_lCameraID = cameraId;
        m_points.clear();
        return true;
    });
    if (another)
        requestStop();
}

// The worker reports no end of jobs that are dropped before it came to them.
void ORXLUTThread::requestStop()
{
    const bool onlyWaiting = locked(
        [](const Waiting& waiting, const LUTJob* running) { return !running && !waiting.empty(); });
    SerialWorker::requestStop();
    if (onlyWaiting)
        emit SigThreadEnd();
}

LUTPoints ORXLUTThread::points() const
{
    return locked([this](const Waiting&, const LUTJob*) { return m_points; });
}

LUTTransferReport ORXLUTThread::takeReport()
{
    return locked([this](Waiting&, LUTJob*) {
        if (m_reports.empty())
            return LUTTransferReport();
        const LUTTransferReport report = m_reports.front();
        m_reports.pop_front();
        return report;
    });
}

// Worker ------------------------------------------------------------------------------------------

void ORXLUTThread::work(LUTJob& job)
{
    LUTTransfer transfer(stopRequest(),
                         [this](int done, int total) { emit SigProgress(done, total); });
    const bool sets = job.type == SetToCamera;
    if (sets)
        transfer.SetPointToCamera(job.points);
    else
        transfer.GetPointFromCamera();
    LUTTransferReport report = transfer.report();
    report.type = job.type;
    report.cameraId = job.cameraId;
    if (!sets && report.outcome == LUTTransferReport::Completed && !publish(job, transfer))
        report.outcome = LUTTransferReport::Stopped;
    if (!sets && report.outcome == LUTTransferReport::Stopped)
        qInfo("LUT: reading stopped after %d of %d points", report.done, report.total);
    locked([&](Waiting&, LUTJob*) { m_reports.push_back(report); });
    emit SigReport();
    if (sets)
        emit SigSetToCameraFinished();
    else if (job.type == LoadFromCamera)
        emit SigLoadFromCameraFinished();
}

void ORXLUTThread::jobEnded()
{
    emit SigThreadEnd();
}

// False when the table is that of a camera that is no longer shown.
bool ORXLUTThread::publish(const LUTJob& job, const LUTTransfer& read)
{
    const bool isShown = locked([&](Waiting&, LUTJob*) {
        if (job.cameraId != m_lCameraID)
            return false;
        m_points = read.points();
        return true;
    });
    constexpr float kScaledPx = LUTPlot::kSizePx - 1.0F;
    if (isShown)
        emit SigUpdateLUTInfo(read.maximumIndex(), read.maximumValue(),
                              kScaledPx / static_cast<float>(read.maximumIndex()),
                              kScaledPx / static_cast<float>(read.maximumValue()));
    return isShown;
}
