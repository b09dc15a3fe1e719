// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CTreeItemValue.h"

#include <array>

// Two features that stand side by side in one row, each with a check box: column 0 is the name
// column, column 1 the value column.
class CTreeCustomWaterMarkItemValue : public CTreeItemValue
{
public:
    QString nodeName(int column = 0) const override;
    QString toolTip(int column = 0) const override;

    // An empty name leaves the column without a check box.
    void setColumn(int column, const QString& nodeName, const QString& toolTip);
    // Qt::Unchecked or Qt::Checked.
    int checkState(int column) const;
    void setCheckState(int column, int state);
    // A disabled column's check box cannot be used.
    bool isColumnDisabled(int column) const;
    void setColumnDisabled(int column, bool disabled);

private:
    struct Column
    {
        QString nodeName;
        QString toolTip;
        int checkState = 0;
    };

    static std::size_t at(int column) { return column != 0 ? 1 : 0; }

    int m_nState = 0; // bit per column: disabled
    std::array<Column, 2> m_columns;
};
