// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QScrollBar>

// Vertical scroll bar of a feature view; its mouse events also reach the parent. GUI thread.
class ORXFeatureScrollBar : public QScrollBar
{
    Q_OBJECT
public:
    explicit ORXFeatureScrollBar(QWidget* parent = nullptr);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
};
