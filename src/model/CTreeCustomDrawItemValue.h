// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CTreeItemValue.h"

// State of the region drawing items of the image processing page. GUI thread.
class CTreeCustomDrawItemValue : public CTreeItemValue
{
public:
    void copy(const CTreeItemValue* from, bool all) override; // the draw mode only

    bool m_bDrawing = false;
    bool m_bRegionVisible = true;
    bool m_bCanDraw = true;
    int m_nDrawMode = 0;
    int m_nSelectedRegion = -1;
};
