// SPDX-License-Identifier: Apache-2.0
// What QLUTDrawWidget does about the camera.
#include "lut/QLUTDrawWidget.h"

#include "lut/ORXLUTThread.h"
#include "styledctl/ZELCustomLoadingDialog.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "tree/IFeatureTreeFinder.h"
#include "tree/ORXFeatureTree.h"

#include <QEvent>

namespace {

// Apart from the signs of the trees, whose passes must not hide it.
constexpr int kLoadingIndex = -2;

} // namespace

void QLUTDrawWidget::connectThread()
{
    const auto type = Qt::QueuedConnection;
    connect(m_pThread, &ORXLUTThread::SigUpdateLUTInfo, this, &QLUTDrawWidget::UpdateLutInfo, type);
    connect(m_pThread, &ORXLUTThread::SigLoadFromCameraFinished, this,
            &QLUTDrawWidget::OnFinshLoadFromCamera, type);
    connect(m_pThread, &ORXLUTThread::SigSetToCameraFinished, this,
            &QLUTDrawWidget::OnFinishSetToCamera, type);
    connect(m_pThread, &ORXLUTThread::SigThreadEnd, this, &QLUTDrawWidget::OnThreadEnd, type);
    connect(m_pThread, &ORXLUTThread::SigReport, this, &QLUTDrawWidget::OnReport, type);
    connect(m_pThread, &ORXLUTThread::SigProgress, this, &QLUTDrawWidget::OnProgress, type);
}

// Requests ----------------------------------------------------------------------------------------

void QLUTDrawWidget::LoadFromCamera()
{
    if (!m_pThread->SetThreadType(ORXLUTThread::LoadFromCamera))
        return;
    beginTransfer(s_nPointCount);
    showLoading(tr("LUT Operating..."));
    m_pThread->startJob();
}

void QLUTDrawWidget::SetToCamera()
{
    if (!m_pThread->SetThreadType(ORXLUTThread::SetToCamera))
        return;
    const LUTPoints points = GetSettinngPoints();
    beginTransfer(points.size());
    showLoading(tr("LUT Operating..."));
    m_pThread->setPointVector(points);
    m_pThread->startJob();
}

void QLUTDrawWidget::resetCameraID(qint64 cameraId)
{
    m_lCameraID = cameraId;
    m_pThread->resetCameraID(cameraId);
}

void QLUTDrawWidget::StopTransfer(bool wait)
{
    m_bStopped = true;
    if (wait)
        m_pThread->StopThread();
    else
        m_pThread->requestStop();
}

void QLUTDrawWidget::UpdateFeatureTree()
{
    IFeatureTreeFinder* finder = IFeatureTreeFinder::instance();
    if (finder && finder->hasFeatureTree(m_lCameraID)) {
        ORXFeatureTree* tree = finder->featureTree(m_lCameraID, false);
        for (const auto& name : {QStringLiteral("LUTIndex"), QStringLiteral("LUTValue")})
            tree->UpdateFeatures(FEATURES_UPDATE_INVALIDATED, name,
                                 QGetFeaturesThread::UpdateFlags(UpdateFlagSets::kRefresh), false,
                                 false);
    }
    emit SigUpdateFeatureTree();
}

// Transfer in progress ----------------------------------------------------------------------------

void QLUTDrawWidget::beginTransfer(int total)
{
    line().clearSelection();
    m_nProgressDone = 0;
    m_nProgressTotal = total;
    m_bStopped = false;
    update();
    if (m_bTransferring)
        return;
    m_bTransferring = true;
    m_pWatchedWindow = window();
    m_pWatchedWindow->installEventFilter(this);
    emit SigTransferring(true);
}

void QLUTDrawWidget::endTransfer()
{
    if (!m_bTransferring)
        return;
    m_bTransferring = false;
    if (m_pWatchedWindow)
        m_pWatchedWindow->removeEventFilter(this);
    ZELCustomLoadingDialog::hideLoading(kLoadingIndex);
    ZELCustomLoadingDialog::setHostWindow(nullptr, kLoadingIndex);
    update();
    emit SigTransferring(false);
}

