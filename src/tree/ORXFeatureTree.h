// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/IORXListen.h"
#include "model/FeatureDescriptionIndex.h"
#include "model/FeatureTreeBuilder.h"
#include "reading/FeatureReadingControl.h"
#include "tree/AutoSoftwareTrigger.h"
#include "tree/ChangeMarks.h"
#include "tree/FeatureEdits.h"
#include "tree/FeatureFavorites.h"
#include "tree/FeatureLoadingOverlay.h"
#include "tree/FeatureMessages.h"
#include "tree/IFeatureItems.h"
#include "tree/IORXFeatureWidget.h"
#include "tree/LockedRows.h"
#include "tree/ReadOnlyReason.h"
#include "tree/ValueWatch.h"

#include <QTimer>
#include <QVariant>

class FeatureDescriptionPanel;
class FeatureInfoTabs;
class ReadOnlyReasonLine;
class ZELCustomDockTitleBar;

// The whole feature tree of one camera, and its coordinator: it owns the description's index, the
// items and what reads and writes them, and joins them with what the user sees. Owned by the main
// widget.
//
// | operation                                     | thread  | lock                |
// |-----------------------------------------------|---------|---------------------|
// | GetFeatureMutex, EmitPollingFeatureChanged    | any     | none                |
// | everything else                               | GUI     | none                |
class ORXFeatureTree : public IORXFeatureWidget, public IORXListen, public IFeatureItems
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
    // What changes, for whoever shows it.
    ValueWatch* valueWatch() { return &m_watch; }
    // Rows that cannot be edited while a selector stands elsewhere; see SelectorRowsLock.
    LockedRows* lockedRows() { return &m_lockedRows; }
    // The marks of its rows, for every page that shows them.
    ChangeMarks* changeMarks() { return &m_marks; }
    // Where the description stands, with room for more.
    FeatureInfoTabs* infoTabs() const { return m_pInfoTabs; }
    // The strip that shows the user's name for the device; not owned, may be null.
    void setDockTitleBar(ZELCustomDockTitleBar* titleBar) { m_pDockTitleBar = titleBar; }
    void refreshCameraItemName();

    // Reading; see FeatureReadingControl ----------------------------------------------------------
    void UpdateFeatures(_FEATURES_UPDATE_TYPE_ type, const QString& name,
                        QGetFeaturesThread::UpdateFlags flags, bool forceInvalidate, bool skipSelf)
    {
        m_reading.UpdateFeatures(type, name, flags, forceInvalidate, skipSelf);
    }
    void rereadInvalidated(const QString& name) { m_reading.rereadInvalidated(name); }
    void StartUpdateThread();
    void RefreshFeatures() { m_reading.refresh(); }
    // Reading and the automatic software trigger.
    void PauseUpdateThread();
    // Asks everyone who calls the host for this tree to stop; returns at once.
    void requestStop();
    void StopThread(bool stop) { m_reading.StopThread(stop); }
    void setInSight(const QStringList& names) { m_reading.setInSight(names); }
    QGetFeaturesThread::Progress progress() const { return m_reading.progress(); }
    // What the items say may belong to two moments.
    bool isReading() const { return m_reading.isReading(); }
    // True once the first full read has ended.
    bool HadUpdatedOnce() const { return m_reading.hasReadOnce(); }
    FeatureMutex* GetFeatureMutex() { return m_reading.GetFeatureMutex(); }
    void EmitPollingFeatureChanged(const QString& name)
    {
        m_reading.EmitPollingFeatureChanged(name);
    }
    // Reads one item in this thread, which waits for the camera; true on success. Nothing in the
    // library does so: passes read, on threads of their own.
    bool rereadFeatureValue(ORXPropertyTreeItem* item, bool notifyView);

    // Writing -------------------------------------------------------------------------------------
    bool setFeatureValue(const QString& tagName, const QString& nodeName,
                         const QVariant& value) override;
    bool setFeatureValue(ORXPropertyTreeItem* item, const QVariant& value, bool updateView);
    bool GetOstSettingData();
    // The message that a feature could not be written, with the host's error code.
    void showWriteFailure(const QString& name, const QString& value, int error)
    {
        m_pMessages->showWriteFailure(name, value, error);
    }
    // A message in words that stay as they are.
    void ShowMessage(QWidget*, const QString& title, const QString& text, const QString& caption,
                     int hintStyle)
    {
        m_pMessages->show({title, text, hintStyle}, caption);
    }
    void ShowLoadingDlg(bool show, const QString& text);
    void ShowLoadingFeatures(bool show, bool setting);

    // Favourites, user level, timers --------------------------------------------------------------
    bool IsFavoritesItem(const QString& name) const
    {
        return FeatureFavorites::IsFavoritesItem(name);
    }
    // The context menu of the favourites group, for whoever shows its name.
    void showFavoritesMenu(const QPoint& globalPosition)
    {
        m_pFavorites->showGroupMenu(globalPosition);
    }
    void addFavoriteItem(ORXPropertyTreeItem* item) { m_pFavorites->addFavoriteItem(item); }
    void removeFavoriteItem(ORXPropertyTreeItem* favorite)
    {
        m_pFavorites->removeFavoriteItem(favorite);
    }
    void removeAllFavoriteItems() { m_pFavorites->removeAllFavoriteItems(); }
    bool GenerateFavoritesItems();
    void moveFavorteItem(ORXPropertyTreeItem* moved, ORXPropertyTreeItem* target)
    {
        m_pFavorites->moveFavorteItem(moved, target);
    }
    void notifyFavoriteFeatureChange();
    void OnUserLevelChanged();
    void OnBtnRefresh();
    void OnCameraStartShot();
    void OnCameraStopShot();
    // Executes "TriggerSoftware" every `intervalMs` milliseconds (1 to 1,000,000,000) while
    // enabled; see AutoSoftwareTrigger. Ends by itself when "TriggerSoftware" is no longer
    // available, when reading pauses, the camera is closed or reset, and with the tree.
    void SetAutoSoftwareTrig(bool enable, unsigned int intervalMs);
    int notify(int code, void* data) override;
    void ClearTreeViewInfo();
    void RefreshWidgetInfo();
    // Fills all editors anew, after a change of language.
    void notifyEditorUpdate();

    void itemValueChanged(ORXPropertyTreeItem* item) override;
    void itemVisibleStateChanged(ORXPropertyTreeItem* item) override;
    QString readOnlyReason(const ORXPropertyTreeItem& item) const override
    {
        return m_reason.text(item);
    }
    ORXPropertyTreeItem* getRootItem(qint64 cameraId, bool create) override;
    void removeCameraID(qint64 cameraId) override;

