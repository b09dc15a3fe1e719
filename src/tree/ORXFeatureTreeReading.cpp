// SPDX-License-Identifier: Apache-2.0
// What ORXFeatureTree does about reading: passes, timers, acquisition, user level.
#include "device/OBDeviceControl.h"
#include "device/ORXListenTools.h"
#include "model/CTreeBooleanItemValue.h"
#include "model/CTreeEnumationItemValue.h"
#include "model/CTreeFloatItemValue.h"
#include "model/CTreeIntergerItemValue.h"
#include "model/CTreeStringItemValue.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXFeatureTreeView.h"
#include "tree/SteadyBeat.h"

#include <utility>

namespace {

constexpr int kPollingTimerMs = 2000;
constexpr int kInvalidationTimerMs = 100;
constexpr int kRefreshTimerMs = 10;
constexpr unsigned int kLongestAutoTriggerMs = 1000000000;
// A device of this type keeps host caches that a plain full read has to drop.
constexpr int kInvalidatingDeviceType = 8;

QGetFeaturesThread::UpdateFlags flagSet(int flags)
{
    return QGetFeaturesThread::UpdateFlags(flags);
}

} // namespace

void ORXFeatureTree::UpdateFeatures(_FEATURES_UPDATE_TYPE_ type, const QString& name,
                                    QGetFeaturesThread::UpdateFlags flags, bool forceInvalidate,
                                    bool skipSelf)
{
    if (m_bDeleting)
        return;
    const bool plainFullRead =
        type == FEATURES_UPDATE_ALL &&
        !(m_bInvalidateOnFullRead && OBDeviceControl::GetDeviceType() != kInvalidatingDeviceType);
    if (forceInvalidate || plainFullRead)
        OBDeviceControl::InvalidateNodes();
    if (m_bDeleting) // released from there
        return;

    QList<QString> names;
    if (type == FEATURES_UPDATE_INVALIDATED) {
        names = m_index.GetFeatureInvalidatorList(name);
        if (skipSelf)
            names.removeOne(name);
        if (names.isEmpty())
            return;
    }
    const bool partial = type == FEATURES_UPDATE_INVALIDATED || type == FEATURES_UPDATE_TL_LOCKED;
    QGetFeaturesThread* thread = partial ? m_pPartialThread : m_pFullThread;
    if (thread->SetThreadInfo(type, names, flags))
        m_bFullReadPending |= type == FEATURES_UPDATE_ALL;
    thread->startPass();
}

void ORXFeatureTree::StartUpdateThread()
{
    if (cameraID() < 0)
        return;
    // The tables are handed over only while nobody reads them.
    StopThread(true);
    StopThread(false);
    const bool pollingEmits = OBDeviceControl::IsGenTLInterface();
    m_pPartialThread->SetInitThreadInfo(cameraID(), pollingEmits, m_index.nodes(),
                                        AllTreeItemsMap(), m_index.lockableFeatures(),
                                        m_index.pollingMap());
    m_pFullThread->SetInitThreadInfo(cameraID(), pollingEmits, m_index.nodes(), AllTreeItemsMap(),
                                     {}, m_index.pollingMap());
    m_bFirstReadPending = true;
    ShowLoadingFeatures(true, false);
    UpdateFeatures(FEATURES_UPDATE_ALL, QString(), flagSet(UpdateFlagSets::kFirstRead), false,
                   false);
    refreshCameraItemName();
    m_pollingTimer.start(kPollingTimerMs);
}

void ORXFeatureTree::RefreshFeatures()
{
    UpdateFeatures(FEATURES_UPDATE_ALL, QString(), flagSet(UpdateFlagSets::kRefresh), false, false);
}

void ORXFeatureTree::PauseUpdateThread()
{
    m_autoTrigger->requestStop();
    StopThread(true);
    stopAutoSoftwareTrig(true);
    m_pollingTimer.stop();
}

void ORXFeatureTree::requestStop()
{
    m_pPartialThread->requestStop();
    m_pFullThread->requestStop();
    m_autoTrigger->requestStop();
}

void ORXFeatureTree::StopThread(bool stop)
{
    if (stop) {
        // Both end their calls before the first is waited for.
        m_pPartialThread->requestStop();
        m_pFullThread->requestStop();
    }
    m_pPartialThread->StopThread(stop, true);
    m_pFullThread->StopThread(stop, true);
}

void ORXFeatureTree::setInSight(const QStringList& names)
{
    m_pFullThread->setInSight(names);
    m_pPartialThread->setInSight(names);
}

QGetFeaturesThread::Progress ORXFeatureTree::progress() const
{
    return m_pFullThread->progress();
}

bool ORXFeatureTree::isReading() const
{
    const auto reads = [](const QGetFeaturesThread* thread) {
        return thread->isPassRunning() && thread->FeaturesUpdateType() != FEATURES_UPDATE_POLLING;
    };
    return reads(m_pPartialThread) || reads(m_pFullThread);
}

