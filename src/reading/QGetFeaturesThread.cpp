// SPDX-License-Identifier: Apache-2.0
#include "reading/QGetFeaturesThread.h"

#include "device/OBDeviceControl.h"
#include "model/CTreeItemValue.h"
#include "model/FeatureVisibility.h"
#include "model/ORXPropertyTreeItem.h"
#include "reading/FeatureMutex.h"
#include "reading/IFeatureReadingOwner.h"
#include "reading/PassAdmission.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QVariant>

#include <algorithm>

namespace {

constexpr int kPollingTicks = 10000;
constexpr unsigned long kShortestPollingSleepMs = 2;
constexpr unsigned long kDisableWaitMs = 5;

} // namespace

QGetFeaturesThread::QGetFeaturesThread(IFeatureReadingOwner* owner, QObject* parent)
    : SerialWorker("Reading thread", parent)
    , m_pOwner(owner)
    , m_update(stopRequest())
{
    qRegisterMetaType<QVariant>("QVariant");
}

QGetFeaturesThread::~QGetFeaturesThread()
{
    StopThread(true, true);
    finish();
}

void QGetFeaturesThread::SetInitThreadInfo(qint64 cameraId, bool pollingEmits,
                                           const FeatureNodeMap& nodes,
                                           const QMap<QString, ORXPropertyTreeItem*>& items,
                                           const QList<QString>& tlLockedList,
                                           std::shared_future<QMap<QString, int>> polling)
{
    m_lCameraID = cameraId;
    m_update.setCameraID(cameraId);
    m_update.setNodes(nodes);
    m_bPollingEmits = pollingEmits;
    m_items = items;
    m_tlLockedList = tlLockedList;
    m_polling = std::move(polling);
}

// Requests ----------------------------------------------------------------------------------------

// Under the lock.
bool QGetFeaturesThread::DoThreadRunStatus(const ReadingPass& wanted, Waiting& waiting,
                                           const ReadingPass* running)
{
    if (m_bStop)
        return false;
    const PassAdmission::Answer answer = PassAdmission::admit(wanted, waiting, running);
    if (answer == PassAdmission::Answer::Replaces)
        stopRunningJob();
    return answer != PassAdmission::Answer::Refused;
}

bool QGetFeaturesThread::SetThreadInfo(_FEATURES_UPDATE_TYPE_ type, const QList<QString>& names,
                                       UpdateFlags flags)
{
    // Before a running pass is looked at: what it begins from here on is done at this level.
    takeUserLevel();
    return locked([&](Waiting& waiting, ReadingPass* running) {
        ReadingPass wanted;
        wanted.type = type;
        wanted.flags = flags;
        if (!DoThreadRunStatus(wanted, waiting, running))
            return false;
        if (type != FEATURES_UPDATE_INVALIDATED)
            return true;
        for (const QString& name : names)
            m_names.add(name, flags);
        return true;
    });
}

void QGetFeaturesThread::takeUserLevel()
{
    m_update.setUserLevel(OBDeviceControl::GetUserLevel());
}

void QGetFeaturesThread::setInSight(const QStringList& names)
{
    locked([&](Waiting&, ReadingPass*) {
        m_inSight = names;
        m_nInSightTaken = 0;
    });
}

void QGetFeaturesThread::startPass()
{
    if (locked([](const Waiting& waiting, ReadingPass*) { return !waiting.empty(); }))
        wake();
}

void QGetFeaturesThread::requestStop()
{
    locked([this](Waiting&, ReadingPass*) {
        m_bStop = true;
        m_names.clear();
    });
    SerialWorker::requestStop();
}

// What is told until the running pass has ended still carries the camera's key: an item whose state
// was stored is never left with views that do not know.
void QGetFeaturesThread::StopThread(bool stop, bool setStopFlag)
{
    if (!stop) {
        locked([this](Waiting&, ReadingPass*) { m_bStop = false; });
        m_update.setCameraID(m_lCameraID);
        return;
    }
    if (setStopFlag)
        requestStop();
    waitUntilIdle();
    if (setStopFlag)
        m_update.setCameraID(-1);
}

_FEATURES_UPDATE_TYPE_ QGetFeaturesThread::FeaturesUpdateType() const
{
    return locked([](const Waiting& waiting, const ReadingPass* running) {
        if (running)
            return running->type;
        return waiting.empty() ? FEATURES_UPDATE_ALL : waiting.front().type;
    });
}

bool QGetFeaturesThread::isPassRunning() const
{
    return isBusy();
}

template <typename Is>
bool QGetFeaturesThread::anyPass(Is is) const
{
    return locked([&](const Waiting& waiting, const ReadingPass* running) {
        return (running && is(running->type)) ||
               std::any_of(waiting.begin(), waiting.end(),
                           [&](const ReadingPass& pass) { return is(pass.type); });
    });
}

bool QGetFeaturesThread::hasPass(_FEATURES_UPDATE_TYPE_ type) const
{
    return anyPass([type](_FEATURES_UPDATE_TYPE_ each) { return each == type; });
}

bool QGetFeaturesThread::readsMoreThanPolled() const
{
    return anyPass([](_FEATURES_UPDATE_TYPE_ each) { return each != FEATURES_UPDATE_POLLING; });
}

QGetFeaturesThread::Progress QGetFeaturesThread::progress() const
{
    return locked([this](const Waiting&, const ReadingPass* running) {
        if (!running || running->type != FEATURES_UPDATE_ALL)
            return Progress();
        const int total = int(running->only.isEmpty() ? m_items.size() : running->only.size());
        return Progress{int(running->begun.size()), total};
    });
}

