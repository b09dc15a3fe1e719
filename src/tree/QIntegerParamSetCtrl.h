// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWidget>

class QHBoxLayout;
class QPropertyLineEdit;
class ZELCustomSlider;
class ZELCustomSpinBox;

// Slider with a numeric entry, snapped to an increment. A drag reports its value on release only.
// GUI thread.
class QIntegerParamSetCtrl : public QWidget
{
    Q_OBJECT
public:
    // Throws std::bad_alloc when the children cannot be made.
    explicit QIntegerParamSetCtrl(QWidget* parent = nullptr);
    ~QIntegerParamSetCtrl() override;

    void SetRange(int minimum, int maximum);
    void SetValue(int value); // silent
    int GetValue() const;     // the slider's; 0 after Release()
    void SetInc(int increment);
    // Deletes the children.
    void Release();

signals:
    void SigValueChanged(int value);

private slots:
    void OnValueChanged(int value);
    void OnSliderReleased();
    void OnIntegerPropertyChanged();

private:
    bool InitWidget();

    int m_nValue = -1;
    int m_nInc = 1;
    int m_nMinValue = 0;
    int m_nMaxValue = 0;
    ZELCustomSpinBox* m_pSpinBox = nullptr;   // Owned; wired, never shown.
    ZELCustomSlider* m_pSlider = nullptr;     // Owned (child).
    QPropertyLineEdit* m_pLineEdit = nullptr; // Owned (child).
    QHBoxLayout* m_pLayout = nullptr;         // Owned (child).
};
