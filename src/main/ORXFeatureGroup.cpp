// SPDX-License-Identifier: Apache-2.0
#include "main/ORXFeatureGroup.h"

#include "main/CFeatureGroupTreeView.h"
#include "styledctl/ZELCustomLineEdit.h"

#include <QEvent>
#include <QVBoxLayout>

namespace {

constexpr int kSearchHeight = 32;
constexpr int kMargin = 6;
constexpr int kBottomMargin = 30;
constexpr int kSpacing = 9;

} // namespace

ORXFeatureGroup::ORXFeatureGroup(const QList<ORXPropertyTreeItem*>& roots, qint64 cameraId,
                                 QWidget* parent)
    : ZELCustomWidget(parent)
    , m_pSearch(new ZELCustomLineEdit(this))
    , m_pView(new CFeatureGroupTreeView(roots, cameraId, this))
{
    m_pSearch->setObjectName(QStringLiteral("FeatureSearch"));
    m_pSearch->setFixedHeight(kSearchHeight);
    m_pSearch->cSetSearchEnabled(true);
    m_pSearch->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kBottomMargin);
    layout->setSpacing(0);
    layout->addWidget(m_pSearch);
    layout->addSpacing(kSpacing);
    layout->addWidget(m_pView);

    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    cSetBorderWidth(1);
    cSetBorderColor(QColor(QStringLiteral("#28292B")));
    connect(m_pSearch, &QLineEdit::textChanged, this, &ORXFeatureGroup::OnSearch);
    connect(m_pSearch, &ZELCustomLineEdit::cSigSearchClicked, this, &ORXFeatureGroup::OnSearch);
    connect(m_pView, &CFeatureGroupTreeView::SigTabChanged, this, &ORXFeatureGroup::SigTabChanged);
}

void ORXFeatureGroup::OnSearch()
{
    const QString text = m_pSearch->text().trimmed();
    if (text == m_strLastSearch)
        return;
    m_strLastSearch = text;
    m_pView->SetSearchText(text);
}

void ORXFeatureGroup::ClearSearch()
{
    m_pSearch->clear();
}

void ORXFeatureGroup::changeEvent(QEvent* event)
{
    ZELCustomWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        m_pView->retranslate();
}
