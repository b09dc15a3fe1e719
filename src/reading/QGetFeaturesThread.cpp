// SPDX-License-Identifier: Apache-2.0
#include "reading/QGetFeaturesThread.h"

#include "device/OBDeviceControl.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "reading/IFeatureReadingOwner.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QVariant>

namespace {

constexpr int kPollingTicks = 10000;
constexpr unsigned long kShortestPollingSleepMs = 2;
constexpr unsigned long kDisableWaitMs = 5;

} // namespace

QGetFeaturesThread::QGetFeaturesThread(IFeatureReadingOwner* owner, QObject* parent)
    : SerialWorker("Reading thread", parent)
    , m_pOwner(owner)
    , m_reader(m_decider)
    , m_docText(m_decider)
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
                                           const QMap<QString, int>& pollingMap)
{
    m_lCameraID = cameraId;
    m_lSavedCameraID = cameraId;
    m_bPollingEmits = pollingEmits;
    m_nodes = nodes;
    m_items = items;
    m_tlLockedList = tlLockedList;
    m_pollingMap = pollingMap;
    m_decider.setNodes(nodes);
}

// Requests ----------------------------------------------------------------------------------------

namespace {

// How a request meets the pass before it.
enum class Admission { Refuse, Join, RunAfter, Abandon };

// Polling gives way to everything else and is superfluous while something runs that ends; a pass
// over lockable features starts again when acquisition changes once more. Whatever else comes waits
// for its turn.
Admission admission(_FEATURES_UPDATE_TYPE_ current, _FEATURES_UPDATE_TYPE_ wanted)
{
    using A = Admission;
    constexpr int kTypes = 4;
    static const A kTable[kTypes][kTypes] = {
        // wanted: all, invalidated, lockable, polling
        {A::Join, A::RunAfter, A::RunAfter, A::Refuse},      // all
        {A::RunAfter, A::Join, A::RunAfter, A::RunAfter},    // invalidated
        {A::RunAfter, A::RunAfter, A::Abandon, A::RunAfter}, // lockable
        {A::Abandon, A::Abandon, A::Abandon, A::Refuse},     // polling
    };
    if (current < 0 || current >= kTypes || wanted < 0 || wanted >= kTypes)
        return A::Abandon;
    return kTable[current][wanted];
}

// What a pass over the whole tree leaves to be done for one that is wanted now: everything when it
// refreshes less, else what it has begun already. Nothing is left when it has not begun anything.
bool restAfter(const ReadingPass& running, const ReadingPass& wanted, QSet<QString>& rest)
{
    if (!running.only.isEmpty() || !running.covers(wanted.flags)) {
        rest.clear();
        return true;
    }
    rest = running.begun;
    return !rest.isEmpty();
}

} // namespace

// Under the lock. The same pass is not made twice: one that waits takes over what is asked for.
bool QGetFeaturesThread::joinWaiting(const ReadingPass& wanted, Waiting& waiting,
                                     const ReadingPass* running) const
{
    for (ReadingPass& pass : waiting) {
        if (pass.type != wanted.type)
            continue;
        pass.flags |= wanted.flags;
        // One that was to cover what the running pass has passed covers what that has passed now.
        const bool follows = running && running->type == FEATURES_UPDATE_ALL;
        if (!pass.only.isEmpty() && !(follows && restAfter(*running, pass, pass.only)))
            pass.only.clear();
        return true;
    }
    return false;
}

// Under the lock. The request meets the last pass that runs or waits.
bool QGetFeaturesThread::DoThreadRunStatus(const ReadingPass& wanted, Waiting& waiting,
                                           const ReadingPass* running)
{
    if (m_bStop)
        return false;
    if (joinWaiting(wanted, waiting, running))
        return true;
    ReadingPass pass = wanted;
    if (!waiting.empty()) {
        switch (admission(waiting.back().type, wanted.type)) {
        case Admission::Refuse:
            return false;
        case Admission::Abandon:
            // Polling ends only when it is abandoned: begun now, it would run before this for ever.
            waiting.pop_back();
            break;
        case Admission::Join:
        case Admission::RunAfter:
            break;
        }
    } else if (running) {
        switch (admission(running->type, wanted.type)) {
        case Admission::Refuse:
            return false;
        case Admission::Join:
            if (wanted.type == FEATURES_UPDATE_INVALIDATED && running->takesNames)
                return true;
            if (wanted.type == FEATURES_UPDATE_ALL && !restAfter(*running, wanted, pass.only))
                return false;
            break;
        case Admission::Abandon:
            stopRunningJob();
            break;
        case Admission::RunAfter:
            break;
        }
    }
    waiting.push_back(pass);
    return true;
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
        for (const QString& name : names) {
            // A name that already waits is read once, with all that either request wants.
            if (!m_queuedFlags.contains(name))
                m_nameQueue.push_back(name);
            m_queuedFlags[name] |= flags;
        }
        return true;
    });
}

void QGetFeaturesThread::takeUserLevel()
{
    m_nUserLevel = OBDeviceControl::GetUserLevel();
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
        m_nameQueue.clear();
        m_queuedFlags.clear();
    });
    SerialWorker::requestStop();
}

// What is told until the running pass has ended still carries the camera's key: an item whose state
// was stored is never left with views that do not know.
void QGetFeaturesThread::StopThread(bool stop, bool setStopFlag)
{
    if (!stop) {
        locked([this](Waiting&, ReadingPass*) { m_bStop = false; });
        m_lCameraID = m_lSavedCameraID.load();
        return;
    }
    if (setStopFlag)
        requestStop();
    waitUntilIdle();
    if (setStopFlag)
        m_lCameraID = -1;
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

QGetFeaturesThread::Progress QGetFeaturesThread::progress() const
{
    return locked([this](const Waiting&, const ReadingPass* running) {
        if (!running || running->type != FEATURES_UPDATE_ALL)
            return Progress();
        const int total = running->only.isEmpty() ? m_items.size() : running->only.size();
        return Progress{running->begun.size(), total};
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
        if (m_nameQueue.empty()) {
            // From here on a new name needs a pass of its own; deciding it under the lock loses
            // none.
            running->takesNames = false;
            return false;
        }
        name = m_nameQueue.front();
        m_nameQueue.pop_front();
        flags = m_queuedFlags.take(name);
        return true;
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
    const int elapsedMs = tick * kPollingTickMs;
    for (auto it = m_pollingMap.cbegin(); it != m_pollingMap.cend() && !stopRequested(); ++it) {
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
