// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomLook.h"

#include "styledctl/ZELCustom.h"
#include "styledctl/ZELTheme.h"
#include "styledctl/private/ZELColors.h"

#include <QWidget>

namespace {

constexpr int kControlFontPx = 13;

} // namespace

ZELCustomLook::ZELCustomLook(QWidget* widget, int style, Install install)
    : m_widget(widget)
    , m_style(style)
{
    if (install == InstallNow)
        cInstall();
}

void ZELCustomLook::cInstall()
{
    m_widget->setStyle(ZELCustom::style());
    m_widget->setFont(ZELCustom::font(kControlFontPx));
    m_widget->setAttribute(Qt::WA_Hover);
    cApplyTheme();
    m_connection = QObject::connect(ZELTheme::instance(), &ZELTheme::cSigThemeChanged,
                                    [this] { cApplyTheme(); });
}

ZELCustomLook::~ZELCustomLook()
{
    QObject::disconnect(m_connection);
}

void ZELCustomLook::cApplyTheme()
{
    QPalette palette = ZELColors::current().palette;
    const QColor text = cTextColor();
    if (text.isValid()) {
        for (const QPalette::ColorRole role :
             {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
            palette.setColor(QPalette::Active, role, text);
            palette.setColor(QPalette::Inactive, role, text);
        }
    }
    m_widget->setPalette(palette);
    cRedraw();
}

void ZELCustomLook::cRedraw()
{
    m_widget->update();
}

void ZELCustomLook::cSetStyle(int style)
{
    m_style = style;
    m_widget->updateGeometry();
    cRedraw();
}

void ZELCustomLook::cSetBackgroundColor(const QString& key)
{
    m_background = {key, QColor()};
    cRedraw();
}

void ZELCustomLook::cSetBackgroundColor(const QColor& color)
{
    m_background = {QString(), color};
    cRedraw();
}

void ZELCustomLook::cSetBorderColor(const QString& key)
{
    m_border = {key, QColor()};
    cRedraw();
}

void ZELCustomLook::cSetBorderColor(const QColor& color)
{
    m_border = {QString(), color};
    cRedraw();
}

void ZELCustomLook::cSetBorderWidth(int width)
{
    m_borderWidth = width;
    cRedraw();
}

void ZELCustomLook::cSetBorderRadius(int radius)
{
    m_borderRadius = radius;
    cRedraw();
}

void ZELCustomLook::cSetTextColor(const QString& key)
{
    m_text = {key, QColor()};
    cApplyTheme();
}

void ZELCustomLook::cSetTextColor(const QColor& color)
{
    m_text = {QString(), color};
    cApplyTheme();
}

void ZELCustomLook::cSetFontSize(int pixelSize)
{
    QFont font = m_widget->font();
    font.setPixelSize(qMax(1, pixelSize));
    m_widget->setFont(font);
}

void ZELCustomLook::cSetFontFamily(int variant)
{
    QFont font = m_widget->font();
    ZELCustom::setFamily(&font, variant);
    m_widget->setFont(font);
}

QColor ZELCustomLook::colorOf(const Paint& paint)
{
    return paint.key.isEmpty() ? paint.color : ZELCustom::getDataBaseColor(paint.key);
}

QBrush ZELCustomLook::cBackground() const
{
    if (!m_background.key.isEmpty())
        return ZELCustom::getDataBaseBrush(m_background.key);
    return m_background.color.isValid() ? QBrush(m_background.color) : QBrush(Qt::NoBrush);
}

QColor ZELCustomLook::cBorderColor() const
{
    return colorOf(m_border);
}

QColor ZELCustomLook::cTextColor() const
{
    return colorOf(m_text);
}
