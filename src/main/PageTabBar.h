// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/ZELCustomWidget.h"

#include <QVector>

class QButtonGroup;
class ZELCustomPushButton;

// The row of buttons that switch between the pages. Owned by the main widget; GUI thread.
class PageTabBar : public ZELCustomWidget
{
    Q_OBJECT
public:
    explicit PageTabBar(int tabs, QWidget* parent);

    // `text` is what fits on the button, `toolTip` the whole.
    void setTab(int index, const QString& text, const QString& toolTip);
    // Checks a tab without a signal.
    void setCurrent(int index);
    // A page without content has a disabled tab.
    void setTabEnabled(int index, bool enabled);

signals:
    void SigTabClicked(int index);

private:
    QButtonGroup* m_pButtons;             // Owned (child).
    QVector<ZELCustomPushButton*> m_tabs; // Owned (children).
};
