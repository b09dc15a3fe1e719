// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/IORXListen.h"
#include "model/IORXFeatureNotify.h"
#include "styledctl/ZELCustomMainWindow.h"
#include "userset/UserSetLoadWait.h"

#include <QList>
#include <QPointer>

#include <array>

class QGridLayout;
class ORXFeatureTree;
class ORXPropertyTreeItem;
class ZELCustomLabel;
class ZELCustomMessageBox;
class ZELCustomPushButton;

// The dialog in which the user saves and loads the camera's user sets, chooses the one for power-up
// and resets the device. Works through items of the camera's whole tree. Lives on the stack of its
// caller for one exec().
//
// It closes by itself when the camera's tree goes or the window above it is hidden, also in the
// middle of a load, since the host may do both from any event loop.
//
// | operation                        | thread                        | lock              |
// |----------------------------------|-------------------------------|-------------------|
// | item... (IORXFeatureNotify)      | GUI or reading; emits signals | see the interface |
// | everything else                  | GUI                           | none              |
class ORXFeatureSaveWidget : public ZELCustomMainWindow, public IORXListen, public IORXFeatureNotify
{
    Q_OBJECT
public:
    // Buttons carry their id (see UserSetTable) in this property.
    static constexpr char kIdProperty[] = "userData";

    ORXFeatureSaveWidget(qint64 key, QWidget* parent);
    ~ORXFeatureSaveWidget() override;

    // False when the camera has not all that the dialog needs; then do not show it.
    bool IsSupport() const { return m_bSupport; }
    bool InitFeaturesControls();
    // Set value of a button: 0 for ids that are none.
    static int getBtnMapSelector(int id);
    void updateLoadEnable();
    void setLoadLimits(const UserSetLoadWait::Limits& limits) { m_limits = limits; }

    // Closes on ListenCode::kBeforeTreeRemoved of its camera. The dialog does not register itself;
    // its caller may pass the code on.
    int notify(int code, void* payload) override;

    void itemVisibleChanged(qint64 cameraId, ORXPropertyTreeItem* item, bool visible) override;
    void itemValueChanged(qint64 cameraId, ORXPropertyTreeItem* item, int column,
                          bool needRecreateEditor) override;

signals:
    void sigSetItemVisible(ORXPropertyTreeItem* item, bool visible);
    void sigUpdateEditorData(ORXPropertyTreeItem* item);

public slots:
    void onBtnClicked();
    void onSetItemVisible(ORXPropertyTreeItem* item, bool visible);
    void onUpdateEditorData(ORXPropertyTreeItem* item);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    // In the order of the table of their names.
    enum Feature { Current, Selector, Load, Save, PowerUp, Reset, LoadStatus };
    static constexpr int kFeatures = 7;

    void initUI();
    QWidget* makeLine();
    void tieToFeatures(QWidget* resetLine);
    void orderByRows(const QGridLayout& sets);
    ZELCustomLabel* makeLabel(const char* colorKey);
    ZELCustomPushButton* makeButton(int id);
    void releaseControls();
    void retranslate();
    void showSetNames();
    void closeWithWindow();

    ORXPropertyTreeItem* item(Feature feature) const;
    int number(Feature feature) const;
    bool write(Feature feature, int value);
    bool execute(Feature feature);
    bool setPowerUp(int setValue);
    bool saveOrLoad(Feature command, int setValue);
    bool waitForLoad();
    void setBusy(bool busy);
    static void hideBusySign();
    void showMessage(const char* text, int hintStyle);

    const qint64 m_lCameraID;
    bool m_bSupport = true;
    bool m_bBusy = false;
    bool m_bClosed = false;
    QPointer<ORXFeatureTree> m_pTree;                      // Not owned.
    std::array<ORXPropertyTreeItem*, kFeatures> m_items{}; // Not owned.
    UserSetLoadWait::Limits m_limits;
    UserSetLoadWait* m_pWait = nullptr;   // Not owned; on the stack while it waits.
    QPointer<ZELCustomMessageBox> m_pBox; // Owned (child) while it is shown.
    QPointer<QWidget> m_pFocusBeforeWork; // Not owned.

    QWidget* m_pBody = nullptr;                        // Owned (child).
    ZELCustomLabel* m_pCurrentCaption = nullptr;       // Owned (child).
    ZELCustomLabel* m_pCurrent = nullptr;              // Owned (child).
    ZELCustomLabel* m_pPowerUpCaption = nullptr;       // Owned (child).
    ZELCustomLabel* m_pPowerUp = nullptr;              // Owned (child).
    ZELCustomLabel* m_pResetNote = nullptr;            // Owned (child).
    QList<ZELCustomLabel*> m_setLabels;                // Owned (children), by set value.
    QList<ZELCustomPushButton*> m_buttons;             // Owned (children), by id.
    QList<ZELCustomPushButton*> m_loadButtons;         // Some of the above.
    std::array<QList<QWidget*>, kFeatures> m_controls; // Shown while the item is visible.
};
