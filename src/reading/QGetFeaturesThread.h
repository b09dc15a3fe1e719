// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureNodeMap.h"
#include "reading/FeatureDecider.h"
#include "reading/FeatureDocText.h"
#include "reading/FeatureValueReader.h"
#include "reading/FeaturesUpdateType.h"

#include <QFlags>
#include <QHash>
#include <QMap>
#include <QStringList>
#include <QThread>

#include <atomic>
#include <deque>
#include <mutex>

class IFeatureReadingOwner;
class ORXPropertyTreeItem;

// Reads features into their items, pass by pass. A tree owns two: a partial one (invalidated and
// lockable features) and a full one (the whole tree, then polling).
//
// | operation                                       | thread  | lock                            |
// |-------------------------------------------------|---------|---------------------------------|
// | SetInitThreadInfo                               | GUI     | none; only while no pass runs   |
// | SetThreadInfo, startPass, StopThread,           | GUI     | the request mutex, inside       |
// | SetDisableUpdateList                            |         |                                 |
// | isPassRunning, FeaturesUpdateType               | any     | the request mutex, inside       |
// | takeUserLevel                                   | GUI     | none                            |
// | run, UpdateFeature                              | worker  | the feature mutex for each item |
// | sigThreadEnd                                    | emitted by the worker; connect queued     |
//
// No request ever blocks the GUI thread: one that has to wait for the running pass is kept and run
// after it. Only StopThread waits.
class QGetFeaturesThread : public QThread
{
    Q_OBJECT
public:
    // What the update of one item refreshes.
    enum UpdateStatus {
        UpdateValueAll = 1,     // the value, whether or not the item is visible
        UpdateValueVisible = 2, // the value of a visible item
        UpdateVisibility = 4,   // access mode, implemented state, visibility and user level
        UpdateAttribute = 8     // read-only state, representation, description texts
    };
    Q_DECLARE_FLAGS(UpdateFlags, UpdateStatus)

    static constexpr int kPollingTickMs = 50;

    QGetFeaturesThread(IFeatureReadingOwner* owner, QObject* parent);
    ~QGetFeaturesThread() override;

    void SetInitThreadInfo(qint64 cameraId, bool pollingEmits, const FeatureNodeMap& nodes,
                           const QMap<QString, ORXPropertyTreeItem*>& items,
                           const QList<QString>& tlLockedList,
                           const QMap<QString, int>& pollingMap);
    // Asks for a pass. False when the running or waiting passes make it superfluous or the thread is
    // stopped. `names` matter to FEATURES_UPDATE_INVALIDATED only.
    bool SetThreadInfo(_FEATURES_UPDATE_TYPE_ type, const QList<QString>& names,
                       UpdateFlags flags);
    // Starts the thread if a pass waits and none runs.
    void startPass();
    // With `stop`: ends the running pass at the next chance (if `setStopFlag`) and waits for the
    // thread, without limit; a host call that hangs is reported in the log. Without `stop`: allows
    // passes again.
    void StopThread(bool stop, bool setStopFlag);
    // The user level changed: the running pass goes on with it.
    void takeUserLevel();
    _FEATURES_UPDATE_TYPE_ FeaturesUpdateType() const;
    // Whether a pass runs or waits.
    bool isPassRunning() const;
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
    bool IsFeatureVisibility(const QString& name) const;

signals:
    void sigThreadEnd();

protected:
    void run() override;

private:
    struct Pass
    {
        _FEATURES_UPDATE_TYPE_ type = FEATURES_UPDATE_ALL;
        UpdateFlags flags;
    };
    // How a request meets the pass before it.
    enum class Admission { Refuse, Join, RunAfter, Abandon };
    static Admission admission(_FEATURES_UPDATE_TYPE_ current, _FEATURES_UPDATE_TYPE_ wanted);

    bool DoThreadRunStatus(_FEATURES_UPDATE_TYPE_ wanted, UpdateFlags flags);
    bool takePass(Pass& pass);
    bool takeName(QString& name, UpdateFlags& flags);
    void execute(const Pass& pass);
    void runNames(const QList<QString>& names, UpdateFlags flags);
    void runAll(UpdateFlags flags);
    void runInvalidated();
    void runPolling(UpdateFlags flags);
    void pollOnce(int tick, UpdateFlags flags);
    bool stopRequested() const { return m_bStop || m_bAbandon; }
    bool beginFeature(const QString& name);
    bool updateLocked(ORXPropertyTreeItem* item, UpdateFlags flags);
    bool updateVisibility(const FeatureNode& node, ORXPropertyTreeItem* item, bool available,
                          const QString& visibility);
    void updateAttributes(const FeatureNode& node, ORXPropertyTreeItem* item, bool available,
                          bool modeReadOnly);

    IFeatureReadingOwner* m_pOwner; // Not owned.

    // Set while no pass runs, read by the worker.
    bool m_bPollingEmits = false;
    FeatureNodeMap m_nodes;
    QMap<QString, ORXPropertyTreeItem*> m_items; // Items not owned.
    QList<QString> m_tlLockedList;
    QMap<QString, int> m_pollingMap;

    // Touched by both threads.
    std::atomic<bool> m_bStop{false};
    std::atomic<bool> m_bAbandon{false}; // ends the running pass only
    std::atomic<qint64> m_lCameraID{-1};
    std::atomic<qint64> m_lSavedCameraID{-1};
    std::atomic<int> m_nUserLevel{1};

    // The request mutex and what it guards.
    mutable std::mutex m_requestMutex;
    bool m_bActive = false; // run() will look at the requests once more
    bool m_bInPass = false;
    Pass m_current;
    std::deque<Pass> m_waiting;
    std::deque<QString> m_nameQueue;
    QHash<QString, UpdateFlags> m_queuedFlags; // of each name in the queue
    QStringList m_disableUpdateList;
    QString m_strCurrentFeature;

    // The worker's own.
    FeatureDecider m_decider;
    FeatureValueReader m_reader;
    FeatureDocText m_docText;
};
Q_DECLARE_OPERATORS_FOR_FLAGS(QGetFeaturesThread::UpdateFlags)

// The combinations in use.
namespace UpdateFlagSets {
constexpr int kRefresh = 14;   // a full refresh: visible values, visibility, attributes
constexpr int kFirstRead = 13; // all values, visibility, attributes
constexpr int kPolling = 10;   // visible values, attributes
constexpr int kUserLevel = 4;  // visibility
} // namespace UpdateFlagSets
