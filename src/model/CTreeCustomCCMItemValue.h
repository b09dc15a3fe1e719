// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CTreeItemValue.h"

// Value of the colour correction matrix item: where the matrix lives. GUI thread.
class CTreeCustomCCMItemValue : public CTreeItemValue
{
public:
    // 0: in the camera; 1: in the host's settings file.
    int m_nState = 0;
};
