// SPDX-License-Identifier: Apache-2.0
#include "reading/FeatureReadingControl.h"

#include "device/OBDeviceControl.h"
#include "model/FeatureDescriptionIndex.h"

#include <utility>

namespace {

constexpr int kPollingTimerMs = 2000;
constexpr int kInvalidationTimerMs = 100;
// A device of this type keeps host caches that a plain full read has to drop.
constexpr int kInvalidatingDeviceType = 8;

QGetFeaturesThread::UpdateFlags flagSet(int flags)
{
    return QGetFeaturesThread::UpdateFlags(flags);
}

} // namespace

FeatureReadingControl::FeatureReadingControl(const FeatureDescriptionIndex& index, QObject* parent)
    : QObject(parent)
    , m_index(index)
    , m_partialThread(this, this)
    , m_fullThread(this, this)
{
    using Self = FeatureReadingControl;
    // What a pass has read is shown when its end is told.
    connect(&m_partialThread, &QGetFeaturesThread::sigThreadEnd, this,
            [this] { m_notices.behindWaiting([this] { partialPassEnded(); }); });
    connect(&m_fullThread, &QGetFeaturesThread::sigThreadEnd, this,
            [this] { m_notices.behindWaiting([this] { fullPassEnded(); }); });
    connect(&m_pollingTimer, &QTimer::timeout, this, &Self::poll);
    connect(&m_invalidationTimer, &QTimer::timeout, this, &Self::rereadWritten);
}

// Starting and stopping ---------------------------------------------------------------------------

void FeatureReadingControl::start(qint64 cameraId, const QMap<QString, ORXPropertyTreeItem*>& items)
{
    // The tables are handed over only while nobody reads them.
    StopThread(true);
    StopThread(false);
    const bool pollingEmits = OBDeviceControl::IsGenTLInterface();
    m_partialThread.SetInitThreadInfo(cameraId, pollingEmits, m_index.nodes(), items,
                                      m_index.lockableFeatures(), m_index.polling());
    m_fullThread.SetInitThreadInfo(cameraId, pollingEmits, m_index.nodes(), items, {},
                                   m_index.polling());
    m_bFirstReadPending = true;
    UpdateFeatures(FEATURES_UPDATE_ALL, QString(), flagSet(UpdateFlagSets::kFirstRead), false,
                   false);
    m_pollingTimer.start(kPollingTimerMs);
}

void FeatureReadingControl::pause()
{
    StopThread(true);
    m_pollingTimer.stop();
}

void FeatureReadingControl::StopThread(bool stop)
{
    if (stop) // both end their calls before the first is waited for
        requestStop();
    m_partialThread.StopThread(stop, true);
    m_fullThread.StopThread(stop, true);
}

void FeatureReadingControl::requestStop()
{
    m_partialThread.requestStop();
    m_fullThread.requestStop();
}

void FeatureReadingControl::stopTimers()
{
    m_pollingTimer.stop();
    m_invalidationTimer.stop();
    m_writtenFeatures.clear();
}

void FeatureReadingControl::end()
{
    m_bEnded = true;
    StopThread(true);
}

// Requests ----------------------------------------------------------------------------------------

void FeatureReadingControl::UpdateFeatures(_FEATURES_UPDATE_TYPE_ type, const QString& name,
                                           UpdateFlags flags, bool forceInvalidate, bool skipSelf)
{
    if (m_bEnded)
        return;
    const bool dropsCaches =
        type == FEATURES_UPDATE_ALL && OBDeviceControl::GetDeviceType() == kInvalidatingDeviceType;
    if (forceInvalidate || dropsCaches)
        OBDeviceControl::InvalidateNodes();
    if (m_bEnded) // released from there
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
    QGetFeaturesThread& thread = partial ? m_partialThread : m_fullThread;
    if (thread.SetThreadInfo(type, names, flags))
        m_bFullReadPending |= type == FEATURES_UPDATE_ALL;
    thread.startPass();
}

