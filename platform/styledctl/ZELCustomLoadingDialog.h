// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/StyledCtlGlobal.h"

#include <QString>

class QWidget;

// Busy sign: a small pill with a spinner and a text over the lower middle of a window. It takes no
// focus, lets mouse and keyboard through and paints as soon as it is asked for. Signs are told
// apart by an index; each lies over the window that was given for its index. GUI thread only.
class STYLEDCTL_EXPORT ZELCustomLoadingDialog
{
public:
    ZELCustomLoadingDialog() = delete;

    // Shows the sign of `index`, or changes its text when it is shown already.
    static void showLoading(const QString& text, int index);
    // Hides it; nothing when it is not shown. A sign is shown or not, calls are not counted.
    static void hideLoading(int index);

    // Window (or any widget) over which the sign of `index` lies; null forgets it. Without one the
    // sign lies over the active window, else over the first visible window. A window that dies
    // takes its signs with it.
    static void setHostWindow(QWidget* window, int index);

    static bool isLoading(int index);
    // Empty when the sign is not shown.
    static QString text(int index);
};
