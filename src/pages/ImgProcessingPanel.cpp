// SPDX-License-Identifier: Apache-2.0
#include "pages/ImgProcessingPanel.h"

#include "lut/QLUTDrawWidget.h"
#include "region/RegionDrawWidget.h"
#include "styledctl/ZELCustom.h"
#include "styledctl/ZELLateSheet.h"
#include "styledctl/ZELSplitterKeys.h"

#include <QLayout>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>

namespace {

constexpr int kRowsShare = 1; // of the page's height; the panel gets as much
constexpr int kPanelShare = 1;
constexpr int kLutMargin = 9;

} // namespace

ImgProcessingPanel::ImgProcessingPanel(QWidget* rows, QWidget* page)
    : QStackedWidget(page)
    , m_pRegion(new RegionDrawWidget(this))
    , m_pLutPanel(new QScrollArea(this))
    , m_pLut(new QLUTDrawWidget(m_pLutPanel))
{
    addWidget(m_pRegion);
    addWidget(m_pLutPanel);
    // The curve has one size: in a small window it is scrolled.
    m_pLutPanel->setWidget(m_pLut);
    m_pLutPanel->setAlignment(Qt::AlignCenter);
    m_pLutPanel->setFrameShape(QFrame::NoFrame);
    m_pLutPanel->setFocusPolicy(Qt::NoFocus);
    m_pLutPanel->viewport()->setAutoFillBackground(false);
    ZELLateSheet::set(m_pLutPanel->verticalScrollBar(),
                      ZELCustom::styleSheet(ZELCustom::Sheet_ScrollBar));
    hide();
    auto* splitter = new QSplitter(Qt::Vertical, page);
    splitter->setStyle(ZELCustom::style());
    splitter->setChildrenCollapsible(false);
    new ZELSplitterKeys(splitter);
    splitter->addWidget(rows);
    splitter->addWidget(this);
    splitter->setStretchFactor(0, kRowsShare);
    splitter->setStretchFactor(1, kPanelShare);
    page->layout()->addWidget(splitter);
}

void ImgProcessingPanel::setContent(Content content, int width)
{
    if (content != Nothing)
        setCurrentWidget(content == Region ? static_cast<QWidget*>(m_pRegion) : m_pLutPanel);
    fit(width);
    setVisible(content != Nothing);
}

// What the panel cannot use is the rows'.
void ImgProcessingPanel::fit(int width)
{
    const bool lut = currentWidget() == m_pLutPanel;
    setMaximumHeight(lut ? m_pLut->sizeHint().height() + 2 * kLutMargin
                         : m_pRegion->usefulHeight(width));
}
