// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/private/ZELLook.h"

#include <QMetaObject>
#include <QString>

class QWidget;

// What one control changes about the common look: colours by theme key or fixed, border, font
// size. A control without such changes follows the theme alone. Base of the ZELCustom controls;
// GUI thread only.
class STYLEDCTL_EXPORT ZELCustomLook : public ZELLook
{
public:
    enum Install { InstallNow, InstallLater };

    // `style` is the control's own StyleSelector value. A control that wants to see the change of
    // its style in changeEvent() asks for InstallLater and calls cInstall() in its constructor.
    ZELCustomLook(QWidget* widget, int style, Install install = InstallNow);
    ~ZELCustomLook() override;
    ZELCustomLook(const ZELCustomLook&) = delete;
    ZELCustomLook& operator=(const ZELCustomLook&) = delete;

    int cStyle() const { return m_style; }
    void cSetStyle(int style);

    // Theme key (colour or gradient); the empty key returns to the theme's own background.
    void cSetBackgroundColor(const QString& key);
    void cSetBackgroundColor(const QColor& color);
    void cSetBorderColor(const QString& key);
    void cSetBorderColor(const QColor& color);
    // Device-independent pixels; 0 draws no border. -1 returns to the theme's own width.
    void cSetBorderWidth(int width);
    // Corner radius in device-independent pixels; -1 returns to the theme's own radius.
    void cSetBorderRadius(int radius);
    void cSetTextColor(const QString& key);
    void cSetTextColor(const QColor& color);
    // Device-independent pixels.
    void cSetFontSize(int pixelSize);
    // Family of ZELCustom::globalFontFamily(variant).
    void cSetFontFamily(int variant);

    // Framed, with the icon beside the text, unless the control says otherwise.
    Shape cShape() const override { return Shape::Framed; }
    IconPlace cIconPlace() const override { return IconPlace::BesideText; }
    QBrush cBackground() const override;
    QColor cBorderColor() const override;
    QColor cTextColor() const override;
    int cBorderWidth() const override { return m_borderWidth; }
    int cBorderRadius() const override { return m_borderRadius; }

protected:
    // Gives the widget the common style, font and palette.
    void cInstall();
    // After each change of what the control looks like, from the theme, too.
    virtual void cRedraw();

private:
    struct Paint
    {
        QString key;
        QColor color;
    };
    static QColor colorOf(const Paint& paint);
    void cApplyTheme();

    QWidget* m_widget; // Not owned; the object this is a base of.
    int m_style;
    Paint m_background;
    Paint m_border;
    Paint m_text;
    int m_borderWidth = -1;
    int m_borderRadius = -1;
    QMetaObject::Connection m_connection;
};
