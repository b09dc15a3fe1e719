// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWidget>

class QPropertyLineEdit;
class ZELCustomLabel;

// One cell of the colour correction matrix: the coefficient behind its name, "Gain00" to "Gain22"
// (row, column), for which a narrow cell has no room. Owned by the table; GUI thread.
class ORXCCMValueWidget : public QWidget
{
    Q_OBJECT
public:
    // The line edit carries the cell's index (row * 3 + column) in this property.
    static constexpr char kIndexProperty[] = "userData";

    ORXCCMValueWidget(QWidget* parent, int index);

    QPropertyLineEdit* lineEdit() const { return m_pEdit; }
    // With 4 decimals. What the user is typing is lost.
    void showValue(double value);
    void setRange(float minimum, float maximum);
    void setReadOnly(bool readOnly);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void retranslate();

    const int m_nIndex;
    bool m_bRanged = false;     // the camera's limits are known
    ZELCustomLabel* m_pName;    // Owned (child).
    QPropertyLineEdit* m_pEdit; // Owned (child).
};
