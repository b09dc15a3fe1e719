// SPDX-License-Identifier: Apache-2.0
#include "changes/ChangesPanel.h"

#include "basetools/ORXInterface.h"
#include "changes/FeatureFileDialog.h"
#include "styledctl/ZELCustom.h"
#include "styledctl/ZELCustomPushButton.h"
#include "styledctl/ZELTouchScrolling.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ValueWatch.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

constexpr int kFontPx = 12;
constexpr int kMargin = 4;

ZELCustomPushButton* makeButton(const char* name, QWidget* parent)
{
    auto* button = new ZELCustomPushButton(QString(), parent);
    button->setObjectName(QString::fromLatin1(name));
    return button;
}

} // namespace

ChangesPanel::ChangesPanel(ORXFeatureTree* tree, QWidget* parent)
    : QWidget(parent)
    , m_pTree(tree)
    , m_pJournal(
          new ChangeJournal([tree](const QString& name) { return tree->propertyItemByName(name); },
                            [tree](const QString& name) {
                                return tree->descriptionIndex().pollingMap().contains(name);
                            },
                            this))
    , m_pView(new QTreeView(this))
    , m_pRevert(makeButton("ChangesRevert", this))
    , m_pSave(makeButton("ChangesSave", this))
    , m_pCompare(makeButton("ChangesCompare", this))
{
    setObjectName(QStringLiteral("ChangesPanel"));
    buildLayout();
    retranslate();
    connect(tree->valueWatch(), &ValueWatch::SigChanged, m_pJournal, &ChangeJournal::append);
    connect(m_pJournal, &ChangeJournal::rowsInserted, this, &ChangesPanel::updateButtons);
    connect(m_pView->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &ChangesPanel::updateButtons);
    connect(m_pView, &QTreeView::activated, this, [this](const QModelIndex& index) {
        emit SigShowFeature(m_pJournal->change(index.row()).name);
    });
    connect(m_pRevert, &QPushButton::clicked, this, &ChangesPanel::revert);
    connect(m_pSave, &QPushButton::clicked, this, &ChangesPanel::saveToFile);
    connect(m_pCompare, &QPushButton::clicked, this, &ChangesPanel::compareWithFile);
}

void ChangesPanel::buildLayout()
{
    m_pView->setObjectName(QStringLiteral("ChangesView"));
    m_pView->setModel(m_pJournal);
    m_pView->setRootIsDecorated(false);
    m_pView->setUniformRowHeights(true);
    m_pView->setFrameShape(QFrame::NoFrame);
    m_pView->setFont(ZELCustom::font(kFontPx));
    m_pView->setStyleSheet(ZELCustom::styleSheet(ZELCustom::Sheet_Table) +
                           ZELCustom::styleSheet(ZELCustom::Sheet_ScrollBar));
    m_pView->header()->setSectionResizeMode(QHeaderView::Stretch);
    m_pView->setTabKeyNavigation(false);
    new ZELTouchScrolling(m_pView);

    auto* buttons = new QHBoxLayout;
    buttons->setContentsMargins(kMargin, 0, kMargin, kMargin);
    buttons->addWidget(m_pRevert);
    buttons->addStretch(1);
    buttons->addWidget(m_pSave);
    buttons->addWidget(m_pCompare);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kMargin);
    layout->addWidget(m_pView, 1);
    layout->addLayout(buttons);
}

void ChangesPanel::retranslate()
{
    m_pRevert->setText(tr("Revert"));
    m_pSave->setText(tr("Save..."));
    m_pCompare->setText(tr("Compare..."));
    m_pJournal->retranslate();
    updateButtons();
}

int ChangesPanel::currentRow() const
{
    const QModelIndex current = m_pView->currentIndex();
    return current.isValid() ? current.row() : -1;
}

void ChangesPanel::updateButtons()
{
    const int row = currentRow();
    m_pRevert->setEnabled(row >= 0 && m_pJournal->change(row).before.isValid());
}

bool ChangesPanel::revert()
{
    const int row = currentRow();
    if (row < 0 || !m_pJournal->change(row).before.isValid())
        return false;
    const ValueChange change = m_pJournal->change(row);
    const ORXPropertyTreeItem* item = m_pTree->propertyItemByName(change.name);
    return item && m_pTree->setFeatureValue(item->tagName(), change.name, change.before);
}

// Feature files -----------------------------------------------------------------------------------

FeatureFileDialog* ChangesPanel::dialog()
{
    if (!m_pDialog)
        m_pDialog = new FeatureFileDialog(m_pTree, this);
    return m_pDialog;
}

void ChangesPanel::saveToFile()
{
    const QPointer<ChangesPanel> self(this);
    const QString path =
        ORXInterface::getSaveFileName(window(), tr("Save Features"),
                                      tr("Feature files (*.features)"), QStringLiteral("features"));
    if (self && !path.isEmpty())
        saveTo(path);
}

void ChangesPanel::compareWithFile()
{
    const QPointer<ChangesPanel> self(this);
    const QString path = ORXInterface::getOpenFileName(window(), tr("Compare with Features"),
                                                       tr("Feature files (*.features)"));
    if (self && !path.isEmpty())
        compareWith(path);
}

void ChangesPanel::saveTo(const QString& path)
{
    dialog()->save(path);
}

void ChangesPanel::compareWith(const QString& path)
{
    dialog()->compare(path);
}

void ChangesPanel::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}
