// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/IORXListen.h"
#include "styledctl/ZELCustomSpinBox64.h"

// 64-bit spin box of a value cell, with a range tool tip. The delegate registers it with
// ORXListenTools; it leaves the registry by itself. GUI thread.
class ORXPropertySpinBox : public ZELCustomSpinBox64, public IORXListen
{
    Q_OBJECT
public:
    ORXPropertySpinBox(QWidget* parent, StyleSelector style);
    ~ORXPropertySpinBox() override;

    void resetToolTip();
    // ListenCode::kCommitPendingEdit takes over what is typed, if the editor has the focus.
    int notify(int code, void* data) override;
    void deselect();

protected:
    void changeEvent(QEvent* event) override;
};
