// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomQssHelper.h"

#include "styledctl/ZELCustom.h"
#include "styledctl/ZELLateSheet.h"
#include "styledctl/ZELTheme.h"
#include "styledctl/private/ZELColors.h"

#include <QWidget>

namespace {

constexpr int kViewFontPx = 13;

} // namespace

ZELCustomQssHelper::ZELCustomQssHelper(QWidget* widget)
    : m_widget(widget)
{
    widget->setStyle(ZELCustom::style());
    widget->setPalette(ZELColors::current().palette);
    widget->setFont(ZELCustom::font(kViewFontPx));
    m_connection = QObject::connect(ZELTheme::instance(), &ZELTheme::cSigThemeChanged, [this] {
        m_widget->setPalette(ZELColors::current().palette);
        cApplyStyleSheets();
        cThemeChanged();
    });
}

ZELCustomQssHelper::~ZELCustomQssHelper()
{
    QObject::disconnect(m_connection);
}

void ZELCustomQssHelper::cSetStyleSheets(const QVector<int>& numbers, const QString& extra)
{
    m_numbers = numbers;
    m_extra = extra;
    cApplyStyleSheets();
}

void ZELCustomQssHelper::cApplyStyleSheets()
{
    QString sheet;
    for (const int number : qAsConst(m_numbers))
        sheet += ZELCustom::styleSheet(number);
    sheet += ZELCustom::resolveSheet(m_extra);
    ZELLateSheet::set(m_widget, sheet);
}
