// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/ZELCustomLook.h"

#include <QAbstractSpinBox>

// Styled spin box for 64-bit integers; value, range and step cover the whole signed range.
// Numbers are read and written in decimal in the C locale.
//
// A step (arrow keys, buttons, wheel with focus) changes the value at once. Typed text waits: it
// becomes the value once, on Enter, on losing the focus or by commitText(). A text that is no
// number is rolled back, as any text is by Escape; a number outside the range is moved to its
// nearer end.
class STYLEDCTL_EXPORT ZELCustomSpinBox64 : public QAbstractSpinBox, public ZELCustomLook
{
    Q_OBJECT
    // Assistive technology reads and sets them by these names.
    Q_PROPERTY(qlonglong value READ value WRITE setValue NOTIFY valueChanged)
    Q_PROPERTY(qlonglong minimum READ minimum)
    Q_PROPERTY(qlonglong maximum READ maximum)
    Q_PROPERTY(qlonglong singleStep READ singleStep WRITE setSingleStep)
public:
    enum StyleSelector { Style_Default = 0, Style_Panel = 1, Style_Cell = 2 };

    explicit ZELCustomSpinBox64(QWidget* parent = nullptr, StyleSelector style = Style_Default);

    qlonglong value() const { return m_value; }
    qlonglong minimum() const { return m_minimum; }
    qlonglong maximum() const { return m_maximum; }
    qlonglong singleStep() const { return m_step; }
    // A maximum below the minimum is raised to it. The value is moved into the range, which emits
    // valueChanged() when it changes.
    void setRange(qlonglong minimum, qlonglong maximum);
    // 0 and negative steps count as 1.
    void setSingleStep(qlonglong step);
    // The value changed while the user was typing: what he types stays, and is judged by this range
    // and against this value when it is committed. The value is moved into the range. No signal.
    void setBehindText(qlonglong minimum, qlonglong maximum, qlonglong value);

    // The user typed something that was neither committed nor taken back, be it what the value is:
    // he may not be done.
    bool hasPendingEdit() const;
    // Makes the typed text the value, as Enter does.
    void commitText();

    using QAbstractSpinBox::lineEdit;
    void stepBy(int steps) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public slots:
    // Moves the value into the range, shows it (dropping typed text) and emits valueChanged() when
    // it differs from the value before.
    void setValue(qlonglong value);

signals:
    void valueChanged(qlonglong value);

protected:
    StepEnabled stepEnabled() const override;
    QValidator::State validate(QString& input, int& pos) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void showValue();
    // Typed text as a number, moved into the range; the value itself when it is no number.
    qlonglong typedValue() const;
    QSize hintFor(const QString& longest) const;

    qlonglong m_value = 0;
    qlonglong m_minimum = 0;
    qlonglong m_maximum = 99;
    qlonglong m_step = 1;
};