void QGetFeaturesThread::SetDisableUpdateList(const QStringList& names)
{
    const auto busy = [this, &names] {
        return locked([&](Waiting&, ReadingPass*) { return names.contains(m_strCurrentFeature); });
    };
    locked([&](Waiting&, ReadingPass*) { m_disableUpdateList = names; });
    while (busy()) {
        QThread::msleep(kDisableWaitMs);
        QCoreApplication::processEvents();
    }
}

// Passes ------------------------------------------------------------------------------------------

void QGetFeaturesThread::work(ReadingPass& pass)
{
    switch (pass.type) {
    case FEATURES_UPDATE_ALL:
        runAll(pass);
        break;
    case FEATURES_UPDATE_INVALIDATED:
        runInvalidated();
        break;
    case FEATURES_UPDATE_TL_LOCKED:
        runNames(m_tlLockedList, pass.flags);
        break;
    case FEATURES_UPDATE_POLLING:
        runPolling(pass.flags);
        break;
    }
}

void QGetFeaturesThread::jobEnded()
{
    emit sigThreadEnd();
}

// In the order of the names, but before each step what is in sight and has not been read comes
// first.
void QGetFeaturesThread::runAll(const ReadingPass& pass)
{
    locked([this](Waiting&, ReadingPass*) { m_nInSightTaken = 0; });
    const auto update = [&](const QString& name, ORXPropertyTreeItem* item) {
        const bool isNew = locked([&](Waiting&, ReadingPass* running) {
            const bool wanted = running->only.isEmpty() || running->only.contains(name);
            if (!wanted || running->begun.contains(name))
                return false;
            running->begun.insert(name);
            return true;
        });
        if (isNew)
            UpdateFeature(item, pass.flags);
    };
    for (auto it = m_items.cbegin(); it != m_items.cend() && !stopRequested(); ++it) {
        for (QString name = takeInSight(); !name.isEmpty() && !stopRequested();
             name = takeInSight())
            update(name, m_items.value(name));
        if (!stopRequested())
            update(it.key(), it.value());
    }
}

// The next of what is in sight and in the tree; empty when there is none.
QString QGetFeaturesThread::takeInSight()
{
    return locked([this](Waiting&, ReadingPass*) {
        while (m_nInSightTaken < m_inSight.size()) {
            const QString& name = m_inSight.at(m_nInSightTaken++);
            if (m_items.contains(name))
                return name;
        }
        return QString();
    });
}

void QGetFeaturesThread::runNames(const QList<QString>& names, UpdateFlags flags)
{
    for (const QString& name : names) {
        if (stopRequested())
            return;
        if (ORXPropertyTreeItem* item = m_items.value(name, nullptr))
            UpdateFeature(item, flags);
    }
}

bool QGetFeaturesThread::takeName(QString& name, UpdateFlags& flags)
{
    return locked([&](Waiting&, ReadingPass* running) {
        // When none waits, a new name needs a pass of its own; deciding it under the lock loses
        // none.
        running->takesNames = m_names.take(name, flags);
        return running->takesNames;
    });
}

void QGetFeaturesThread::runInvalidated()
{
    QString name;
    UpdateFlags flags;
    while (!stopRequested() && takeName(name, flags))
        runNames({name}, flags);
}

void QGetFeaturesThread::runPolling(UpdateFlags flags)
{
    int tick = 0;
    while (!stopRequested()) {
        QElapsedTimer watch;
        watch.start();
        pollOnce(tick, flags);
        tick = (tick + 1) % kPollingTicks;
        const qint64 rest = kPollingTickMs - watch.elapsed();
        msleep(rest > 0 ? static_cast<unsigned long>(rest) : kShortestPollingSleepMs);
    }
}

void QGetFeaturesThread::pollOnce(int tick, UpdateFlags flags)
{
    if (!m_polling.valid())
        return;
    const QMap<QString, int>& intervals = m_polling.get();
    const int elapsedMs = tick * kPollingTickMs;
    for (auto it = intervals.cbegin(); it != intervals.cend() && !stopRequested(); ++it) {
        const int periodMs = it.value();
        if (periodMs <= 0 || periodMs > elapsedMs || elapsedMs % periodMs != 0)
            continue;
        ORXPropertyTreeItem* item = m_items.value(it.key(), nullptr);
        if (!item)
            continue;
        const bool wasVisible = item->visible();
        const bool changed = UpdateFeature(item, flags);
        if (m_bPollingEmits && m_pOwner && (changed || item->visible() != wasVisible))
            m_pOwner->EmitPollingFeatureChanged(item->value()->nodeName(0));
    }
}

// One item ----------------------------------------------------------------------------------------

bool QGetFeaturesThread::beginFeature(const QString& name)
{
    return locked([&](Waiting&, ReadingPass*) {
        if (m_disableUpdateList.contains(name))
            return false;
        m_strCurrentFeature = name;
        return true;
    });
}

bool QGetFeaturesThread::UpdateFeature(ORXPropertyTreeItem* item, UpdateFlags flags)
{
    if (!m_pOwner || !item || !item->value())
        return false;
    const FeatureLock lock(m_pOwner->GetFeatureMutex(), &stopRequest());
    if (!lock.holds() || !beginFeature(item->value()->nodeName(0)))
        return false;
    const bool changed = m_update.update(item, flags);
    locked([this](Waiting&, ReadingPass*) { m_strCurrentFeature.clear(); });
    return changed;
}

bool QGetFeaturesThread::IsItemVisible(const QString& visibility, int level)
{
    return FeatureVisibility::isShownAt(visibility, level);
}

bool QGetFeaturesThread::IsTagNameItemVisible(const QString& tag)
{
    return tag.isEmpty() || isFeatureElement(featureTag(tag));
}