void QLUTDrawWidget::showLoading(const QString& text)
{
    ZELCustomLoadingDialog::setHostWindow(window(), kLoadingIndex);
    ZELCustomLoadingDialog::showLoading(text, kLoadingIndex);
}

// A closed window ends the transfer: nobody would see its end. Another tab does not.
bool QLUTDrawWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_pWatchedWindow && event->type() == QEvent::Hide && !event->spontaneous())
        StopTransfer(false);
    return QWidget::eventFilter(watched, event);
}

void QLUTDrawWidget::OnProgress(int done, int total)
{
    m_nProgressDone = done;
    m_nProgressTotal = total;
    update();
}

// Ends --------------------------------------------------------------------------------------------

void QLUTDrawWidget::UpdateLutInfo(int maximumIndex, int maximumValue, float xScale, float yScale)
{
    const LUTPoints points = m_pThread->points();
    // Another camera was chosen meanwhile, or a later table is on its way already.
    if (points.size() != maximumIndex + 1)
        return;
    if (s_nPointCount != maximumIndex + 1 || m_plot.pointCount() != maximumIndex + 1 ||
        m_plot.maxValue() != maximumValue)
        setRange(maximumIndex, maximumValue);
    m_plot.setScales(xScale, yScale);
    m_freeLine.rebuildFrom(points);
    // The fold line keeps to its five places, wherever the user had moved its points before.
    m_foldLine.rebuildFrom(points);
    m_smoothCurve.rebuildFrom(points);
    update();
    UpdateFeatureTree();
}

void QLUTDrawWidget::OnReport()
{
    m_report = m_pThread->takeReport();
    if (m_report.type != ORXLUTThread::ReloadFromCamera ||
        m_report.outcome != LUTTransferReport::Failed)
        return;
    // After a failed write the user knows already what is wrong.
    const bool told = m_pMessageBox && m_pMessageBox->isVisible() &&
                      m_pMessageBox->cHintStyle() == ZELCustomMessageBox::Hint_Error;
    if (!told)
        showFailedRead();
}

void QLUTDrawWidget::showFailedRead()
{
    const QString text =
        m_report.total > 0
            ? tr("Loading from camera failed after %1 of %2 points. The curve is unchanged.")
                  .arg(m_report.done)
                  .arg(m_report.total)
            : tr("Loading from camera failed. The curve is unchanged.");
    showMessage(text, ZELCustomMessageBox::Hint_Error);
}

void QLUTDrawWidget::OnFinshLoadFromCamera()
{
    if (m_report.outcome == LUTTransferReport::Completed)
        showMessage(tr("Loading from camera completed."), ZELCustomMessageBox::Hint_Information);
    else if (m_report.outcome == LUTTransferReport::Failed)
        showFailedRead();
}

void QLUTDrawWidget::OnFinishSetToCamera()
{
    if (m_report.outcome == LUTTransferReport::Stopped) {
        // To write the rest or the old table would take as long again, with nobody waiting for it.
        showMessage(tr("Applying to camera was stopped after %1 of %2 points. The table in the "
                       "camera is incomplete.")
                        .arg(m_report.done)
                        .arg(m_report.total),
                    ZELCustomMessageBox::Hint_Warning);
        return;
    }
    UpdateFeatureTree();
    if (m_report.outcome == LUTTransferReport::Completed)
        showMessage(tr("Applied to camera successfully."), ZELCustomMessageBox::Hint_Information);
    else
        showMessage(tr("Only %1 of %2 points were applied to the camera.")
                        .arg(m_report.done)
                        .arg(m_report.total),
                    ZELCustomMessageBox::Hint_Error);
    // The last point may have been written just when the window was closed.
    if (m_bStopped || m_report.cameraId != m_lCameraID ||
        !m_pThread->SetThreadType(ORXLUTThread::ReloadFromCamera))
        return;
    showLoading(tr("LUT Updating..."));
    OnProgress(0, m_report.total);
    m_pThread->startJob();
}

void QLUTDrawWidget::OnThreadEnd()
{
    if (m_pThread->isBusy())
        return;
    // A short job may have run between its predecessor's end and this: what it brought comes first.
    const auto end = [this] {
        if (!m_pThread->isBusy())
            endTransfer();
    };
    QMetaObject::invokeMethod(this, end, Qt::QueuedConnection);
}
