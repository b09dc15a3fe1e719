// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CTreeItemValue.h"

// Value of an "Integer" or "IntReg" feature: 64-bit value with range, increment and representation.
class CTreeIntergerItemValue : public CTreeItemValue
{
public:
    struct Numbers
    {
        qint64 m_nValue = -1;
        qint64 m_nMinValue = -1;
        qint64 m_nMaxValue = -1;
        qint64 m_nIncrement = -1; // 0 or less: no grid
    };

    // How the number is shown and edited; the numbers are the line edit's value kinds.
    enum Type { PureNumber = 2, HexNumber = 3, IPV4Address = 4, SubnetMask = 5, MACAddress = 6 };

    QString displayValue() const override; // clamped into the range
    QVariant value() const override;
    void setValue(const QVariant& value) override;
    QString createCurrentStauts(bool readOnly) const override;
    void copy(const CTreeItemValue* from, bool all) override;

    Numbers numbers() const;
    void setNumbers(const Numbers& numbers);
    void setNumber(qint64 value);

    QString representation() const;
    // Ranges beyond 2 to the power 50 are shown as "PureNumber" unless the representation is one
    // of the three that have a form of their own.
    void setRepresentation(const QString& representation);
    Type type() const;
    // True when the value is edited as text: one of the four representations with a line edit.
    bool isEditedAsText() const;

private:
    bool hasOwnForm() const;

    QString m_strRepresentation;
    Numbers m_numbers;
};
