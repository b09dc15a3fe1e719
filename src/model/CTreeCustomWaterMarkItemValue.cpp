// SPDX-License-Identifier: Apache-2.0
#include "model/CTreeCustomWaterMarkItemValue.h"

QString CTreeCustomWaterMarkItemValue::nodeName(int column) const
{
    const ItemStateLock lock;
    return m_columns[at(column)].nodeName;
}

QString CTreeCustomWaterMarkItemValue::toolTip(int column) const
{
    const ItemStateLock lock;
    return m_columns[at(column)].toolTip;
}

void CTreeCustomWaterMarkItemValue::setColumn(int column, const QString& nodeName,
                                              const QString& toolTip)
{
    const ItemStateLock lock;
    m_columns[at(column)].nodeName = nodeName;
    m_columns[at(column)].toolTip = toolTip;
}

int CTreeCustomWaterMarkItemValue::checkState(int column) const
{
    const ItemStateLock lock;
    return m_columns[at(column)].checkState;
}

void CTreeCustomWaterMarkItemValue::setCheckState(int column, int state)
{
    const ItemStateLock lock;
    m_columns[at(column)].checkState = state;
}

bool CTreeCustomWaterMarkItemValue::isColumnDisabled(int column) const
{
    const ItemStateLock lock;
    return (m_nState & (1 << at(column))) != 0;
}

void CTreeCustomWaterMarkItemValue::setColumnDisabled(int column, bool disabled)
{
    const ItemStateLock lock;
    const int bit = 1 << at(column);
    m_nState = disabled ? m_nState | bit : m_nState & ~bit;
}
