// SPDX-License-Identifier: Apache-2.0
#include "lut/LUTCameraTransfer.h"

#include "lut/LUTMessage.h"
#include "styledctl/ZELCustomLoadingDialog.h"
#include "styledctl/ZELCustomMessageBox.h"

#include <QEvent>

namespace {

// Not one of the trees' numbers: the end of a pass must not hide this sign.
constexpr int kLoadingIndex = -2;

} // namespace

LUTCameraTransfer::LUTCameraTransfer(QWidget* editor, LUTMessage& message)
    : m_pEditor(editor)
    , m_message(message)
{
    const auto hear = [this](auto signal, auto slot) {
        connect(&m_thread, signal, this, slot, Qt::QueuedConnection);
    };
    hear(&ORXLUTThread::SigUpdateLUTInfo, &LUTCameraTransfer::SigUpdateLUTInfo);
    hear(&ORXLUTThread::SigLoadFromCameraFinished, &LUTCameraTransfer::OnFinshLoadFromCamera);
    hear(&ORXLUTThread::SigSetToCameraFinished, &LUTCameraTransfer::OnFinishSetToCamera);
    hear(&ORXLUTThread::SigThreadEnd, &LUTCameraTransfer::OnThreadEnd);
    hear(&ORXLUTThread::SigReport, &LUTCameraTransfer::OnReport);
    hear(&ORXLUTThread::SigProgress, &LUTCameraTransfer::OnProgress);
}

LUTCameraTransfer::~LUTCameraTransfer()
{
    // The editor may be half gone already.
    blockSignals(true);
    end();
}

// Requests ----------------------------------------------------------------------------------------

void LUTCameraTransfer::LoadFromCamera(int points)
{
    if (!m_thread.SetThreadType(ORXLUTThread::LoadFromCamera))
        return;
    begin(points);
    m_thread.startJob();
}

void LUTCameraTransfer::SetToCamera(const LUTPoints& points)
{
    if (!m_thread.SetThreadType(ORXLUTThread::SetToCamera))
        return;
    begin(int(points.size()));
    m_thread.setPointVector(points);
    m_thread.startJob();
}

void LUTCameraTransfer::resetCameraID(qint64 cameraId)
{
    m_lCameraID = cameraId;
    m_thread.resetCameraID(cameraId);
}

void LUTCameraTransfer::StopTransfer(bool wait)
{
    m_bStopped = true;
    if (wait)
        m_thread.StopThread();
    else
        m_thread.requestStop();
}

// In progress -------------------------------------------------------------------------------------

void LUTCameraTransfer::begin(int total)
{
    m_bStopped = false;
    OnProgress(0, total);
    if (!m_bRunning) {
        m_bRunning = true;
        m_pWatchedWindow = m_pEditor->window();
        m_pWatchedWindow->installEventFilter(this);
        emit SigTransferring(true);
    }
    showLoading(tr("LUT Operating..."));
}

void LUTCameraTransfer::end()
{
    if (!m_bRunning)
        return;
    m_bRunning = false;
    if (m_pWatchedWindow)
        m_pWatchedWindow->removeEventFilter(this);
    ZELCustomLoadingDialog::hideLoading(kLoadingIndex);
    ZELCustomLoadingDialog::setHostWindow(nullptr, kLoadingIndex);
    emit SigTransferring(false);
}

void LUTCameraTransfer::showLoading(const QString& text)
{
    ZELCustomLoadingDialog::setHostWindow(m_pEditor->window(), kLoadingIndex);
    ZELCustomLoadingDialog::showLoading(text, kLoadingIndex);
}

// A closed window ends the transfer: nobody would see its end. Another tab does not.
bool LUTCameraTransfer::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_pWatchedWindow && event->type() == QEvent::Hide && !event->spontaneous())
        StopTransfer(false);
    return QObject::eventFilter(watched, event);
}

void LUTCameraTransfer::OnProgress(int done, int total)
{
    m_nDone = done;
    m_nTotal = total;
    emit SigProgress();
}

// Ends --------------------------------------------------------------------------------------------

void LUTCameraTransfer::OnReport()
{
    m_report = m_thread.takeReport();
    // Not over the message of the write before, which says what is wrong.
    if (m_report.type == ORXLUTThread::ReloadFromCamera &&
        m_report.outcome == LUTTransferReport::Failed && !m_message.showsError())
        showFailedRead();
}

void LUTCameraTransfer::showFailedRead()
{
    const QString text =
        m_report.total > 0
            ? tr("Loading from camera failed after %1 of %2 points. The curve is unchanged.")
                  .arg(m_report.done)
                  .arg(m_report.total)
            : tr("Loading from camera failed. The curve is unchanged.");
    m_message.show(text, ZELCustomMessageBox::Hint_Error);
}

void LUTCameraTransfer::OnFinshLoadFromCamera()
{
    if (m_report.outcome == LUTTransferReport::Completed)
        m_message.show(tr("Loading from camera completed."), ZELCustomMessageBox::Hint_Information);
    else if (m_report.outcome == LUTTransferReport::Failed)
        showFailedRead();
}

void LUTCameraTransfer::OnFinishSetToCamera()
{
    if (m_report.outcome == LUTTransferReport::Stopped) {
        // Neither the rest nor the old table is written: it would take as long again.
        m_message.show(tr("Applying to camera was stopped after %1 of %2 points. The table in the "
                          "camera is incomplete.")
                           .arg(m_report.done)
                           .arg(m_report.total),
                       ZELCustomMessageBox::Hint_Warning);
        return;
    }
    emit SigWritten();
    if (m_report.outcome == LUTTransferReport::Completed)
        m_message.show(tr("Applied to camera successfully."),
                       ZELCustomMessageBox::Hint_Information);
    else
        m_message.show(tr("Only %1 of %2 points were applied to the camera.")
                           .arg(m_report.done)
                           .arg(m_report.total),
                       ZELCustomMessageBox::Hint_Error);
    // The window may have been closed, or the camera left, while the last point was written.
    if (m_bStopped || m_report.cameraId != m_lCameraID ||
        !m_thread.SetThreadType(ORXLUTThread::ReloadFromCamera))
        return;
    showLoading(tr("LUT Updating..."));
    OnProgress(0, m_report.total);
    m_thread.startJob();
}

void LUTCameraTransfer::OnThreadEnd()
{
    if (m_thread.isBusy())
        return;
    // Queued once more, behind the results of a job that has ended since.
    const auto endUnlessBusy = [this] {
        if (!m_thread.isBusy())
            end();
    };
    QMetaObject::invokeMethod(this, endUnlessBusy, Qt::QueuedConnection);
}