signals:
    // readyForDelete(): who works with the tree's items or mutex on a thread of its own ends now.
    void SigReadyForDelete();
    void SigFirstEndUpdateFeature(qint64 cameraId);
    // The whole tree was read once more, the first time included.
    void SigFullReadEnded(qint64 cameraId);
    // What rows say of other features may be new: any pass has ended.
    void SigPassEnded();
    // The user wants to see the feature in its group.
    void SigShowFeature(const QString& name);
    void SigPollingFeatureChanged(const QString& name);
    void SigFeatureChangeOsd();
    // The automatic software trigger was switched on, or off by whatever reason.
    void SigAutoSoftwareTrigChanged(qint64 cameraId, bool enabled);

public slots:
    bool OnIntegerNodeValueChanged(const QString& name, qint64 value)
    {
        return m_edits.write(FeatureTag::Integer, name, value);
    }
    bool OnFloatNodeValueChanged(const QString& name, float value)
    {
        return m_edits.write(FeatureTag::Float, name, value);
    }
    bool OnEnumerationNodeValueChanged(const QString& name, int value)
    {
        return m_edits.write(FeatureTag::Enumeration, name, value);
    }
    bool OnBooleanNodeValueChanged(const QString& name, int value)
    {
        return m_edits.write(FeatureTag::Boolean, name, value);
    }
    bool OnStringRegNodeValueChanged(const QString& name, const QString& value)
    {
        return m_edits.write(FeatureTag::String, name, value);
    }
    bool OnCommandNodeBtnClicked(const QString& name)
    {
        return m_edits.write(FeatureTag::Command, name, QVariant());
    }
    void OnGetThreadEnd();
    void OnChangeItem(const QModelIndex& index);
    void OnCameraClose();
    void OnTreeFeaturesCustomContextMenuRequested(const QPoint& position)
    {
        m_pFavorites->showMenu(position);
    }
    void OnActionFavoriteAdd() { m_pFavorites->addContextItem(); }
    void OnActionFavoriteRemove() { m_pFavorites->removeContextItem(); }
    void OnActionFavoriteRemoveAll() { m_pFavorites->clearFavorites(); }
    void OnPollingFeatureChanged(const QString& name) { m_reading.polledFeatureChanged(name); }
    void OnTimerFeatureNoCache() { m_reading.poll(); }
    void OnTimeInvalidaterFeaturesUpdate() { m_reading.rereadWritten(); }
    // Executes "TriggerSoftware" once, on the automatic trigger's thread; dropped while the one
    // before still runs.
    void OnTimerAutoTrigger() { m_autoTrigger.runOnce(); }
    void OnSigFeatureChangeOsd();

protected:
    void changeEvent(QEvent* event) override;

private:
    void buildLayout();
    void connectSignals();
    void connectReading();
    void createItems();
    // The panel describes the current row now, if that is still to be done.
    void finishDescribing();
    void afterFirstRead();
    void afterDeviceReset();
    void afterSettingsLoaded();

    FeatureDescriptionIndex m_index;
    FeatureTreeBuilder m_builder;
    LockedRows m_lockedRows;
    FeatureFavorites* m_pFavorites;          // Owned (child).
    FeatureDescriptionPanel* m_pDescription; // Owned (child).
    QTimer m_describeTimer;                  // until the current row is described
    ReadOnlyReason m_reason;
    ReadOnlyReasonLine* m_pReasonLine;                // Owned (child).
    FeatureInfoTabs* m_pInfoTabs;                     // Owned (child).
    ZELCustomDockTitleBar* m_pDockTitleBar = nullptr; // Not owned.
    FeatureMessages* m_pMessages;                     // Owned (child).
    FeatureLoadingOverlay m_overlay;
    FeatureReadingControl m_reading;
    AutoSoftwareTrigger m_autoTrigger;
    FeatureEdits m_edits;
    ValueWatch m_watch;
    ChangeMarks m_marks;
};
