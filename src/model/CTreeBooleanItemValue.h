// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CTreeItemValue.h"

// Value of a "Boolean" feature.
class CTreeBooleanItemValue : public CTreeItemValue
{
public:
    QString displayValue() const override; // "True" or "False"
    QVariant value() const override;
    void setValue(const QVariant& value) override;
    QString createCurrentStauts(bool readOnly) const override;
    void copy(const CTreeItemValue* from, bool all) override;

    bool checked() const;
    void setChecked(bool checked);

private:
    bool m_bValue = false;
};
