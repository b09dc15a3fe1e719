// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CTreeItemValue.h"

// Value of a "Float" or "Converter" feature, single precision as the host delivers it.
class CTreeFloatItemValue : public CTreeItemValue
{
public:
    struct Numbers
    {
        float m_fValue = -1.0F;
        float m_fMinValue = -1.0F;
        float m_fMaxValue = -1.0F;
    };

    QString displayValue() const override; // 4 decimals
    QVariant value() const override;
    void setValue(const QVariant& value) override;
    QString createCurrentStauts(bool readOnly) const override;
    void copy(const CTreeItemValue* from, bool all) override;

    Numbers numbers() const;
    void setNumbers(const Numbers& numbers);
    void setNumber(float value);

private:
    Numbers m_numbers;
};
