// SPDX-License-Identifier: Apache-2.0
#include "pages/ORXLUTThread.h"

#include "reading/ThreadAnnotations.h"
#include "reading/ThreadWait.h"

#include <QDebug>

#include <algorithm>

namespace {

} // namespace

ORXLUTThread::ORXLUTThread(QObject* parent)
    : QThread(parent)
{
}

ORXLUTThread::~ORXLUTThread()
{
    StopThread();
}

// Jobs --------------------------------------------------------------------------------------------

// A request of another type waits for the running job, but never here: the camera may take minutes
// for a table, and this is the GUI thread. The job is kept until the worker comes to it.
bool ORXLUTThread::SetThreadType(int type)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const bool waits = std::any_of(m_waiting.cbegin(), m_waiting.cend(),
                                   [type](const Job& job) { return job.type == type; });
    if (waits || (m_bRunning && !m_bStop && m_nThreadType == type))
        return false;
    m_prepared = {type, m_lCameraID, {}};
    return true;
}

void ORXLUTThread::setPointVector(const LUTPoints& points)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_prepared.points = points;
}

void ORXLUTThread::startJob()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_waiting.push_back(m_prepared);
        if (m_bActive)
            return;
        m_bActive = true;
    }
    // The thread has taken its last look at the waiting jobs and is about to end; a start that came
    // before that end would be lost.
    if (isRunning())
        wait();
    OBFT_HAPPENS_AFTER(this);
    start(QThread::InheritPriority);
}

void ORXLUTThread::resetCameraID(qint64 cameraId)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (cameraId == m_lCameraID)
            return;
        m_lCameraID = cameraId;
        m_points.clear();
    }
    requestStop();
}

void ORXLUTThread::requestStop()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_waiting.clear();
    m_bStop = true;
}

void ORXLUTThread::StopThread()
{
    requestStop();
    waitForThread(*this, "LUT");
}

bool ORXLUTThread::isBusy() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_bRunning || !m_waiting.empty();
}

LUTPoints ORXLUTThread::points() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_points;
}

LUTTransferReport ORXLUTThread::takeReport()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_reports.empty())
        return {};
    const LUTTransferReport report = m_reports.front();
    m_reports.pop_front();
    return report;
}

// Worker ------------------------------------------------------------------------------------------

bool ORXLUTThread::takeJob()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_waiting.empty()) {
        m_bActive = false;
        return false;
    }
    m_job = m_waiting.front();
    m_waiting.pop_front();
    m_nThreadType = m_job.type;
    m_bRunning = true;
    m_bStop = false;
    return true;
}

void ORXLUTThread::run()
{
    bool any = false;
    while (takeJob()) {
        any = true;
        runJob();
        ExitThread();
    }
    // The only job may have been dropped before the thread came to it.
    if (!any)
        emit SigThreadEnd();
    OBFT_HAPPENS_BEFORE(this);
}

void ORXLUTThread::runJob()
{
    m_report = {m_job.type, m_job.cameraId, 0, 0, LUTTransferReport::Failed};
    if (m_job.type == SetToCamera) {
        SetPointToCamera();
        fileReport();
        emit SigSetToCameraFinished();
        return;
    }
    GetPointFromCamera();
    fileReport();
    if (m_job.type == LoadFromCamera)
        emit SigLoadFromCameraFinished();
}

void ORXLUTThread::fileReport()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_reports.push_back(m_report);
    }
    emit SigReport();
}

void ORXLUTThread::ExitThread()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_bRunning = false;
    }
    emit SigThreadEnd();
}
