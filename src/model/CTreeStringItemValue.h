// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CTreeItemValue.h"

// Value of a "String" or "StringReg" feature.
class CTreeStringItemValue : public CTreeItemValue
{
public:
    QString displayValue() const override;
    QVariant value() const override;
    void setValue(const QVariant& value) override;
    QString createCurrentStauts(bool readOnly) const override;
    void copy(const CTreeItemValue* from, bool all) override;

    // Bytes that the feature can hold, terminator included; 0 when unknown.
    int maxLength() const;
    void setText(const QString& text, int maxLength);

private:
    int m_nMaxLength = 0;
    QString m_strValue;
};
