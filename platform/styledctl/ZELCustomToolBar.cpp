// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomToolBar.h"

#include <QHBoxLayout>

namespace {

constexpr int kSeparatorHeight = 20;

} // namespace

ZELCustomToolBar::ZELCustomToolBar(QWidget* parent)
    : ZELCustomWidget(parent)
    , m_layout(new QHBoxLayout(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
}

void ZELCustomToolBar::cAddWidget(QWidget* widget)
{
    m_layout->addWidget(widget, 0, Qt::AlignVCenter);
}

void ZELCustomToolBar::cAddSpacing(int pixels)
{
    m_layout->addSpacing(pixels);
}

void ZELCustomToolBar::cAddEndMarker()
{
    m_layout->addStretch(1);
}

void ZELCustomToolBar::cAddSeparator()
{
    auto* line = new ZELCustomWidget(this);
    line->cSetBackgroundColor(QStringLiteral("StyledCtlColor_Border"));
    line->setFixedSize(1, kSeparatorHeight);
    cAddWidget(line);
}
