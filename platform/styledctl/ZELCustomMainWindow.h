// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/StyledCtlGlobal.h"

#include <QDialog>
#include <QIcon>

class QSizeGrip;
class QVBoxLayout;
class ZELCustomTitleBar;
class ZELCustomWidget;

// Frameless top-level window with a title strip of its own, a content area and an optional soft
// shadow. Serves as main window (show()) and as dialog (exec()); unlike a plain QDialog, Escape
// and Enter do nothing unless cSetDialogKeys() allows it, so that Enter in a value editor never
// presses a button. The size grip appears when the size is not fixed. GUI thread only.
class STYLEDCTL_EXPORT ZELCustomMainWindow : public QDialog
{
    Q_OBJECT
public:
    explicit ZELCustomMainWindow(QWidget* parent = nullptr);

    // Title strip text; also the window title that the desktop shows.
    void cSetTitleText(const QString& text);
    QString cTitleText() const;
    void cSetTitleIcon(const QIcon& icon);
    // Height in device-independent pixels; 36 at first.
    void cSetTitleHeight(int height);
    // Hides or shows the title strip; without it the border closes around the content.
    void cSetTitleVisible(bool visible);
    bool cIsTitleVisible() const;
    ZELCustomTitleBar* cTitleBar() const { return m_title; }

    // Everything below the title strip. The layout has no margins and no spacing.
    ZELCustomWidget* cContentWidget() const { return m_content; }
    QVBoxLayout* cContentLayout() const { return m_contentLayout; }

    // Draws a soft shadow around the window, inside its own geometry (8 pixels on each side).
    void cEnableDefaultShadow(bool enable = true);
    bool cHasShadow() const { return m_shadow; }

    // Escape rejects and Enter accepts the window. Off at first.
    void cSetDialogKeys(bool enable) { m_dialogKeys = enable; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QRect frameRect() const;
    void updateMargins();
    void updateGrip();
    void focusContent();

    ZELCustomTitleBar* m_title;   // Owned (child).
    ZELCustomWidget* m_content;   // Owned (child).
    QVBoxLayout* m_contentLayout; // Owned by m_content.
    QSizeGrip* m_grip;            // Owned (child).
    bool m_shadow = false;
    bool m_dialogKeys = false;
};