void FeatureReadingControl::refresh()
{
    UpdateFeatures(FEATURES_UPDATE_ALL, QString(), flagSet(UpdateFlagSets::kRefresh), false, false);
}

void FeatureReadingControl::readLockable()
{
    UpdateFeatures(FEATURES_UPDATE_TL_LOCKED, QString(), flagSet(UpdateFlagSets::kRefresh), false,
                   false);
}

void FeatureReadingControl::poll()
{
    UpdateFeatures(FEATURES_UPDATE_POLLING, QString(), flagSet(UpdateFlagSets::kPolling), false,
                   false);
}

void FeatureReadingControl::polledFeatureChanged(const QString& name)
{
    UpdateFeatures(FEATURES_UPDATE_INVALIDATED, name, flagSet(UpdateFlagSets::kFirstRead), false,
                   true);
}

void FeatureReadingControl::userLevelChanged()
{
    // A pass that began at the level before must not undo what the other thread does now.
    m_partialThread.takeUserLevel();
    m_fullThread.takeUserLevel();
    QGetFeaturesThread& thread =
        m_fullThread.readsMoreThanPolled() ? m_partialThread : m_fullThread;
    thread.SetThreadInfo(FEATURES_UPDATE_ALL, {}, flagSet(UpdateFlagSets::kUserLevel));
    thread.startPass();
}

void FeatureReadingControl::rereadInvalidated(const QString& name)
{
    rereadAllInvalidated({name});
}

// A timer that runs is not started anew: under a stream of edits it would never come to its end.
// What is written later than the last timer's end starts the next one, so nothing is left out.
void FeatureReadingControl::rereadSoon(const QString& name)
{
    m_writtenFeatures.append(name);
    if (!m_invalidationTimer.isActive())
        m_invalidationTimer.start(kInvalidationTimerMs);
}

void FeatureReadingControl::rereadWritten()
{
    m_invalidationTimer.stop();
    m_writtenFeatures.removeDuplicates();
    // While reading is paused this comes to nothing; what starts it again reads everything.
    rereadAllInvalidated(std::exchange(m_writtenFeatures, {}));
    // No pass, and so no end of one.
    if (!isRereading())
        emit SigWaitEnded();
}

// One request, so that what several writes have changed is read once.
void FeatureReadingControl::rereadAllInvalidated(const QStringList& written)
{
    QStringList names;
    for (const QString& name : written)
        names += m_index.GetFeatureInvalidatorList(name);
    if (names.isEmpty())
        return;
    m_partialThread.SetThreadInfo(FEATURES_UPDATE_INVALIDATED, names,
                                  flagSet(UpdateFlagSets::kFirstRead));
    m_partialThread.startPass();
}

void FeatureReadingControl::waitUntilNotRereading(const QString& name)
{
    m_partialThread.SetDisableUpdateList({name});
    m_partialThread.SetDisableUpdateList({});
}

void FeatureReadingControl::setInSight(const QStringList& names)
{
    m_fullThread.setInSight(names);
    m_partialThread.setInSight(names);
}

// Progress ----------------------------------------------------------------------------------------

bool FeatureReadingControl::isReading() const
{
    return m_partialThread.readsMoreThanPolled() || m_fullThread.readsMoreThanPolled();
}

void FeatureReadingControl::EmitPollingFeatureChanged(const QString& name)
{
    emit SigPollingFeatureChanged(name);
}

void FeatureReadingControl::partialPassEnded()
{
    emit SigPassEnded();
    emit SigWaitEnded();
}

void FeatureReadingControl::fullPassEnded()
{
    emit SigPassEnded();
    // The end of a pass that was stopped before may arrive when the first read is under way again.
    if (!m_fullThread.hasPass(FEATURES_UPDATE_ALL)) {
        if (std::exchange(m_bFullReadPending, false))
            emit SigFullReadEnded();
        if (std::exchange(m_bFirstReadPending, false))
            emit SigFirstReadEnded();
    }
    if (!isRereading())
        emit SigWaitEnded();
}
