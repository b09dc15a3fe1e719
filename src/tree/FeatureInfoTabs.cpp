// SPDX-License-Identifier: Apache-2.0
#include "tree/FeatureInfoTabs.h"

#include "styledctl/ZELCustom.h"

#include <QEvent>
#include <QTabBar>

FeatureInfoTabs::FeatureInfoTabs(QWidget* parent)
    : QTabWidget(parent)
{
    setObjectName(QStringLiteral("FeatureInfoTabs"));
    setDocumentMode(true);
    tabBar()->setObjectName(QStringLiteral("FeatureInfoTabBar"));
    tabBar()->setDrawBase(false);
    tabBar()->setExpanding(false);
    setStyleSheet(ZELCustom::styleSheet(ZELCustom::Sheet_Tab));
}

void FeatureInfoTabs::addPanel(QWidget* panel, const std::function<QString()>& title)
{
    m_titles.append(title);
    addTab(panel, title());
}

void FeatureInfoTabs::changeEvent(QEvent* event)
{
    QTabWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    for (int i = 0; i < m_titles.size(); ++i)
        setTabText(i, m_titles.at(i)());
}
