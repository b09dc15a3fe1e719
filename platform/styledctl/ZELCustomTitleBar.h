// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/ZELCustomWidget.h"

#include <QIcon>

class QLabel;
class ZELCustomPushButton;

// Title strip of a ZELCustomMainWindow: icon, elided text and close button. Dragging it moves the
// window. Owned by the window.
class STYLEDCTL_EXPORT ZELCustomTitleBar : public ZELCustomWidget
{
    Q_OBJECT
public:
    explicit ZELCustomTitleBar(QWidget* parent);

    void cSetText(const QString& text);
    QString cText() const { return m_text; }
    void cSetIcon(const QIcon& icon);
    ZELCustomPushButton* cCloseButton() const { return m_close; }

signals:
    void cSigCloseClicked();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void elideText();
    void translate();

    QString m_text;
    QLabel* m_iconLabel;          // Owned (child).
    QLabel* m_textLabel;          // Owned (child).
    ZELCustomPushButton* m_close; // Owned (child).
    QPoint m_dragOffset;
    bool m_dragging = false;
};
