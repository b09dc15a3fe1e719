// SPDX-License-Identifier: Apache-2.0
// The cameras of ORXMainFeatureWidget: their trees, pages and side columns, from first to last.
#include "main/ORXMainFeatureWidget.h"

#include "device/ORXListenTools.h"
#include "device/ReentrancyScope.h"
#include "main/CFeatureGroupTreeView.h"
#include "main/ORXFeatureGroup.h"
#include "main/PageTabBar.h"
#include "pages/ORXCommonFeature.h"
#include "pages/ORXImgProcessingFeature.h"
#include "styledctl/ZELCustomDockTitleBar.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXFeatureTreeView.h"

#include <QScopedValueRollback>
#include <QStackedWidget>

namespace {

constexpr qint64 kHostCamera = 1;

} // namespace

void ORXMainFeatureWidget::CreateFeature()
{
    m_lCameraID = kHostCamera;
    featureTree(m_lCameraID, true)->CreateFeature();
    InitFeatureUI();
}

void ORXMainFeatureWidget::InitFeatureUI()
{
    m_bTemperatureTab = false;
    featureTree(m_lCameraID, true);
    if (m_pDockTitleBar) {
        DeviceFeatureInit(m_lCameraID);
        UpdateToolBarBtn(m_lCameraID);
    }
    if (m_lCameraID < 0)
        m_pPageStack->setCurrentIndex(WholeTreeTab);
}

void ORXMainFeatureWidget::DeviceFeatureInit(qint64 key)
{
    ORXFeatureTree* tree = m_trees.value(key, nullptr);
    if (!tree)
        return;
    if (tree->propertyItemByName(QStringLiteral("TempControlLoad")))
        m_bTemperatureTab = true;
    if (m_pTreeStack->indexOf(tree) < 0)
        m_pTreeStack->addWidget(tree);
    m_pTreeStack->setCurrentWidget(tree);
    const QList<IORXFeatureWidget*> pages = curatedPages();
    for (IORXFeatureWidget* page : pages) {
        page->setIsCanEdit(tree->isCanEdit());
        page->resetCamaraID(key);
    }
    m_pImagePage->afterCurrentTabShow();
    showTitle(key);
    ORXFeatureGroup* group = featureGroup(key);
    if (m_pGroupStack->indexOf(group) < 0)
        m_pGroupStack->addWidget(group);
    m_pGroupStack->setCurrentWidget(group);
    showTabs(key);
    showEmptyTexts(key);
    leaveEmptyGroup(key);
}

// A page without a group to show has no row in the side column, and its tab cannot be chosen.
void ORXMainFeatureWidget::showTabs(qint64 key)
{
    const ORXFeatureGroup* group = m_groups.value(key, nullptr);
    if (!group || key != m_lCameraID)
        return;
    for (int tab = 0; tab < kTabs; ++tab)
        m_pTabs->setTabEnabled(tab, group->groupView()->isPageShown(tab));
}

void ORXMainFeatureWidget::showTitle(qint64 key)
{
    m_pDockTitleBar->cSetTitleText(
        shared(QT_TRANSLATE_NOOP("ORXFeatureWidget", "Please select a connected camera.")));
    ORXFeatureTree* tree = m_trees.value(key, nullptr);
    if (tree && key >= 0)
        tree->refreshCameraItemName();
}

ORXFeatureTree* ORXMainFeatureWidget::featureTree(qint64 cameraId, bool)
{
    ORXFeatureTree*& tree = m_trees[cameraId];
    if (!tree) {
        tree = new ORXFeatureTree(cameraId, this);
        tree->hide();
        tree->setObjectName(QStringLiteral("ORXFeatureTree"));
        tree->setDockTitleBar(m_pDockTitleBar);
        connect(tree, &ORXFeatureTree::SigFirstEndUpdateFeature, this,
                &ORXMainFeatureWidget::afterFirstRead);
        connect(tree->treeView(), &ORXFeatureTreeView::SigRowsInSight, this,
                &ORXMainFeatureWidget::readFirst);
    }
    return tree;
}

// The view that went out of sight says that nothing of it is seen; the next one speaks for itself.
void ORXMainFeatureWidget::readFirst(const QStringList& names)
{
    ORXFeatureTree* tree = m_trees.value(m_lCameraID, nullptr);
    if (tree && !names.isEmpty())
        tree->setInSight(names);
}

bool ORXMainFeatureWidget::hasFeatureTree(qint64 cameraId) const
{
    return m_trees.contains(cameraId);
}

