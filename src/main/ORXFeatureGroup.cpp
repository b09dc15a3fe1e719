// SPDX-License-Identifier: Apache-2.0
#include "main/ORXFeatureGroup.h"

#include "main/CFeatureGroupTreeView.h"
#include "styledctl/ZELCustom.h"
#include "styledctl/ZELCustomLabel.h"
#include "styledctl/ZELCustomLineEdit.h"

#include <QEvent>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace {

constexpr int kSearchHeight = 32;
constexpr int kMargin = 6;
constexpr int kBottomMargin = 30;
constexpr int kSpacing = 9;
constexpr int kNoMatchFontSize = 13;

} // namespace

ORXFeatureGroup::ORXFeatureGroup(const QList<ORXPropertyTreeItem*>& roots, qint64 cameraId,
                                 QWidget* parent)
    : ZELCustomWidget(parent)
    , m_pSearch(new ZELCustomLineEdit(this))
    , m_pNoMatch(new ZELCustomLabel(this))
    , m_pView(new CFeatureGroupTreeView(roots, cameraId, this))
{
    m_pSearch->setObjectName(QStringLiteral("FeatureSearch"));
    m_pSearch->setFixedHeight(kSearchHeight);
    m_pSearch->cSetSearchEnabled(true);
    m_pSearch->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_pSearch->installEventFilter(this);
    m_pNoMatch->setObjectName(QStringLiteral("FeatureSearchNoMatch"));
    m_pNoMatch->setTextFormat(Qt::PlainText);
    m_pNoMatch->setWordWrap(true);
    m_pNoMatch->cSetFontSize(kNoMatchFontSize);
    m_pNoMatch->cSetTextColor(
        ZELCustom::getDataBaseColor(QStringLiteral("StyledCtlColor_Warning")));
    m_pNoMatch->setContentsMargins(kMargin, 0, kMargin, kSpacing);
    m_pNoMatch->hide();

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kBottomMargin);
    layout->setSpacing(0);
    layout->addWidget(m_pSearch);
    layout->addSpacing(kSpacing);
    layout->addWidget(m_pNoMatch);
    layout->addWidget(m_pView, 1);

    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    cSetBorderWidth(1);
    cSetBorderColor(QColor(QStringLiteral("#28292B")));
    connect(m_pSearch, &QLineEdit::textChanged, this, &ORXFeatureGroup::OnSearch);
    connect(m_pSearch, &ZELCustomLineEdit::cSigSearchClicked, this, &ORXFeatureGroup::OnSearch);
    connect(m_pView, &CFeatureGroupTreeView::SigHitsChanged, this,
            &ORXFeatureGroup::afterHitsChanged);
    connect(m_pView, &CFeatureGroupTreeView::SigTabChanged, this, &ORXFeatureGroup::SigTabChanged);
    retranslate();
}

void ORXFeatureGroup::OnSearch()
{
    const QString text = m_pSearch->text().trimmed();
    if (text != m_strLastSearch)
        search(text);
}

void ORXFeatureGroup::search(const QString& text)
{
    m_strLastSearch = text;
    m_pView->SetSearchText(text);
    m_nHits = m_pView->allHits();
    showNoMatch();
    emit SigSearched(text);
}

void ORXFeatureGroup::searchAgain()
{
    if (!m_strLastSearch.isEmpty())
        search(m_strLastSearch);
}

// Features come and go with the user level and with what is read. The first hits are turned to, as
// if they had been there when the text was typed.
void ORXFeatureGroup::afterHitsChanged()
{
    const int hits = m_pView->allHits();
    if (m_strLastSearch.isEmpty() || hits == m_nHits)
        return;
    if (m_nHits == 0) {
        searchAgain();
        return;
    }
    m_nHits = hits;
    showNoMatch();
    emit SigSearched(m_strLastSearch);
}

void ORXFeatureGroup::showNoMatch()
{
    const bool nothing = !m_strLastSearch.isEmpty() && m_pView->allHits() == 0;
    if (nothing)
        m_pNoMatch->setText(tr("No feature matches \"%1\".").arg(m_strLastSearch));
    m_pNoMatch->setVisible(nothing);
}

void ORXFeatureGroup::ClearSearch()
{
    m_pSearch->clear();
}

void ORXFeatureGroup::focusSearch()
{
    m_pSearch->setFocus(Qt::ShortcutFocusReason);
    m_pSearch->selectAll();
}

void ORXFeatureGroup::retranslate()
{
    m_pSearch->setPlaceholderText(tr("Search features"));
    m_pSearch->setToolTip(tr("Search by name (Ctrl+F)"));
    m_pView->retranslate();
}

bool ORXFeatureGroup::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_pSearch || event->type() != QEvent::KeyPress)
        return ZELCustomWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Down:
        emit SigGoToHits();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit SigNextHit();
        break;
    default:
        break;
    }
    return ZELCustomWidget::eventFilter(watched, event);
}

void ORXFeatureGroup::changeEvent(QEvent* event)
{
    ZELCustomWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}
