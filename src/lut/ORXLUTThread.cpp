// SPDX-License-Identifier: Apache-2.0
#include "lut/ORXLUTThread.h"

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

// Of jobs that are dropped before the worker came to them nobody else would tell the end.
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
    m_pJob = &job;
    m_report = {job.type, job.cameraId, 0, 0, LUTTransferReport::Failed};
    if (job.type == SetToCamera) {
        SetPointToCamera();
        fileReport();
        emit SigSetToCameraFinished();
        return;
    }
    GetPointFromCamera();
    fileReport();
    if (job.type == LoadFromCamera)
        emit SigLoadFromCameraFinished();
}

void ORXLUTThread::jobEnded()
{
    emit SigThreadEnd();
}

void ORXLUTThread::fileReport()
{
    locked([this](Waiting&, LUTJob*) { m_reports.push_back(m_report); });
    emit SigReport();
}