void ORXFeatureTree::EmitPollingFeatureChanged(const QString& name)
{
    emit SigPollingFeatureChanged(name);
}

void ORXFeatureTree::OnGetThreadEnd()
{
    if (!treeView())
        return;
    treeView()->viewport()->update();
    showDescription();
    if (sender() != m_pFullThread) {
        ShowLoadingDlg(false, QString());
        return;
    }
    // The end of a pass that was stopped before may arrive when the first read is under way again.
    const bool stillReading = m_pFullThread->isPassRunning() &&
                              m_pFullThread->FeaturesUpdateType() == FEATURES_UPDATE_ALL;
    if (m_bFullReadPending && !stillReading) {
        m_bFullReadPending = false;
        emit SigFullReadEnded(cameraID());
    }
    if (m_bFirstReadPending && !stillReading) {
        m_bFirstReadPending = false;
        qint64 key = cameraID();
        emit SigFirstEndUpdateFeature(key);
        ORXListenTools::instance()->notifyListeners(ListenCode::kFirstReadEnded, &key);
    }
    if (!m_pPartialThread->isPassRunning())
        ShowLoadingDlg(false, QString());
}

void ORXFeatureTree::OnUserLevelChanged()
{
    if (cameraID() < 0)
        return;
    ShowLoadingFeatures(true, false);
    // A pass that began at the level before must not undo what the other thread does now.
    m_pPartialThread->takeUserLevel();
    m_pFullThread->takeUserLevel();
    const bool fullBusy = m_pFullThread->isPassRunning() &&
                          m_pFullThread->FeaturesUpdateType() != FEATURES_UPDATE_POLLING;
    QGetFeaturesThread* thread = fullBusy ? m_pPartialThread : m_pFullThread;
    thread->SetThreadInfo(FEATURES_UPDATE_ALL, {}, flagSet(UpdateFlagSets::kUserLevel));
    thread->startPass();
}

void ORXFeatureTree::OnBtnRefresh()
{
    ShowLoadingFeatures(true, false);
    OBDeviceControl::InvalidateNodes();
    if (m_bDeleting) // released from there
        return;
    RefreshFeatures();
    m_refreshTimer.start(kRefreshTimerMs);
}

void ORXFeatureTree::OnCameraStartShot()
{
    ClearTreeViewInfo();
    readLockable();
}

// Not every description says that acquisition changes "TLParamsLocked".
void ORXFeatureTree::readLockable()
{
    UpdateFeatures(FEATURES_UPDATE_TL_LOCKED, QString(), flagSet(UpdateFlagSets::kRefresh), false,
                   false);
}

void ORXFeatureTree::OnCameraStopShot()
{
    m_bSkipAcquisitionStart = true;
    OnCameraStartShot();
}

void ORXFeatureTree::OnPollingFeatureChanged(const QString& name)
{
    UpdateFeatures(FEATURES_UPDATE_INVALIDATED, name, flagSet(UpdateFlagSets::kFirstRead), false,
                   true);
}

void ORXFeatureTree::OnCameraClose()
{
    StopThread(true);
    m_pollingTimer.stop();
    m_invalidationTimer.stop();
    m_writtenFeatures.clear();
    stopAutoSoftwareTrig(true);
    // Without a camera nothing would hide it any more.
    ShowLoadingDlg(false, QString());
    treeView()->clearModelInfo();
    setCameraID(-1);
    m_pCurrentItem = nullptr;
    showDescription();
}

// Timers ------------------------------------------------------------------------------------------

// A timer that runs is not started anew: under a stream of edits it would never come to its end.
// What is written later than the last timer's end starts the next one, so nothing is left out.
void ORXFeatureTree::rereadSoon(const QString& name)
{
    m_writtenFeatures.append(name);
    if (!m_invalidationTimer.isActive())
        m_invalidationTimer.start(kInvalidationTimerMs);
}

void ORXFeatureTree::rereadInvalidated(const QString& name)
{
    rereadAllInvalidated({name});
}

// One request, so that what several writes have changed is read once.
void ORXFeatureTree::rereadAllInvalidated(const QStringList& written)
{
    QStringList names;
    for (const QString& name : written)
        names += m_index.GetFeatureInvalidatorList(name);
    names.removeDuplicates();
    if (names.isEmpty())
        return;
    m_pPartialThread->SetThreadInfo(FEATURES_UPDATE_INVALIDATED, names,
                                    flagSet(UpdateFlagSets::kFirstRead));
    m_pPartialThread->startPass();
}

void ORXFeatureTree::stopTimersForReset()
{
    m_invalidationTimer.stop();
    m_writtenFeatures.clear();
    m_pollingTimer.stop();
    m_refreshTimer.stop();
    stopAutoSoftwareTrig(false);
}

