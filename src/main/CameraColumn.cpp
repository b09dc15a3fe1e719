// SPDX-License-Identifier: Apache-2.0
#include "main/CameraColumn.h"

#include "main/CFeatureGroupTreeView.h"
#include "main/FeaturePages.h"
#include "main/ORXFeatureGroup.h"
#include "main/PageTabBar.h"
#include "model/ORXPropertyTreeModel.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXFeatureTreeView.h"

#include <QCoreApplication>

CameraColumn::CameraColumn(qint64 cameraId, ORXFeatureTree* tree, FeaturePages* pages,
                           QWidget* window)
    : m_lCameraID(cameraId)
    , m_pTree(tree)
    , m_pPages(pages)
    , m_search(this)
{
    QList<ORXPropertyTreeItem*> roots;
    if (cameraId >= 0) {
        roots.append(tree->rootItem());
        roots += pages->curatedRoots(cameraId);
    }
    m_pGroup = new ORXFeatureGroup(roots, cameraId, window);
    const CFeatureGroupTreeView* groups = m_pGroup->groupView();
    connect(groups, &CFeatureGroupTreeView::SigGroupChanged, this, [this](int tab) {
        if (ORXFeatureTreeView* changed = view(tab))
            changed->scrollToTop();
    });
    connect(groups, &QWidget::customContextMenuRequested, this, &CameraColumn::showMenu);
    connect(tree->valueWatch(), &ValueWatch::SigChanged, this, &CameraColumn::noteChanges);
    connect(tree->changeMarks(), &ChangeMarks::SigCleared, m_pGroup->groupView(),
            &CFeatureGroupTreeView::forgetChanges);
    connect(m_pGroup, &ORXFeatureGroup::SigSearched, this, &CameraColumn::afterSearch);
    connect(m_pGroup, &ORXFeatureGroup::SigGoToHits, this, [this] { goToHit(false); });
    connect(m_pGroup, &ORXFeatureGroup::SigNextHit, this, [this] { goToHit(true); });
}

CameraColumn::~CameraColumn()
{
    delete m_pGroup;
}

ORXFeatureTreeView* CameraColumn::view(int tab) const
{
    return m_pPages->view(tab, m_lCameraID, m_pTree);
}

void CameraColumn::afterSearch(const QString& text)
{
    if (!m_pTree)
        return;
    QVector<ORXFeatureTreeView*> views;
    for (int tab = 0; tab < FeaturePages::kTabs; ++tab) {
        if (ORXFeatureTreeView* shown = view(tab))
            views.append(shown);
    }
    m_search.apply(views, text);
    showEmptyTexts();
}

// Of the whole tree only the favourites can be empty, and it says that itself.
void CameraColumn::showEmptyTexts()
{
    if (!m_pTree)
        return;
    const QString search = m_pGroup->searchText();
    QString text = QCoreApplication::translate(
        "ORXMainFeatureWidget", "This camera has nothing to show on this page at this user level.");
    if (!search.isEmpty())
        text = m_pGroup->groupView()->allHits() > 0
                   ? QCoreApplication::translate("ORXMainFeatureWidget",
                                                 "No feature of this group matches \"%1\".")
                         .arg(search)
                   : ORXFeatureGroup::tr("No feature matches \"%1\".").arg(search);
    for (int tab = 0; tab < FeaturePages::kTabs; ++tab) {
        if (ORXFeatureTreeView* shown = view(tab))
            shown->setPlaceholderText(text);
    }
    if (search.isEmpty())
        m_pTree->RefreshWidgetInfo();
}

void CameraColumn::goToHit(bool next)
{
    if (m_pGroup->searchText().isEmpty())
        return;
    CFeatureGroupTreeView* groups = m_pGroup->groupView();
    const auto goInShownGroup = [&](bool behind) {
        ORXFeatureTreeView* shown = view(m_pPages->current());
        return shown &&
               m_search.goToHit(shown, CFeatureGroupModel::itemFromIndex(groups->currentIndex()),
                                behind);
    };
    // Behind the last hit of the last group it begins again.
    const bool found = goInShownGroup(next) || (groups->showNextHitGroup(), goInShownGroup(false));
    if (found && !next)
        view(m_pPages->current())->setFocus(Qt::ShortcutFocusReason);
}

void CameraColumn::showTabs()
{
    for (int tab = 0; tab < FeaturePages::kTabs; ++tab)
        m_pPages->tabBar()->setTabEnabled(tab, m_pGroup->groupView()->isPageShown(tab));
}

// The favourites have their menu where their name stands, too.
void CameraColumn::showMenu(const QPoint& position)
{
    const CFeatureGroupTreeView* groups = m_pGroup->groupView();
    const ORXPropertyTreeItem* item = CFeatureGroupModel::itemFromIndex(groups->indexAt(position));
    if (m_pTree && item && item->itemType() == ORXPropertyTreeItem::FavoritesGroup)
        m_pTree->showFavoritesMenu(groups->viewport()->mapToGlobal(position));
}

// What is polled and changes of itself would keep its group's dot for ever, and say nothing with
// it.
void CameraColumn::noteChanges(const QVector<ValueChange>& changes)
{
    if (!m_pTree)
        return;
    QVector<ORXPropertyTreeItem*> items;
    for (const ValueChange& change : changes) {
        if (ChangeMarks::isMarked(change) && !change.restless)
            items.append(change.item);
    }
    if (!items.isEmpty())
        m_pGroup->groupView()->noteChanges(items);
}

void CameraColumn::afterFirstRead()
{
    m_pGroup->searchAgain();
    leaveEmptyGroup();
}

void CameraColumn::showFeature(const QString& name)
{
    ORXPropertyTreeItem* item = m_pTree ? m_pTree->propertyItemByName(name) : nullptr;
    ORXFeatureTreeView* tree = view(FeaturePages::WholeTree);
    if (!item || !tree || !item->visible())
        return;
    // Who wants to see a feature that the search does not show has done with the search.
    if (!item->searchMatch())
        m_pGroup->ClearSearch();
    constexpr auto kPage = ORXPropertyTreeItem::FeatureTreePage;
    const ORXPropertyTreeItem* group = item;
    while (group->parent(kPage) && group->parent(kPage) != m_pTree->rootItem())
        group = group->parent(kPage);
    CFeatureGroupTreeView* groups = m_pGroup->groupView();
    const auto* model = static_cast<const CFeatureGroupModel*>(groups->model());
    groups->OnChangedIndex(model->groupIndex(FeaturePages::WholeTree, group));
    const QModelIndex row = tree->treeModel()->indexFromItem(item, 0);
    tree->setCurrentIndex(row);
    tree->scrollTo(row);
    tree->setFocus(Qt::OtherFocusReason);
}

void CameraColumn::leaveEmptyGroup()
{
    if (m_pPages->current() == FeaturePages::WholeTree && m_pGroup->searchText().isEmpty())
        m_pGroup->groupView()->leaveEmptyGroup();
}
