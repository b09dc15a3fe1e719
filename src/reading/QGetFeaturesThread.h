// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "reading/FeatureItemUpdate.h"
#include "reading/FeaturesUpdateType.h"
#include "reading/QueuedNames.h"
#include "reading/SerialWorker.h"

#include <QMap>
#include <QStringList>

#include <future>

class IFeatureReadingOwner;
class ORXPropertyTreeItem;

// Reads features into their items, pass by pass. A tree owns two: a partial one (invalidated and
// lockable features) and a full one (the whole tree, then polling).
//
// | operation                                       | thread  | lock                            |
// |-------------------------------------------------|---------|---------------------------------|
// | SetInitThreadInfo                               | GUI     | none; only while no pass runs   |
// | SetThreadInfo, startPass, StopThread,           | GUI     | the worker's, inside            |
// | requestStop, setInSight, SetDisableUpdateList   |         |                                 |
// | isPassRunning, hasPass, readsMoreThanPolled,    | any     | the worker's, inside            |
// | FeaturesUpdateType, progress                    |         |                                 |
// | takeUserLevel                                   | GUI     | none                            |
// | UpdateFeature                                   | worker  | the feature mutex for each item |
// | sigThreadEnd                                    | emitted by the worker; connect queued     |
//
// No request ever blocks the GUI thread: one that has to wait for the running pass is kept and run
// after it. Only StopThread waits.
class QGetFeaturesThread : public SerialWorker<ReadingPass>
{
    Q_OBJECT
public:
    // What the update of one item refreshes.
    using UpdateStatus = ReadingPass::UpdateStatus;
    using UpdateFlags = ReadingPass::UpdateFlags;
    static constexpr UpdateStatus UpdateValueAll = ReadingPass::UpdateValueAll;
    static constexpr UpdateStatus UpdateValueVisible = ReadingPass::UpdateValueVisible;
    static constexpr UpdateStatus UpdateVisibility = ReadingPass::UpdateVisibility;
    static constexpr UpdateStatus UpdateAttribute = ReadingPass::UpdateAttribute;

    static constexpr int kPollingTickMs = 50;

    QGetFeaturesThread(IFeatureReadingOwner* owner, QObject* parent);
    ~QGetFeaturesThread() override;

    void SetInitThreadInfo(qint64 cameraId, bool pollingEmits, const FeatureNodeMap& nodes,
                           const QMap<QString, ORXPropertyTreeItem*>& items,
                           const QList<QString>& tlLockedList,
                           std::shared_future<QMap<QString, int>> polling);
    // Asks for a pass. False when the running or waiting passes make it superfluous or the thread
    // is stopped. `names` matter to FEATURES_UPDATE_INVALIDATED only.
    bool SetThreadInfo(_FEATURES_UPDATE_TYPE_ type, const QList<QString>& names, UpdateFlags flags);
    // Starts the thread if a pass waits and none runs.
    void startPass();
    // With `stop`: ends the running pass at the next chance (if `setStopFlag`) and waits for it,
    // without limit; a host call that hangs is reported in the log. Without `stop`: allows passes
    // again.
    void StopThread(bool stop, bool setStopFlag);
    // The first half of a stop: ends the running pass, refuses further ones, and returns at once.
    void requestStop() override;
    // The user level changed: the running pass goes on with it.
    void takeUserLevel();
    // What the user sees, in the order in which it is wanted: a pass over the whole tree takes
    // these features first, as far as it has not read them yet. Replaces what was wanted before.
    void setInSight(const QStringList& names);
    // Of the running pass, else of the next one. Whether another waits behind it: hasPass().
    _FEATURES_UPDATE_TYPE_ FeaturesUpdateType() const;
    // Whether a pass runs or waits.
    bool isPassRunning() const;
    // Whether a pass of the type runs or waits.
    bool hasPass(_FEATURES_UPDATE_TYPE_ type) const;
    // Whether a pass runs or waits that reads more than the polled features.
    bool readsMoreThanPolled() const;
    // How far a pass over the whole tree is, in features; {0, 0} when none runs.
    struct Progress
    {
        int done = 0;
        int total = 0;
    };
    Progress progress() const;
    // Names that must not be updated now. On return none of them is in the middle of an update;
    // pending GUI events are processed meanwhile.
    void SetDisableUpdateList(const QStringList& names);

    // Updates one item; true when what views show of it changed.
    bool UpdateFeature(ORXPropertyTreeItem* item, UpdateFlags flags);

    // Level 0 shows "Guru", "Expert" and "Beginner", level 1 only "Beginner"; an empty text is
    // visible, anything else is not.
    static bool IsItemVisible(const QString& visibility, int level);
    // Whether a tree shows elements of the tag name; an empty one is shown.
    static bool IsTagNameItemVisible(const QString& tag);
    // Whether the feature exists and is not "Invisible".
    bool IsFeatureVisibility(const QString& name) const { return m_update.isKnownVisible(name); }

signals:
    void sigThreadEnd();

protected:
    void work(ReadingPass& pass) override;
    void jobEnded() override;

private:
    // Whether one of the passes that run or wait has a type that `is` accepts.
    template <typename Is>
    bool anyPass(Is is) const;
    bool DoThreadRunStatus(const ReadingPass& wanted, Waiting& waiting, const ReadingPass* running);
    bool takeName(QString& name, UpdateFlags& flags);
    QString takeInSight();
    void runNames(const QList<QString>& names, UpdateFlags flags);
    void runAll(const ReadingPass& pass);
    void runInvalidated();
    void runPolling(UpdateFlags flags);
    void pollOnce(int tick, UpdateFlags flags);
    bool beginFeature(const QString& name);

    IFeatureReadingOwner* m_pOwner; // Not owned.

    // Set while no pass runs, read by the worker.
    bool m_bPollingEmits = false;
    QMap<QString, ORXPropertyTreeItem*> m_items; // Items not owned.
    QList<QString> m_tlLockedList;
    std::shared_future<QMap<QString, int>> m_polling;

    qint64 m_lCameraID = -1; // the GUI thread's own
    FeatureItemUpdate m_update;

    // Guarded by the worker's lock.
    bool m_bStop = false; // no pass is accepted
    QueuedNames m_names;
    QStringList m_inSight;
    int m_nInSightTaken = 0; // of m_inSight, by the running pass
    QStringList m_disableUpdateList;
    QString m_strCurrentFeature;
};

// The combinations in use.
namespace UpdateFlagSets {
constexpr int kRefresh = 14;   // a full refresh: visible values, visibility, attributes
constexpr int kFirstRead = 13; // all values, visibility, attributes
constexpr int kPolling = 10;   // visible values, attributes
constexpr int kUserLevel = 4;  // visibility
} // namespace UpdateFlagSets
