// SPDX-License-Identifier: Apache-2.0
#include "tree/FeatureInfoTabs.h"

#include "styledctl/ZELCustom.h"
#include "styledctl/ZELLateSheet.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QTabBar>
#include <QVBoxLayout>

namespace {

constexpr int kFontPx = 13;

} // namespace

FeatureInfoTabs::FeatureInfoTabs(QWidget* parent)
    : QTabWidget(parent)
{
    setObjectName(QStringLiteral("FeatureInfoTabs"));
    tabBar()->setObjectName(QStringLiteral("FeatureInfoTabBar"));
    tabBar()->setExpanding(false);
    tabBar()->setFont(ZELCustom::font(kFontPx));
    // The bar's alone: with a sheet of ours above them, all widgets of all panels are polished each
    // time one of them is hung up.
    setDocumentMode(true);
    tabBar()->setDrawBase(false);
    ZELLateSheet::set(tabBar(),
                      ZELCustom::styleSheet(ZELCustom::Sheet_Tab) +
                          ZELCustom::resolveSheet(QStringLiteral(
                              "QTabBar::tab { padding: 6px 12px; }"
                              "QTabBar::tab:focus { background: @StyledCtlColor_Hover@; }")));
    auto* corner = new QWidget(this);
    auto* layout = new QHBoxLayout(corner);
    layout->setContentsMargins(0, 0, 0, 0);
    setCornerWidget(corner);
    connect(this, &QTabWidget::currentChanged, this, &FeatureInfoTabs::showActions);
}

void FeatureInfoTabs::addPanel(QWidget* panel, const std::function<QString()>& title,
                               QWidget* actions)
{
    auto* page = new QWidget(this);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(panel, 1);
    m_titles.append(title);
    m_actions.append(actions);
    addTab(page, title());
    showActions();
}

// Beside the tabs, or below the panel where a narrow window has no room for both.
void FeatureInfoTabs::showActions()
{
    for (int i = 0; i < m_actions.size(); ++i) {
        QWidget* actions = m_actions.at(i);
        if (!actions)
            continue;
        const int needed = tabBar()->sizeHint().width() + actions->sizeHint().width();
        QLayout* place = (width() < needed ? widget(i) : cornerWidget())->layout();
        if (place->indexOf(actions) < 0)
            place->addWidget(actions);
        actions->setVisible(i == currentIndex());
    }
}

void FeatureInfoTabs::resizeEvent(QResizeEvent* event)
{
    QTabWidget::resizeEvent(event);
    showActions();
}

void FeatureInfoTabs::changeEvent(QEvent* event)
{
    QTabWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    for (int i = 0; i < m_titles.size(); ++i)
        setTabText(i, m_titles.at(i)());
    showActions();
}

// In document mode there is but the base of the bar below the corner, a bright line.
void FeatureInfoTabs::paintEvent(QPaintEvent*) {}
