// SPDX-License-Identifier: Apache-2.0
#include "tree/FeatureInfoTabs.h"

#include "styledctl/ZELCustom.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QTabBar>

namespace {

constexpr int kFontPx = 13;

} // namespace

FeatureInfoTabs::FeatureInfoTabs(QWidget* parent)
    : QTabWidget(parent)
{
    setObjectName(QStringLiteral("FeatureInfoTabs"));
    setDocumentMode(true);
    tabBar()->setObjectName(QStringLiteral("FeatureInfoTabBar"));
    tabBar()->setDrawBase(false);
    tabBar()->setExpanding(false);
    tabBar()->setFont(ZELCustom::font(kFontPx));
    setStyleSheet(ZELCustom::styleSheet(ZELCustom::Sheet_Tab) +
                  QStringLiteral("QTabBar::tab { padding: 6px 12px; }"));
    auto* corner = new QWidget(this);
    auto* layout = new QHBoxLayout(corner);
    layout->setContentsMargins(0, 0, 0, 0);
    setCornerWidget(corner);
    connect(this, &QTabWidget::currentChanged, this, &FeatureInfoTabs::showActions);
}

void FeatureInfoTabs::addPanel(QWidget* panel, const std::function<QString()>& title,
                               QWidget* actions)
{
    m_titles.append(title);
    m_actions.append(actions);
    if (actions)
        cornerWidget()->layout()->addWidget(actions);
    addTab(panel, title());
    showActions();
}

void FeatureInfoTabs::showActions()
{
    for (int i = 0; i < m_actions.size(); ++i) {
        if (m_actions.at(i))
            m_actions.at(i)->setVisible(i == currentIndex());
    }
}

void FeatureInfoTabs::changeEvent(QEvent* event)
{
    QTabWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    for (int i = 0; i < m_titles.size(); ++i)
        setTabText(i, m_titles.at(i)());
}
