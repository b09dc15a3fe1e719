// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/ZELCustomLook.h"

#include <QPushButton>
#include <QTimer>

#include <array>
#include <functional>

// Styled push button: framed, filled, flat, tab, or a picture per state. Space and Enter press it;
// it is never a dialog's automatic default button. A finger that is held on it reads its tool tip
// instead of pressing it.
class STYLEDCTL_EXPORT ZELCustomPushButton : public QPushButton, public ZELCustomLook
{
    Q_OBJECT
public:
    enum StyleSelector {
        Style_Default = 0, // framed
        Style_Primary = 1, // filled with the accent colour
        Style_Cell = 2,    // framed, in a tree cell
        Style_Flat = 3,    // no frame until hovered: tools and window buttons
        Style_Tab = 4,     // checkable page switch with a line under the checked one
        Style_Danger = 5   // framed, warns of lost settings (reset, close)
    };
    enum IconAlign { Align_Left = 0, Align_BesideText = 1, Align_Right = 2 };

    explicit ZELCustomPushButton(QWidget* parent = nullptr, StyleSelector style = Style_Default);
    ZELCustomPushButton(const QString& text, QWidget* parent, StyleSelector style = Style_Default);

    // Icon by file or resource path; its size is iconSize().
    void cSetIcon(const QString& path);
    void cSetIcon(const QIcon& icon);
    // An IconAlign: at the left edge, directly before the centred text, at the right edge.
    void cSetIconAlign(int align);
    int cIconAlign() const { return m_iconAlign; }
    Shape cShape() const override;
    IconPlace cIconPlace() const override;

    // Turns the button into a picture: one path per state, an empty or missing one is replaced by
    // the normal picture (dimmed for the disabled state).
    void cSetImages(const QString& normal, const QString& hover, const QString& pressed,
                    const QString& disabled = QString());

    // Guarded click: after a click, further presses by mouse or keyboard within 500 ms are
    // ignored. Off at first.
    void cSetControlClickEvent(bool guarded);
    bool cIsControlClickEvent() const { return m_guarded; }
    // Replaces the guard's monotonic clock (milliseconds); an empty function restores it.
    void cSetClickClock(std::function<qint64()> clock);

    QSize sizeHint() const override;

public slots:
    // As QAbstractButton::click(), but obeys the guard.
    void click();

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    enum Image { Image_Normal, Image_Hover, Image_Pressed, Image_Disabled, Image_Count };

    // Loaded when it is first drawn; null without cSetImages().
    QIcon image(Image which) const;
    QSize imageSize() const;
    bool isBlocked() const;
    void onClicked();
    void onHeld();

    std::array<QString, Image_Count> m_images; // paths
    int m_iconAlign = Align_BesideText;
    bool m_guarded = false;
    bool m_clickedOnce = false;
    qint64 m_lastClickMs = 0;
    QTimer m_holdTimer;
    std::function<qint64()> m_clock;
};
