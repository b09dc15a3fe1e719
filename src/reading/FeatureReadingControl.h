// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/GuiNotices.h"
#include "reading/FeatureMutex.h"
#include "reading/IFeatureReadingOwner.h"
#include "reading/QGetFeaturesThread.h"

#include <QTimer>

class FeatureDescriptionIndex;

// Which of a tree's two threads reads what, and when: the first read, polling, refreshes, and what
// is read again after writes. Knows no widgets. Owned by a tree.
//
// | operation                                     | thread  | lock                |
// |-----------------------------------------------|---------|---------------------|
// | GetFeatureMutex, EmitPollingFeatureChanged    | any     | none                |
// | everything else                               | GUI     | none                |
class FeatureReadingControl : public QObject, public IFeatureReadingOwner
{
    Q_OBJECT
public:
    using UpdateFlags = QGetFeaturesThread::UpdateFlags;

    // `index` is not owned and outlives this.
    FeatureReadingControl(const FeatureDescriptionIndex& index, QObject* parent);

    // Waits for what runs, hands the camera's items over, and begins its first read. Polling
    // follows.
    void start(qint64 cameraId, const QMap<QString, ORXPropertyTreeItem*>& items);
    // Stops both threads, and waits; polling ends until start().
    void pause();
    // With `stop` as pause(), but polling is asked for again; without, passes are allowed again.
    void StopThread(bool stop);
    // Asks both threads to stop; returns at once.
    void requestStop();
    // No timer asks for a pass any more, until start() or the next write.
    void stopTimers();
    // As StopThread(true); UpdateFeatures does nothing any more.
    void end();
    bool hasEnded() const { return m_bEnded; }

    // `name` matters to FEATURES_UPDATE_INVALIDATED only: what a change of that feature
    // invalidates, without itself for `skipSelf`. May drop the host's cache first, which calls the
    // host.
    void UpdateFeatures(_FEATURES_UPDATE_TYPE_ type, const QString& name, UpdateFlags flags,
                        bool forceInvalidate, bool skipSelf);
    void refresh();
    // Reads the features that acquisition locks.
    void readLockable();
    void poll();
    // Reads what a polled feature's change invalidates; polling has just read itself.
    void polledFeatureChanged(const QString& name);
    // The user level changed: brings every item's visibility in line.
    void userLevelChanged();
    // Reads again what a write of the feature invalidates, and the feature itself.
    void rereadInvalidated(const QString& name);
    // The same in 100 ms, together with what is written until then.
    void rereadSoon(const QString& name);
    // The same now.
    void rereadWritten();
    // Returns when the feature is not in the middle of being read again; pending events run.
    void waitUntilNotRereading(const QString& name);
    // See QGetFeaturesThread.
    void setInSight(const QStringList& names);
    QGetFeaturesThread::Progress progress() const { return m_fullThread.progress(); }

    // True while a pass runs or waits that reads more than the polled features.
    bool isReading() const;
    // True while the thread of writes and invalidated features is busy.
    bool isRereading() const { return m_partialThread.isPassRunning(); }
    // True while that is so, or what was written is still to be read again.
    bool isRereadDue() const { return m_invalidationTimer.isActive() || isRereading(); }
    // True unless the first read is still to end.
    bool hasReadOnce() const { return !m_bFirstReadPending; }

    FeatureMutex* GetFeatureMutex() override { return &m_featureMutex; }
    void EmitPollingFeatureChanged(const QString& name) override;

signals:
    // Any pass.
    void SigPassEnded();
    // The whole tree was read once more, the first time included.
    void SigFullReadEnded();
    void SigFirstReadEnded();
    // What the user waits for has been read, or comes to nothing.
    void SigWaitEnded();
    // Emitted on a reading thread; connect queued.
    void SigPollingFeatureChanged(const QString& name);

private:
    void partialPassEnded();
    void fullPassEnded();
    void rereadAllInvalidated(const QStringList& written);

    const FeatureDescriptionIndex& m_index; // Not owned.
    FeatureMutex m_featureMutex;
    QGetFeaturesThread m_partialThread;
    QGetFeaturesThread m_fullThread;
    QTimer m_pollingTimer;
    QTimer m_invalidationTimer;
    QStringList m_writtenFeatures; // since the invalidation timer was started; may repeat
    GuiNotices m_notices;
    bool m_bEnded = false;
    bool m_bFirstReadPending = false;
    bool m_bFullReadPending = false;
};