void ORXFeatureTree::SetAutoSoftwareTrig(bool enable, unsigned int intervalMs)
{
    if (!enable) {
        stopAutoSoftwareTrig(false);
        return;
    }
    if (m_bDeleting || cameraID() < 0)
        return;
    m_autoTrigger->start(std::chrono::milliseconds(qBound(1U, intervalMs, kLongestAutoTriggerMs)));
    emit SigAutoSoftwareTrigChanged(cameraID(), true);
}

// With `wait` no trigger command is under way any more when this returns.
void ORXFeatureTree::stopAutoSoftwareTrig(bool wait)
{
    const bool running = m_autoTrigger->isRunning();
    m_autoTrigger->stop();
    if (wait)
        m_autoTrigger->waitForAction();
    if (running)
        emit SigAutoSoftwareTrigChanged(cameraID(), false);
}

void ORXFeatureTree::OnTimerFeatureNoCache()
{
    UpdateFeatures(FEATURES_UPDATE_POLLING, QString(), flagSet(UpdateFlagSets::kPolling), false,
                   false);
}

void ORXFeatureTree::OnTimeInvalidaterFeaturesUpdate()
{
    m_invalidationTimer.stop();
    m_writtenFeatures.removeDuplicates();
    // While reading is paused this comes to nothing; what starts it again reads everything.
    rereadAllInvalidated(std::exchange(m_writtenFeatures, {}));
    // No pass, and so no end of one.
    if (!m_pPartialThread->isPassRunning())
        ShowLoadingDlg(false, QString());
}

void ORXFeatureTree::OnTimerRefreshFinished()
{
    m_refreshTimer.stop();
}

void ORXFeatureTree::OnTimerAutoTrigger()
{
    m_autoTrigger->runOnce();
}

void ORXFeatureTree::OnSigFeatureChangeOsd()
{
    ORXListenTools::instance()->notifyListeners(ListenCode::kFeatureChangedOsd, nullptr);
}

// Direct read -------------------------------------------------------------------------------------

namespace {

using Reread = bool (*)(const QString& name, CTreeItemValue* value);

bool rereadBoolean(const QString& name, CTreeItemValue* value)
{
    bool checked = false;
    auto* typed = dynamic_cast<CTreeBooleanItemValue*>(value);
    if (!typed || !OBDeviceControl::GetBoolNodeValue(name, &checked, nullptr, true))
        return false;
    typed->setChecked(checked);
    return true;
}

bool rereadInteger(const QString& name, CTreeItemValue* value)
{
    _ZDCC_INTVALUE_EX_T record = {};
    auto* typed = dynamic_cast<CTreeIntergerItemValue*>(value);
    if (!typed || !OBDeviceControl::GetIntegerNodeValue(name, &record, nullptr, true))
        return false;
    typed->setNumbers({record.value, record.minimum, record.maximum, record.increment});
    return true;
}

bool rereadEnumeration(const QString& name, CTreeItemValue* value)
{
    _ZDCC_ENUMVALUE_T record = {};
    auto* typed = dynamic_cast<CTreeEnumationItemValue*>(value);
    if (!typed || !OBDeviceControl::GetEnumNodeValue(name, &record, nullptr, true))
        return false;
    typed->setNumber(record.value);
    return true;
}

bool rereadFloat(const QString& name, CTreeItemValue* value)
{
    _ZDCC_FLOATVALUE_T record = {};
    auto* typed = dynamic_cast<CTreeFloatItemValue*>(value);
    if (!typed || !OBDeviceControl::GetFloatNodeValue(name, &record, nullptr, true))
        return false;
    typed->setNumbers({record.value, record.minimum, record.maximum});
    return true;
}

bool rereadString(const QString& name, CTreeItemValue* value)
{
    QString text;
    auto* typed = dynamic_cast<CTreeStringItemValue*>(value);
    if (!typed || !OBDeviceControl::GetStringNodeValue(name, text, nullptr, nullptr, true))
        return false;
    typed->setText(text, typed->maxLength());
    return true;
}

// The first reader whose value class fits reads; values without one have nothing to read.
const Reread kRereads[] = {rereadBoolean, rereadInteger, rereadEnumeration, rereadFloat,
                           rereadString};

} // namespace

bool ORXFeatureTree::rereadFeatureValue(ORXPropertyTreeItem* item, bool notifyView)
{
    if (!item || !item->value() || item->value()->nodeName(0).isEmpty() ||
        !FeatureValueReader::hasReader(item->tag()))
        return false;
    const QString name = item->value()->nodeName(0);
    bool read = false;
    for (const Reread reread : kRereads)
        read = read || reread(name, item->value());
    item->setWasRead(true, cameraID());
    if (notifyView)
        item->notifyViewUpdate(cameraID(), -1, false);
    return read;
}
