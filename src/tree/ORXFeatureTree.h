// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/IORXListen.h"
#include "model/FeatureDescriptionIndex.h"
#include "model/FeatureTag.h"
#include "model/FeatureTreeBuilder.h"
#include "reading/FeatureMutex.h"
#include "reading/IFeatureReadingOwner.h"
#include "reading/QGetFeaturesThread.h"
#include "tree/IFeatureItems.h"
#include "tree/IORXFeatureWidget.h"

#include <QPointer>
#include <QTimer>

#include <functional>
#include <memory>

class FeatureFavorites;
class QTextEdit;
class SteadyBeat;
class ZELCustomDockTitleBar;
class ZELCustomMessageBox;

// The whole feature tree of one camera, and its coordinator: it owns the description's index, the
// items, the two reading threads and the timers, and passes writes and favourites to what does
// them. Owned by the main widget.
//
// | operation                                     | thread  | lock                |
// |-----------------------------------------------|---------|---------------------|
// | GetFeatureMutex, EmitPollingFeatureChanged    | any     | none                |
// | everything else                               | GUI     | none                |
class ORXFeatureTree : public IORXFeatureWidget,
                       public IORXListen,
                       public IFeatureReadingOwner,
                       public IFeatureItems
{
    Q_OBJECT
public:
    explicit ORXFeatureTree(qint64 cameraId, QWidget* parent = nullptr);
    ~ORXFeatureTree() override;

    // Builds items and index from the device's description; once per camera.
    void CreateFeature();
    // Before the tree is deleted: no value is written any more, reading stops.
    void readyForDelete();
    void Release();

    // Items ---------------------------------------------------------------------------------------
    ORXPropertyTreeItem* rootItem() { return getRootItem(-1, false); }
    const QMap<QString, ORXPropertyTreeItem*>& AllTreeItemsMap() const;
    ORXPropertyTreeItem* propertyItemByName(const QString& name) const override;
    const FeatureDescriptionIndex& descriptionIndex() const { return m_index; }
    QList<QString> GetFeatureInvalidatorList(const QString& name) const
    {
        return m_index.GetFeatureInvalidatorList(name);
    }
    // The strip that shows the user's name for the device; not owned, may be null.
    void setDockTitleBar(ZELCustomDockTitleBar* titleBar);
    void refreshCameraItemName();

    // Reading -------------------------------------------------------------------------------------
    void UpdateFeatures(_FEATURES_UPDATE_TYPE_ type, const QString& name,
                        QGetFeaturesThread::UpdateFlags flags, bool forceInvalidate, bool skipSelf);
    // Reads again what a write of the feature invalidates, and the feature itself.
    void rereadInvalidated(const QString& name);
    void StartUpdateThread();
    void RefreshFeatures();
    void PauseUpdateThread();
    // Asks everyone who calls the host for this tree to stop; returns at once.
    void requestStop();
    void StopThread(bool stop);
    // What the user sees, in the order in which it is wanted: a pass over the whole tree reads it
    // first.
    void setInSight(const QStringList& names);
    // How far a pass over the whole tree is, in features; {0, 0} when none runs.
    QGetFeaturesThread::Progress progress() const;
    // True while a pass runs or waits that reads more than the polled features: what the items say
    // may belong to two moments.
    bool isReading() const;
    // True once the first full read has ended.
    bool HadUpdatedOnce() const { return !m_bFirstReadPending; }
    FeatureMutex* GetFeatureMutex() override { return &m_featureMutex; }
    void EmitPollingFeatureChanged(const QString& name) override;
    // Reads one item in this thread, which waits for the camera; true on success. Nothing in the
    // library does so: passes read, on threads of their own.
    bool rereadFeatureValue(ORXPropertyTreeItem* item, bool notifyView);

    // Writing -------------------------------------------------------------------------------------
    bool setFeatureValue(const QString& tagName, const QString& nodeName,
                         const QVariant& value) override;
    bool setFeatureValue(ORXPropertyTreeItem* item, const QVariant& value, bool updateView);
    bool GetOstSettingData();
    // A message in words of the interface language: one box at a time; while one is shown, further
    // messages are dropped. `message` makes the words anew when the language changes meanwhile.
    struct Message
    {
        QString title;
        QString text; // empty: the title is all there is to say
        int hintStyle;
        Qt::TextFormat format = Qt::PlainText; // of the text
    };
    void showTranslated(const std::function<Message()>& message);
    // The message that a feature could not be written, with the host's error code.
    void showWriteFailure(const QString& name, const QString& value, int error);
    // As above with words that stay as they are.
    void ShowMessage(QWidget* parent, const QString& title, const QString& text,
                     const QString& caption, int hintStyle);
    void ShowLoadingDlg(bool show, const QString& text);
    void ShowLoadingFeatures(bool show, bool setting);

    // Favourites, user level, timers --------------------------------------------------------------
    bool IsFavoritesItem(const QString& name) const;
    // The context menu of the favourites group, for whoever shows its name.
    void showFavoritesMenu(const QPoint& globalPosition);
    void addFavoriteItem(ORXPropertyTreeItem* item);
    void removeFavoriteItem(ORXPropertyTreeItem* favorite);
    void removeAllFavoriteItems();
    bool GenerateFavoritesItems();
    void moveFavorteItem(ORXPropertyTreeItem* moved, ORXPropertyTreeItem* target);
    void notifyFavoriteFeatureChange();
    void OnUserLevelChanged();
    void OnBtnRefresh();
    void OnCameraStartShot();
    void OnCameraStopShot();
    // Executes "TriggerSoftware" every `intervalMs` milliseconds (1 to 1,000,000,000) while
    // enabled, on a thread of its own: neither a busy window nor a slow camera shifts the beat, and
    // a beat that falls due while the camera still works on the one before is dropped. Ends by
    // itself when "TriggerSoftware" is no longer available, when reading pauses, the camera is
    // closed or reset, and with the tree.
    void SetAutoSoftwareTrig(bool enable, unsigned int intervalMs);
    int notify(int code, void* data) override;
    void ClearTreeViewInfo();
    void RefreshWidgetInfo();
    // Fills all editors anew, after a change of language.
    void notifyEditorUpdate();

    void itemValueChanged(ORXPropertyTreeItem* item) override;
    void itemVisibleStateChanged(ORXPropertyTreeItem* item) override;
    ORXPropertyTreeItem* getRootItem(qint64 cameraId, bool create) override;
    void removeCameraID(qint64 cameraId) override;

signals:
    void SigFirstEndUpdateFeature(qint64 cameraId);
    // The whole tree was read once more, the first time included.
    void SigFullReadEnded(qint64 cameraId);
    void SigPollingFeatureChanged(const QString& name);
    void SigFeatureChangeOsd();
    // The automatic software trigger was switched on, or off by whatever reason.
    void SigAutoSoftwareTrigChanged(qint64 cameraId, bool enabled);

public slots:
    bool OnIntegerNodeValueChanged(const QString& name, qint64 value);
    bool OnFloatNodeValueChanged(const QString& name, float value);
    bool OnEnumerationNodeValueChanged(const QString& name, int value);
    bool OnBooleanNodeValueChanged(const QString& name, int value);
    bool OnStringRegNodeValueChanged(const QString& name, const QString& value);
    bool OnCommandNodeBtnClicked(const QString& name);
    void OnGetThreadEnd();
    void OnChangeItem(const QModelIndex& index);
    void OnCameraClose();
    void OnTreeFeaturesCustomContextMenuRequested(const QPoint& position);
    void OnActionFavoriteAdd();
    void OnActionFavoriteRemove();
    void OnActionFavoriteRemoveAll();
    void OnPollingFeatureChanged(const QString& name);
    void OnTimerFeatureNoCache();
    void OnTimeInvalidaterFeaturesUpdate();
    void OnTimerRefreshFinished();
    // Executes "TriggerSoftware" once, on the automatic trigger's thread; dropped while the one
    // before still runs.
    void OnTimerAutoTrigger();
    void OnSigFeatureChangeOsd();

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildLayout();
    void connectSignals();
    void createItems();
    void showDescription();
    bool showMessageBox(const Message& message, const QString& caption);
    void fillMessageBox(const Message& message, const QString& caption);
    void hideMessageWithWindow();
    void retranslateMessages();
    QString overlayText() const;
    void stopAutoSoftwareTrig(bool wait);
    void stopTimersForReset();
    bool writeFeature(FeatureTag tag, const QString& name, const QVariant& value);
    bool afterCommand(const QString& name);
    bool afterDeviceReset();
    void readLockable();
    void rereadSoon(const QString& name);
    void rereadAllInvalidated(const QStringList& written);

    FeatureDescriptionIndex m_index;
    FeatureTreeBuilder m_builder;
    ORXPropertyTreeItem* m_pCurrentItem = nullptr;    // Shown in the description panel. Not owned.
    FeatureFavorites* m_pFavorites;                   // Owned (child).
    QTextEdit* m_pDescription;                        // Owned (child).
    QString m_strDescription;                         // HTML that the panel shows.
    ZELCustomDockTitleBar* m_pDockTitleBar = nullptr; // Not owned.
    QPointer<ZELCustomMessageBox> m_pMessageBox;      // Owned (child).
    std::function<Message()> m_shownMessage;          // Null when its words stay as they are.
    bool m_bOverlayForSetting = false;                // What the overlay was shown for last.

    FeatureMutex m_featureMutex;
    QGetFeaturesThread* m_pPartialThread; // Owned (child).
    QGetFeaturesThread* m_pFullThread;    // Owned (child).
    bool m_bDeleting = false;
    bool m_bFirstReadPending = false;
    bool m_bFullReadPending = false;
    bool m_bInvalidateOnFullRead = true;
    // The next "AcquisitionStart" is swallowed: the camera was stopped.
    bool m_bSkipAcquisitionStart = false;
    QStringList m_writtenFeatures; // since the invalidation timer was started; may repeat

    QTimer m_pollingTimer;
    QTimer m_invalidationTimer;
    QTimer m_refreshTimer;
    std::unique_ptr<SteadyBeat> m_autoTrigger;
};

// Index of a camera's loading overlay.
int getLoadingIndex(int deviceType, qint64 cameraId);
