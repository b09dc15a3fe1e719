// SPDX-License-Identifier: Apache-2.0
#include "changes/ChangesPanel.h"

#include "basetools/ORXInterface.h"
#include "changes/FeatureFileDialog.h"
#include "changes/ThemedTable.h"
#include "styledctl/ZELCustomPushButton.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ValueWatch.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace {

constexpr int kMargin = 4;

ZELCustomPushButton* makeButton(const char* name, QWidget* parent)
{
    auto* button = new ZELCustomPushButton(QString(), parent, ZELCustomPushButton::Style_Flat);
    button->setObjectName(QString::fromLatin1(name));
    return button;
}

} // namespace

ChangesPanel::ChangesPanel(ORXFeatureTree* tree, QWidget* parent)
    : QWidget(parent)
    , m_pTree(tree)
    , m_pJournal(new ChangeJournal(
          [tree](const QString& name) { return tree->propertyItemByName(name); }, this))
    , m_pActions(new QWidget(this))
    , m_pRevert(makeButton("ChangesRevert", m_pActions))
    , m_pSave(makeButton("ChangesSave", m_pActions))
    , m_pCompare(makeButton("ChangesCompare", m_pActions))
{
    setObjectName(QStringLiteral("ChangesPanel"));
    buildLayout();
    retranslate();
    connect(tree->valueWatch(), &ValueWatch::SigChanged, m_pJournal, &ChangeJournal::append);
    connect(m_pJournal, &ChangeJournal::rowsInserted, this, &ChangesPanel::updateButtons);
    connect(m_pRevert, &QPushButton::clicked, this, &ChangesPanel::revert);
    connect(m_pSave, &QPushButton::clicked, this, &ChangesPanel::saveToFile);
    connect(m_pCompare, &QPushButton::clicked, this, &ChangesPanel::compareWithFile);
}

ChangesPanel::~ChangesPanel()
{
    delete m_pDialog;
}

void ChangesPanel::buildLayout()
{
    auto* buttons = new QHBoxLayout(m_pActions);
    buttons->setContentsMargins(0, 0, kMargin, 0);
    buttons->setSpacing(kMargin);
    for (ZELCustomPushButton* button : {m_pRevert, m_pSave, m_pCompare})
        buttons->addWidget(button);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
}

void ChangesPanel::makeView()
{
    m_pView = new ThemedTable(m_pJournal, this);
    m_pView->setObjectName(QStringLiteral("ChangesView"));
    m_pView->setShares({2, 4, 3, 3, 4});
    layout()->addWidget(m_pView);
    m_pView->show();
    // Tab comes to it where it would have come had it been made with the buttons, before them.
    QWidget* before = m_pRevert->previousInFocusChain();
    while (before->focusPolicy() == Qt::NoFocus)
        before = before->previousInFocusChain();
    setTabOrder(before, m_pView);
    connect(m_pView->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &ChangesPanel::updateButtons);
    connect(m_pView, &QTableView::activated, this, [this](const QModelIndex& index) {
        emit SigShowFeature(m_pJournal->change(index.row()).name);
    });
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
    const QModelIndex current = m_pView ? m_pView->currentIndex() : QModelIndex();
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

// A child of the window, since a dialog takes over the style sheets of those above it.
FeatureFileDialog* ChangesPanel::dialog()
{
    if (!m_pDialog)
        m_pDialog = new FeatureFileDialog(m_pTree, window());
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

void ChangesPanel::showEvent(QShowEvent* event)
{
    if (!m_pView)
        makeView();
    QWidget::showEvent(event);
}
