// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "pages/ORXRWCCMValue.h"

#include <QtGlobal>

#include <array>
#include <optional>

class ORXCCMUpdateThread;
class ORXCCMValueWidget;
class ORXCCMWidget;
class ORXPropertyTreeItem;

// State of an ORXCCMWidget, which owns it. GUI thread.
struct ORXCCMWidgetPrivateData
{
    qint64 m_lCameraID = -1;
    bool m_bDeviceMode = true;
    ORXCCMWidget* m_pWidget = nullptr;            // Not owned.
    ORXPropertyTreeItem* m_pEnableItem = nullptr; // Not owned; may go at any moment.
    ORXPropertyTreeItem* m_pItem = nullptr;       // Not owned; may go at any moment.
    ORXCCMUpdateThread* m_pThread = nullptr;      // Owned, given up with abandon().
    ORXRWCCMValue m_settings;

    std::array<ORXCCMValueWidget*, ORXRWCCMValue::kCoefficients> m_cells{}; // Owned (children).
    std::array<double, ORXRWCCMValue::kCoefficients> m_values{}; // what the cells showed last
    bool m_bReading = false;            // the thread works, or its end was not handled yet
    bool m_bReadAgain = false;          // was asked for meanwhile
    std::optional<bool> m_wantedEnable; // switched by the user meanwhile
};
