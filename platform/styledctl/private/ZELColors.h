// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>
#include <QPalette>

// The basic colours of the theme, looked up once per theme and kept for painting. GUI thread only.
struct ZELColors
{
    QColor input;
    QColor window;
    QColor surface;
    QColor raised;
    QColor hover;
    QColor pressed;
    QColor popup;
    QColor separator;
    QColor border;
    QColor borderStrong;
    QColor text;
    QColor textMuted;
    QColor textDisabled;
    QColor placeholder;
    QColor accent;
    QColor accentHover;
    QColor accentPressed;
    QColor onAccent;
    QColor selection;
    QColor selectionText;
    QColor textSelection;
    QColor error;
    QColor warning;
    QColor success;
    QColor information;
    QColor windowBorder;
    QColor shadow;
    QColor overlay;

    // Palette for everything that Qt draws itself inside our controls.
    QPalette palette;

    static const ZELColors& current();

private:
    void load();
};
