// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ccm/ORXRWCCMValue.h"

#include <QPointer>

#include <array>

class ColorMatrix;
class ORXCCMValueWidget;

// State of an ORXCCMWidget, which owns it. GUI thread.
struct ORXCCMWidgetPrivateData
{
    QPointer<ColorMatrix> m_pMatrix; // Not owned; may go at any moment.
    std::array<ORXCCMValueWidget*, ORXRWCCMValue::kCoefficients> m_cells{}; // Owned (children).
};
