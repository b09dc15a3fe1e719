// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/ZELCustomWidget.h"

// Heading strip of a docked area: one line of text, elided at the right, with the whole text as
// tool tip when it is cut. The height is the caller's (setFixedHeight), 31 pixels at first.
class STYLEDCTL_EXPORT ZELCustomDockTitleBar : public ZELCustomWidget
{
    Q_OBJECT
public:
    explicit ZELCustomDockTitleBar(QWidget* parent = nullptr);

    void cSetTitleText(const QString& text);
    QString cTitleText() const { return m_text; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    QRect textRect() const;

    QString m_text;
};
