// SPDX-License-Identifier: Apache-2.0
#include "tree/FeatureDescriptionPanel.h"

#include "basetools/ORXInterface.h"
#include "model/FeatureDocHtml.h"
#include "model/ORXPropertyTreeItem.h"
#include "reading/FeatureDocText.h"
#include "styledctl/ZELCustom.h"
#include "styledctl/ZELLateSheet.h"
#include "styledctl/ZELTouchScrolling.h"

#include <QCoreApplication>

namespace {

constexpr int kMinHeight = 60;
constexpr int kFontPx = 13;

} // namespace

FeatureDescriptionPanel::FeatureDescriptionPanel(QWidget* parent)
    : QTextEdit(parent)
{
    setObjectName(QStringLiteral("FeatureDescription"));
    setReadOnly(true);
    new ZELTouchScrolling(this);
    setFont(ZELCustom::font(kFontPx));
    setFrameShape(QFrame::NoFrame);
    setMinimumHeight(kMinHeight);
    ZELLateSheet::set(this, ZELCustom::styleSheet(ZELCustom::Sheet_TextPanel) +
                                ZELCustom::styleSheet(ZELCustom::Sheet_ScrollBar));
}

void FeatureDescriptionPanel::showItem(const ORXPropertyTreeItem* item)
{
    m_pItem = item;
    refresh();
}

void FeatureDescriptionPanel::refresh()
{
    QString html;
    if (ORXPropertyTreeItem::isAlive(m_pItem) && m_pItem->value()) {
        const QString language = ORXInterface::language();
        html = FeatureDocHtml::whole(*m_pItem->value(), language == QLatin1String("CH"));
        if (html.isEmpty())
            html = FeatureDocText::GetFeatureTitleText(*m_pItem->value(), language);
    }
    // An unchanged text stays as the user scrolled or marked it.
    if (html != m_strShown) {
        m_strShown = html;
        clear();
        insertHtml(html);
        moveCursor(QTextCursor::Start);
    }
    emit SigShown(m_pItem);
}

void FeatureDescriptionPanel::refreshIfShown(const ORXPropertyTreeItem* item)
{
    if (item == m_pItem)
        refresh();
}

void FeatureDescriptionPanel::retranslate()
{
    setPlaceholderText(
        QCoreApplication::translate("ORXFeatureTree", "Select a feature to read what it does."));
    refresh();
}
