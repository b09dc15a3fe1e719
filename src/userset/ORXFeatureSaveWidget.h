// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/GuiNotices.h"
#include "device/IORXListen.h"
#include "model/IORXFeatureNotify.h"
#include "styledctl/ZELCustomMainWindow.h"
#include "userset/UserSetFeatures.h"
#include "userset/UserSetWork.h"

#include <QPointer>

class UserSetPanel;
class ZELCustomMessageBox;

// The dialog in which the user saves and loads the camera's user sets, chooses the one for power-up
// and resets the device. Works through items of the camera's whole tree. Lives on the stack of its
// caller for one exec().
//
// It closes by itself when the camera's tree goes or the window above it is hidden, also in the
// middle of a load, since the host may do both from any event loop.
//
// | operation                        | thread                        | lock              |
// |----------------------------------|-------------------------------|-------------------|
// | item... (IORXFeatureNotify)      | GUI or reading; the signals   | see the interface |
// |                                  | are emitted on the GUI thread |                   |
// | everything else                  | GUI                           | none              |
class ORXFeatureSaveWidget : public ZELCustomMainWindow, public IORXListen, public IORXFeatureNotify
{
    Q_OBJECT
public:
    ORXFeatureSaveWidget(qint64 key, QWidget* parent);
    ~ORXFeatureSaveWidget() override;

    // False when the camera has not all that the dialog needs; then do not show it.
    bool IsSupport() const { return m_bSupport; }
    bool InitFeaturesControls();
    // Set value of a button: 0 for ids that are none.
    static int getBtnMapSelector(int id);
    void updateLoadEnable();
    void setLoadLimits(const UserSetLoadWait::Limits& limits) { m_work.setLimits(limits); }

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
    void initUI();
    void retranslate();
    void showSetNames();
    void closeWithWindow();
    void setBusy(bool busy);
    static void hideBusySign();
    void showMessage(const QString& text, int hintStyle);

    UserSetFeatures m_features;
    UserSetWork m_work;
    GuiNotices m_notices;
    bool m_bSupport = true;
    bool m_bBusy = false;
    UserSetPanel* m_pPanel = nullptr;     // Owned (child); null when there is nothing to show.
    QPointer<ZELCustomMessageBox> m_pBox; // Owned (child) while it is shown.
};
