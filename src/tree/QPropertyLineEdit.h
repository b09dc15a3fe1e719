// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/IORXListen.h"
#include "styledctl/ZELCustomLineEdit.h"

#include <QString>

class QVariant;

// Typed text entry with validation and roll-back: texts, floats, integers, addresses. Numbers are
// read and written in the C locale. GUI thread.
class QPropertyLineEdit : public ZELCustomLineEdit, public IORXListen
{
    Q_OBJECT
public:
    // Kinds 2 to 6 are the values of CTreeIntergerItemValue::type().
    enum ValueKind {
        Text = 0,
        Float = 1,
        Decimal = 2,
        Hexadecimal = 3,
        IPv4Address = 4,
        SubnetMask = 5,
        MACAddress = 6 // shown, never saved
    };

    QPropertyLineEdit(QWidget* parent, StyleSelector style);
    ~QPropertyLineEdit() override;

    // Shows the text from its start; it is what Rollback() comes back to.
    void SetText(const QString& text, int kind);
    // The same without touching what is shown: the value changed while the user was typing.
    void SetRollbackText(const QString& text, int kind);
    // Kind Float, Decimal or Text. The maximum comes first.
    void SetRange(float maximum, float minimum);
    void SetRange(qint64 maximum, qint64 minimum);
    // Bytes of UTF-8 that the text may take, terminator included; 0 or less when unknown.
    void SetStringLength(int length);
    // Gives the value to write: a string, float or qint64. False when there is nothing to write:
    // the text is unchanged or not valid for the kind. Values out of range are brought into it.
    bool SaveProperty(QVariant& value);
    void Rollback();
    void resetToolTip();
    // True while the user has typed something that was neither saved nor rolled back, be it what
    // was there before: he may not be done. Also without the focus, which another window may have
    // for a while.
    bool hasPendingEdit() const;

    int notify(int code, void* data) override;

protected:
    void changeEvent(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool saveText(QVariant& value);
    bool saveFloat(QVariant& value);
    bool saveDecimal(QVariant& value);
    bool saveHexadecimal(QVariant& value);
    bool saveAddress(QVariant& value);
    bool saveSubnetMask(QVariant& value);
    bool saveIfAddress(bool valid, QVariant& value);
    void restoreIfEmpty();
    void showText(const QString& text);

    int m_nKind = Text;
    QString m_strLastText;
    float m_fMaxValue = 0.0F;
    float m_fMinValue = 0.0F;
    int m_nStringLength = 512; // bytes
    qint64 m_nMaxValue = 0;
    qint64 m_nMinValue = 0;
};
