// SPDX-License-Identifier: Apache-2.0
#include "main/PageTabBar.h"

#include "styledctl/ZELCustomPushButton.h"

#include <QButtonGroup>
#include <QHBoxLayout>

namespace {

constexpr int kHeight = 34;

} // namespace

PageTabBar::PageTabBar(int tabs, QWidget* parent)
    : ZELCustomWidget(parent)
    , m_pButtons(new QButtonGroup(this))
{
    setFixedHeight(kHeight);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (int index = 0; index < tabs; ++index) {
        auto* tab = new ZELCustomPushButton(this, ZELCustomPushButton::Style_Tab);
        tab->setObjectName(QStringLiteral("FeatureTab%1").arg(index));
        tab->setCheckable(true);
        tab->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        m_pButtons->addButton(tab, index);
        layout->addWidget(tab, 1);
        m_tabs.append(tab);
    }
    connect(m_pButtons, &QButtonGroup::idClicked, this, &PageTabBar::SigTabClicked);
}

void PageTabBar::setTab(int index, const QString& text, const QString& toolTip)
{
    m_tabs.at(index)->setText(text);
    m_tabs.at(index)->setToolTip(toolTip);
}

void PageTabBar::setCurrent(int index)
{
    m_tabs.at(index)->setChecked(true);
    // Tab comes to the chosen one, the arrows go on from there.
    for (int i = 0; i < m_tabs.size(); ++i)
        m_tabs.at(i)->setFocusPolicy(i == index ? Qt::StrongFocus : Qt::ClickFocus);
}

void PageTabBar::setTabEnabled(int index, bool enabled)
{
    m_tabs.at(index)->setEnabled(enabled);
}