// What is available is known only now.
void ORXMainFeatureWidget::afterFirstRead(qint64 key)
{
    if (ORXFeatureGroup* group = m_groups.value(key, nullptr))
        group->searchAgain();
    leaveEmptyGroup(key);
}

// A new user has no favourites yet; the first look should not fall on an empty page.
void ORXMainFeatureWidget::leaveEmptyGroup(qint64 key)
{
    const ORXFeatureGroup* group = m_groups.value(key, nullptr);
    if (group && m_pPageStack->currentIndex() == WholeTreeTab && group->searchText().isEmpty())
        group->groupView()->leaveEmptyGroup();
}

ORXFeatureGroup* ORXMainFeatureWidget::featureGroup(qint64 key)
{
    ORXFeatureGroup*& group = m_groups[key];
    if (group)
        return group;
    QList<ORXPropertyTreeItem*> roots;
    if (key >= 0) {
        roots.append(featureTree(key, true)->rootItem());
        for (IORXFeatureWidget* page : curatedPages())
            roots.append(page->getRootItem(key, true));
    }
    group = new ORXFeatureGroup(roots, key, this);
    connect(group, &ORXFeatureGroup::SigTabChanged, this, &ORXMainFeatureWidget::onTabIndexChange);
    connect(group->groupView(), &CFeatureGroupTreeView::SigGroupChanged, this,
            [this, key](int tab) {
                if (ORXFeatureTreeView* view = pageView(key, tab))
                    view->scrollToTop();
            });
    connect(group->groupView(), &CFeatureGroupTreeView::SigPageShown, this,
            [this, key] { showTabs(key); });
    connect(group->groupView(), &QWidget::customContextMenuRequested, this,
            [this, key](const QPoint& position) { showColumnMenu(key, position); });
    connect(group, &ORXFeatureGroup::SigSearched, this,
            [this, key](const QString& text) { afterSearch(key, text); });
    connect(group, &ORXFeatureGroup::SigGoToHits, this, [this, key] { goToHit(key, false); });
    connect(group, &ORXFeatureGroup::SigNextHit, this, [this, key] { goToHit(key, true); });
    return group;
}

ORXPropertyTreeItem* ORXMainFeatureWidget::getItemByName(const QString& name, FeatureTabIndex tab)
{
    if (tab == WholeTreeTab)
        return currentTree() ? currentTree()->propertyItemByName(name) : nullptr;
    const QList<IORXFeatureWidget*> pages = curatedPages();
    IORXFeatureWidget* page = pages.value(tab - CommonTab, nullptr);
    return page ? page->getItemByNodeName(name, nullptr, m_lCameraID) : nullptr;
}

void ORXMainFeatureWidget::removeFeatureTree(qint64 key)
{
    if (!m_trees.contains(key))
        return;
    {
        const QScopedValueRollback<const ORXMainFeatureWidget*> sender(s_pRemoving, this);
        ORXListenTools::instance()->notifyListeners(ListenCode::kBeforeTreeRemoved, &key);
    }
    const QPointer<ORXFeatureTree> tree(m_trees.take(key));
    tree->hide();
    // Its view may stand below on the stack, in a drag.
    ReentrancyScope::runWhenInactive([tree] { delete tree; });
}

void ORXMainFeatureWidget::clearFeatureTrees()
{
    qDeleteAll(m_trees);
    m_trees.clear();
}

// A released window that waits for its end has a camera of the same key as the window after it:
// what one of them removes is no business of the other.
int ORXMainFeatureWidget::notify(int code, void* payload)
{
    const bool ofAnotherWindow = s_pRemoving && s_pRemoving != this;
    if (code == ListenCode::kBeforeTreeRemoved && payload && !ofAnotherWindow)
        emit sigBeforeDeleteFeature(*static_cast<qint64*>(payload));
    return 0;
}

void ORXMainFeatureWidget::onBeforeDeleteFeature(qint64 key)
{
    ORXFeatureTree* tree = m_trees.value(key, nullptr);
    requestStop(tree);
    m_pImagePage->stopHostCalls();
    if (tree)
        tree->StopThread(true);
    if (ORXFeatureGroup* group = m_groups.take(key)) {
        m_pGroupStack->removeWidget(group);
        delete group;
    }
    for (IORXFeatureWidget* page : curatedPages())
        page->removeCameraID(key);
    if (tree) {
        m_pTreeStack->removeWidget(tree);
        tree->removeCameraID(key);
    }
    m_lCameraID = -1;
}
