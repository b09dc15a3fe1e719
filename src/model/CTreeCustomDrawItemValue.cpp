// SPDX-License-Identifier: Apache-2.0
#include "model/CTreeCustomDrawItemValue.h"

void CTreeCustomDrawItemValue::copy(const CTreeItemValue* from, bool all)
{
    const ItemStateLock lock;
    CTreeItemValue::copy(from, all);
    if (const auto* other = dynamic_cast<const CTreeCustomDrawItemValue*>(from))
        m_nDrawMode = other->m_nDrawMode;
}
