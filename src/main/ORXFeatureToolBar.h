// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/ZELCustomToolBar.h"

class QButtonGroup;
class ZELCustomComboBox;
class ZELCustomLabel;
class ZELCustomPushButton;

// What the tool bar reports with SigToolBarBtnClicked.
namespace ToolBarIndex {
constexpr int kLanguage = 89;
constexpr int kSave = 93;
constexpr int kRefresh = 94;
constexpr int kUserLevel = 95;
} // namespace ToolBarIndex

// The strip at the top of the window: language, user sets, refresh, user level. Switches the
// language and stores the user level by itself. Owned by the main widget; GUI thread.
class ORXFeatureToolBar : public ZELCustomToolBar
{
    Q_OBJECT
public:
    // Throws std::bad_alloc when the controls cannot be made.
    explicit ORXFeatureToolBar(QWidget* parent);

    // Shows the stored user level without reporting it.
    void OnChangedUserLever();
    void RefreshWidgetInfo();
    // Shows the picture of the language that the button switches to.
    void updateLangeBtn();
    // Save and refresh need a camera; -1 means none.
    void UpdateToolBarBtn(qint64 key);
    void UpdateLangueVisible(qint64 key, bool visible);

signals:
    void SigToolBarBtnClicked(int index);

public slots:
    void OnSigToolBarBtnClicked(int id);
    void OnUserLeverChanged();

protected:
    void changeEvent(QEvent* event) override;

private:
    bool InitWidget();
    bool InitCtrl();
    bool InitSignals();
    bool InitLayout();
    bool connectLevelBox();
    ZELCustomPushButton* makeButton(const char* objectName, int id, const QKeySequence& key);

    QButtonGroup* m_pButtons = nullptr;         // Owned (child).
    ZELCustomPushButton* m_pLanguage = nullptr; // Owned (child).
    ZELCustomPushButton* m_pSave = nullptr;     // Owned (child).
    ZELCustomPushButton* m_pRefresh = nullptr;  // Owned (child).
    ZELCustomLabel* m_pLevelLabel = nullptr;    // Owned (child).
    ZELCustomComboBox* m_pLevelBox = nullptr;   // Owned (child).
};
