// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CTreeItemValue.h"

// Value of a "Command" feature: a text that is shown in the value column.
class CTreeCommandItemValue : public CTreeItemValue
{
public:
    QString displayValue() const override;
    QVariant value() const override;
    void setValue(const QVariant& value) override;

private:
    QString m_strText;
};
