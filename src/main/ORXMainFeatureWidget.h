// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/IORXListen.h"
#include "main/FeaturePages.h"
#include "main/InterfaceLanguage.h"
#include "styledctl/ZELCustomMainWindow.h"
#include "tree/IFeatureTreeFinder.h"

#include <QMap>

class CameraColumn;
class ORXFeatureGroup;
class ORXFeatureToolBar;
class ORXFeatureTree;
class ORXPropertyTreeItem;
class QStackedWidget;
class SettingsAction;
class ZELCustomDockTitleBar;

// The library's one window: tool bar, side column, pages, and a tree for each camera. The exported
// functions drive it. One instance at a time; GUI thread. Cameras are named by a 64-bit key, -1
// means none; the exported functions always use key 1.
class ORXMainFeatureWidget final : public ZELCustomMainWindow,
                                   public IORXListen,
                                   public IFeatureTreeFinder
{
    Q_OBJECT
public:
    enum FeatureTabIndex {
        WholeTreeTab = FeaturePages::WholeTree,
        CommonTab = FeaturePages::Common,
        TriggerTab = FeaturePages::Trigger,
        ImageProcessingTab = FeaturePages::ImageProcessing
    };

    // Makes the window on the first call; later calls ignore `parent`.
    static ORXMainFeatureWidget* instance(QWidget* parent);
    // False once it was released; it may live on until the library's code has left the stack.
    bool isInstance() const { return s_pInstance == this; }
    // Destroys the window. Reading has stopped when this returns; while the library's own code
    // stands below a call of the host, the widgets go a little later.
    static void ReleaseInstance();

    qint64 CurrentCameraID() const { return m_lCameraID; }
    void CreateFeature();
    void InitFeatureUI();
    void DeviceFeatureInit(qint64 key);
    ORXFeatureTree* featureTree(qint64 cameraId, bool create) override;
    bool hasFeatureTree(qint64 cameraId) const override;
    ORXFeatureGroup* featureGroup(qint64 key);
    ORXPropertyTreeItem* getItemByName(const QString& name, FeatureTabIndex tab);
    void removeFeatureTree(qint64 key);
    void clearFeatureTrees();
    void StartUpdateThread();
    void PauseUpdateThread();
    void onRefreshFeature();
    void onSaveFeatures();
    // 1 selects Chinese, any other value English.
    void SetLanguage(int language);
    void ExecChangedLanuage();
    void ResetTitleText();
    void SetTitleVisible(bool visible);
    // Elided to 80 pixels.
    QString GetTabCutString(const QString& text) const { return FeaturePages::cutTabText(text); }
    void UpdateToolBarBtn(qint64 key);
    void enabledSelfDefienedFeatures(bool enabled) { m_pPages->setCuratedEnabled(enabled); }
    // The keyboard goes to the search box of the shown camera.
    void focusSearch();
    // A parentless window on top of others, whatever parent it had.
    void showOnTop();

    int notify(int code, void* data) override;
    QSize sizeHint() const override;
    void setVisible(bool visible) override;

signals:
    void sigBeforeDeleteFeature(qint64 key);

public slots:
    void onTabIndexChange(int index);
    void onBeforeDeleteFeature(qint64 key);
    void OnToolBarBtnClicked(int index);
    void OnUserLeverChanged();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    explicit ORXMainFeatureWidget(QWidget* parent);
    ~ORXMainFeatureWidget() override;

    void initUI();
    void layOut();
    void connectSignals();
    void standIn();
    void afterHide();
    void addPanels(ORXFeatureTree* tree);
    void requestStop(ORXFeatureTree* tree);
    void readFirst(const QStringList& names);
    void showTitle(qint64 key);
    CameraColumn* column(qint64 key);
    ORXFeatureTree* currentTree() const { return m_trees.value(m_lCameraID, nullptr); }

    static ORXMainFeatureWidget* s_pInstance;       // Owned.
    static const ORXMainFeatureWidget* s_pRemoving; // Tells of a tree that it removes. Not owned.

    qint64 m_lCameraID = -1;
    bool m_bReleasing = false;                        // ReleaseInstance() has begun
    bool m_bSilentHide = false;                       // the host is not told
    QMap<qint64, ORXFeatureTree*> m_trees;            // Owned.
    QMap<qint64, CameraColumn*> m_columns;            // Owned.
    ORXFeatureToolBar* m_pToolBar = nullptr;          // Owned (child).
    ZELCustomDockTitleBar* m_pDockTitleBar = nullptr; // Owned (child).
    FeaturePages* m_pPages = nullptr;                 // Owned (child).
    QStackedWidget* m_pGroupStack = nullptr;          // Owned (child).
    SettingsAction* m_pSettings = nullptr;            // Owned (child).
    InterfaceLanguage m_language;
};
