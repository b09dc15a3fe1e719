// SPDX-License-Identifier: Apache-2.0
#include "main/FeaturePages.h"

#include "main/PageTabBar.h"
#include "pages/ORXCommonFeature.h"
#include "pages/ORXImgProcessingFeature.h"
#include "pages/ORXTriggerFeature.h"
#include "styledctl/ZELCustom.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXFeatureTreeView.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QStackedWidget>

namespace {

constexpr int kTabTextWidth = 80;
constexpr int kTabFontSize = 13;
const char* const kTabTexts[FeaturePages::kTabs] = {
    QT_TRANSLATE_NOOP("ORXMainFeatureWidget", "Feature Tree"),
    QT_TRANSLATE_NOOP("ORXMainFeatureWidget", "Common"),
    QT_TRANSLATE_NOOP("ORXMainFeatureWidget", "Trigger"),
    QT_TRANSLATE_NOOP("ORXMainFeatureWidget", "Image"),
};

} // namespace

// Tab comes to widgets in the order in which they were made: the bar stands before the pages.
FeaturePages::FeaturePages(QWidget* window)
    : QObject(window)
    , m_pTabs(new PageTabBar(kTabs, window))
{
    m_curated = {new ORXCommonFeature(window), new ORXTriggerFeature(window)};
    m_pImagePage = new ORXImgProcessingFeature(window);
    m_curated.append(m_pImagePage);
    m_pTreeStack = new QStackedWidget(window);
    m_pStack = new QStackedWidget(window);
    m_pStack->addWidget(m_pTreeStack);
    for (IORXFeatureWidget* page : qAsConst(m_curated)) {
        m_pStack->addWidget(page);
        connect(page->treeView(), &ORXFeatureTreeView::SigRowsInSight, this,
                &FeaturePages::SigRowsInSight);
    }
}

int FeaturePages::current() const
{
    return m_pStack->currentIndex();
}

void FeaturePages::turnTo(int tab)
{
    m_pStack->setCurrentIndex(tab);
    m_pTabs->setCurrent(tab);
}

void FeaturePages::clear()
{
    m_pImagePage = nullptr;
    qDeleteAll(m_curated);
    m_curated.clear();
}

void FeaturePages::showCamera(ORXFeatureTree* tree, qint64 key)
{
    m_pTreeStack->setCurrentWidget(tree);
    for (int tab = Common; tab < kTabs; ++tab)
        showCamera(tree, key, tab);
}

void FeaturePages::showCamera(ORXFeatureTree* tree, qint64 key, int tab)
{
    IORXFeatureWidget* page = curatedPage(tab);
    page->setIsCanEdit(tree->isCanEdit());
    page->treeView()->setMarks(tree->changeMarks());
    page->resetCamaraID(key);
    if (page == m_pImagePage)
        m_pImagePage->afterCurrentTabShow();
}

void FeaturePages::addTree(ORXFeatureTree* tree)
{
    if (m_pTreeStack->indexOf(tree) < 0)
        m_pTreeStack->addWidget(tree);
}

void FeaturePages::removeTree(ORXFeatureTree* tree)
{
    m_pTreeStack->removeWidget(tree);
}

void FeaturePages::removeCamera(qint64 key)
{
    for (IORXFeatureWidget* page : qAsConst(m_curated))
        page->removeCameraID(key);
}

QList<ORXPropertyTreeItem*> FeaturePages::curatedRoots(qint64 key) const
{
    QList<ORXPropertyTreeItem*> roots;
    for (IORXFeatureWidget* page : m_curated)
        roots.append(page->getRootItem(key, true));
    return roots;
}

ORXFeatureTreeView* FeaturePages::view(int tab, qint64 key, const ORXFeatureTree* tree) const
{
    if (tab == WholeTree)
        return tree ? tree->treeView() : nullptr;
    const IORXFeatureWidget* page = curatedPage(tab);
    return page && page->cameraID() == key ? page->treeView() : nullptr;
}

void FeaturePages::requestStop()
{
    if (m_pImagePage)
        m_pImagePage->requestStop();
}

void FeaturePages::stopHostCalls()
{
    if (m_pImagePage)
        m_pImagePage->stopHostCalls();
}

void FeaturePages::setCuratedEnabled(bool enabled)
{
    for (IORXFeatureWidget* page : qAsConst(m_curated))
        page->setEnabled(enabled);
}

void FeaturePages::translateCurated()
{
    for (IORXFeatureWidget* page : qAsConst(m_curated))
        page->translate();
}

void FeaturePages::retranslateTabs()
{
    for (int tab = 0; tab < kTabs; ++tab) {
        const QString text = QCoreApplication::translate("ORXMainFeatureWidget", kTabTexts[tab]);
        m_pTabs->setTab(tab, cutTabText(text), text);
    }
    m_pTabs->setCurrent(current());
}

QString FeaturePages::cutTabText(const QString& text)
{
    return QFontMetrics(ZELCustom::font(kTabFontSize))
        .elidedText(text, Qt::ElideRight, kTabTextWidth);
}
