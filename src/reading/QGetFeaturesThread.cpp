// SPDX-License-Identifier: Apache-2.0
#include "reading/QGetFeaturesThread.h"

#include "device/OBDeviceControl.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "reading/IFeatureReadingOwner.h"
#include "reading/ThreadAnnotations.h"
#include "reading/ThreadWait.h"

#include <QCoreApplication>
#include <QDebug>
#include <QElapsedTimer>
#include <QVariant>

namespace {

constexpr int kPollingTicks = 10000;
constexpr unsigned long kShortestPollingSleepMs = 2;
constexpr unsigned long kDisableWaitMs = 5;

} // namespace

QGetFeaturesThread::QGetFeaturesThread(IFeatureReadingOwner* owner, QObject* parent)
    : QThread(parent)
    , m_pOwner(owner)
    , m_reader(m_decider, [this] { return stopRequested(); })
    , m_docText(m_decider)
{
    qRegisterMetaType<QVariant>("QVariant");
}

QGetFeaturesThread::~QGetFeaturesThread()
{
    StopThread(true, true);
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

// A full pass makes another full pass or polling superfluous; polling gives way to everything else;
// a pass over lockable features starts again when acquisition changes once more. Whatever else comes
// waits for its turn.
QGetFeaturesThread::Admission QGetFeaturesThread::admission(_FEATURES_UPDATE_TYPE_ current,
                                                            _FEATURES_UPDATE_TYPE_ wanted)
{
    constexpr int kTypes = 4;
    static const Admission kTable[kTypes][kTypes] = {
        // wanted:   all                invalidated          lockable             polling
        {Admission::Refuse, Admission::RunAfter, Admission::RunAfter, Admission::Refuse}, // all
        {Admission::RunAfter, Admission::Join, Admission::RunAfter,
         Admission::RunAfter}, // invalidated
        {Admission::RunAfter, Admission::RunAfter, Admission::Abandon,
         Admission::RunAfter},                                                                // lockable
        {Admission::Abandon, Admission::Abandon, Admission::Abandon, Admission::Refuse}, // polling
    };
    if (current < 0 || current >= kTypes || wanted < 0 || wanted >= kTypes)
        return Admission::Abandon;
    return kTable[current][wanted];
}

// Called with the request mutex held. The request meets the last pass that runs or waits.
bool QGetFeaturesThread::DoThreadRunStatus(_FEATURES_UPDATE_TYPE_ wanted, UpdateFlags flags)
{
    if (m_bStop)
        return false;
    if (!m_waiting.empty()) {
        // The same pass is not made twice: what waits takes over what is asked for.
        for (Pass& waiting : m_waiting) {
            if (waiting.type == wanted) {
                waiting.flags |= flags;
                return true;
            }
        }
        switch (admission(m_waiting.back().type, wanted)) {
        case Admission::Refuse:
            return false;
        case Admission::Abandon:
            // Polling ends only when it is abandoned: begun now, it would run before this for ever.
            m_waiting.pop_back();
            break;
        case Admission::Join:
        case Admission::RunAfter:
            break;
        }
    } else if (m_bInPass) {
        switch (admission(m_current.type, wanted)) {
        case Admission::Refuse:
            return false;
        case Admission::Join:
            return true;
        case Admission::Abandon:
            m_bAbandon = true;
            break;
        case Admission::RunAfter:
            break;
        }
    }
    m_waiting.push_back({wanted, flags});
    return true;
}

bool QGetFeaturesThread::SetThreadInfo(_FEATURES_UPDATE_TYPE_ type, const QList<QString>& names,
                                       UpdateFlags flags)
{
    const std::lock_guard<std::mutex> lock(m_requestMutex);
    if (!DoThreadRunStatus(type, flags))
        return false;
    if (type == FEATURES_UPDATE_INVALIDATED) {
        for (const QString& name : names) {
            // A name that already waits is read once, with all that either request wants.
            if (!m_queuedFlags.contains(name))
                m_nameQueue.push_back(name);
            m_queuedFlags[name] |= flags;
        }
    }
    takeUserLevel();
    return true;
}

void QGetFeaturesThread::takeUserLevel()
{
    m_nUserLevel = OBDeviceControl::GetUserLevel();
}

void QGetFeaturesThread::startPass()
{
    {
        const std::lock_guard<std::mutex> lock(m_requestMutex);
        if (m_bActive || m_waiting.empty())
            return;
        m_bActive = true;
    }
    // The thread has taken its last look at the requests and is about to end; a start that came
    // before that end would be lost.
    if (isRunning())
        wait();
    OBFT_HAPPENS_AFTER(this);
    start(QThread::InheritPriority);
}

void QGetFeaturesThread::StopThread(bool stop, bool setStopFlag)
{
    if (!stop) {
        m_bStop = false;
        m_lCameraID = m_lSavedCameraID.load();
        return;
    }
    if (setStopFlag) {
        const std::lock_guard<std::mutex> lock(m_requestMutex);
        m_bStop = true;
        m_lCameraID = -1;
        m_waiting.clear();
        m_nameQueue.clear();
        m_queuedFlags.clear();
    }
    quit();
    waitForThread(*this, "Reading thread");
}

_FEATURES_UPDATE_TYPE_ QGetFeaturesThread::FeaturesUpdateType() const
{
    const std::lock_guard<std::mutex> lock(m_requestMutex);
    return m_bInPass || m_waiting.empty() ? m_current.type : m_waiting.front().type;
}

bool QGetFeaturesThread::isPassRunning() const
{
    const std::lock_guard<std::mutex> lock(m_requestMutex);
    return m_bInPass || !m_waiting.empty();
}

void QGetFeaturesThread::SetDisableUpdateList(const QStringList& names)
{
    const auto busy = [this, &names] {
        const std::lock_guard<std::mutex> lock(m_requestMutex);
        return names.contains(m_strCurrentFeature);
    };
    {
        const std::lock_guard<std::mutex> lock(m_requestMutex);
        m_disableUpdateList = names;
    }
    while (busy()) {
        QThread::msleep(kDisableWaitMs);
        QCoreApplication::processEvents();
    }
}

// Passes ------------------------------------------------------------------------------------------

bool QGetFeaturesThread::takePass(Pass& pass)
{
    const std::lock_guard<std::mutex> lock(m_requestMutex);
    m_bInPass = false;
    m_strCurrentFeature.clear();
    if (m_bStop || m_waiting.empty()) {
        m_bActive = false;
        return false;
    }
    m_current = m_waiting.front();
    m_waiting.pop_front();
    m_bInPass = true;
    m_bAbandon = false;
    pass = m_current;
    return true;
}

void QGetFeaturesThread::run()
{
    Pass pass;
    bool more = takePass(pass);
    while (more) {
        execute(pass);
        more = takePass(pass);
        emit sigThreadEnd();
    }
    OBFT_HAPPENS_BEFORE(this);
}

void QGetFeaturesThread::execute(const Pass& pass)
{
    switch (pass.type) {
    case FEATURES_UPDATE_ALL:
        runAll(pass.flags);
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

void QGetFeaturesThread::runAll(UpdateFlags flags)
{
    for (auto it = m_items.cbegin(); it != m_items.cend() && !stopRequested(); ++it)
        UpdateFeature(it.value(), flags);
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
    const std::lock_guard<std::mutex> lock(m_requestMutex);
    if (m_nameQueue.empty()) {
        // From here on a new name needs a pass of its own; deciding it under the lock loses none.
        m_bInPass = false;
        return false;
    }
    name = m_nameQueue.front();
    m_nameQueue.pop_front();
    flags = m_queuedFlags.take(name);
    return true;
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
