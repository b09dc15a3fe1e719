// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "userset/UserSetTable.h"

#include <QList>
#include <QPointer>
#include <QWidget>

class QGridLayout;
class ZELCustomLabel;
class ZELCustomPushButton;

// The controls of the user set dialog: the names of two sets, a row of buttons for each set, the
// reset. Knows what they look like, not what they do. Owned by the dialog; GUI thread.
class UserSetPanel : public QWidget
{
    Q_OBJECT
public:
    // Buttons carry their id (see UserSetTable) in this property.
    static constexpr char kIdProperty[] = "userData";

    explicit UserSetPanel(QWidget* parent);

    // By id. Owned by the panel.
    const QList<ZELCustomPushButton*>& buttons() const { return m_buttons; }
    // What stands for a feature; buttons that load are disabled instead.
    void setFeatureShown(UserSetTable::Feature feature, bool shown);
    void setLoadEnabled(bool enabled);
    // Set values of the set in use and of the one for power-up.
    void showSetNames(int current, int powerUp);
    // Nothing can be pressed while busy; the focus comes back afterwards.
    void setBusy(bool busy);
    // All texts but the names of showSetNames().
    void retranslate();

private:
    QWidget* makeLine();
    ZELCustomLabel* makeLabel(const char* colorKey);
    ZELCustomPushButton* makeButton(int id);
    void tieToFeatures(QWidget* resetLine);
    void orderByRows(const QGridLayout& sets);

    ZELCustomLabel* m_pCurrentCaption;         // Owned (child).
    ZELCustomLabel* m_pCurrent;                // Owned (child).
    ZELCustomLabel* m_pPowerUpCaption;         // Owned (child).
    ZELCustomLabel* m_pPowerUp;                // Owned (child).
    ZELCustomLabel* m_pResetNote;              // Owned (child).
    QList<ZELCustomLabel*> m_setLabels;        // Owned (children), by set value.
    QList<ZELCustomPushButton*> m_buttons;     // Owned (children), by id.
    QList<ZELCustomPushButton*> m_loadButtons; // Some of the above.
    std::array<QList<QWidget*>, UserSetTable::kFeatures> m_controls; // Shown with their feature.
    QPointer<QWidget> m_pFocusBefore;                                // Not owned.
};
