// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/ZELCustomWidget.h"

class QHBoxLayout;

// Horizontal strip of tools: widgets from the left, then an end marker, then widgets at the right.
// Widgets are centred vertically and become children of the bar.
class STYLEDCTL_EXPORT ZELCustomToolBar : public ZELCustomWidget
{
    Q_OBJECT
public:
    explicit ZELCustomToolBar(QWidget* parent = nullptr);

    void cAddWidget(QWidget* widget);
    // Device-independent pixels of empty room.
    void cAddSpacing(int pixels);
    // Takes all free room: what is added afterwards stands at the right end.
    void cAddEndMarker();
    // A thin vertical line.
    void cAddSeparator();

private:
    QHBoxLayout* m_layout; // Owned (layout of this widget).
};
