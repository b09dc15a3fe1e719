// SPDX-License-Identifier: Apache-2.0
// What the user does in ORXMainFeatureWidget: search, tabs, tool bar, language.
#include "basetools/ORXInterface.h"
#include "device/OBDeviceControl.h"
#include "device/ORXListenTools.h"
#include "device/ReentrancyScope.h"
#include "main/CFeatureGroupTreeView.h"
#include "main/FeatureSearch.h"
#include "main/ORXFeatureGroup.h"
#include "main/ORXFeatureToolBar.h"
#include "main/ORXMainFeatureWidget.h"
#include "main/PageTabBar.h"
#include "pages/ORXCommonFeature.h"
#include "pages/ORXImgProcessingFeature.h"
#include "styledctl/ZELCustom.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXFeatureTreeView.h"
#include "userset/ORXFeatureSaveWidget.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFontMetrics>
#include <QStackedWidget>

namespace {

constexpr int kTabTextWidth = 80;
constexpr int kTabFontSize = 13;
const char kTextContext[] = "ORXFeatureWidget";

} // namespace

QString ORXMainFeatureWidget::shared(const char* text)
{
    return QCoreApplication::translate(kTextContext, text);
}

// Search ------------------------------------------------------------------------------------------

ORXFeatureTreeView* ORXMainFeatureWidget::pageView(qint64 key, int tab) const
{
    if (tab == WholeTreeTab) {
        const ORXFeatureTree* tree = m_trees.value(key, nullptr);
        return tree ? tree->treeView() : nullptr;
    }
    const IORXFeatureWidget* page = curatedPages().value(tab - CommonTab, nullptr);
    return page && page->cameraID() == key ? page->treeView() : nullptr;
}

void ORXMainFeatureWidget::focusSearch()
{
    if (auto* group = qobject_cast<ORXFeatureGroup*>(m_pGroupStack->currentWidget()))
        group->focusSearch();
}

void ORXMainFeatureWidget::afterSearch(qint64 key, const QString& text)
{
    if (!m_groups.contains(key) || !m_trees.contains(key))
        return;
    QVector<ORXFeatureTreeView*> views;
    for (int tab = 0; tab < kTabs; ++tab) {
        if (ORXFeatureTreeView* view = pageView(key, tab))
            views.append(view);
    }
    m_pSearch->apply(views, text);
    showEmptyTexts(key);
}

// What a page says that shows no row. Of the whole tree only the favourites can be empty, and it
// says that itself.
void ORXMainFeatureWidget::showEmptyTexts(qint64 key)
{
    const ORXFeatureGroup* group = m_groups.value(key, nullptr);
    ORXFeatureTree* tree = m_trees.value(key, nullptr);
    if (!group || !tree)
        return;
    const QString search = group->searchText();
    QString text = tr("This camera has nothing to show on this page at this user level.");
    if (!search.isEmpty())
        text = group->groupView()->allHits() > 0
                   ? tr("No feature of this group matches \"%1\".").arg(search)
                   : ORXFeatureGroup::tr("No feature matches \"%1\".").arg(search);
    for (int tab = 0; tab < kTabs; ++tab) {
        if (ORXFeatureTreeView* view = pageView(key, tab))
            view->setPlaceholderText(text);
    }
    if (search.isEmpty())
        tree->RefreshWidgetInfo();
}

void ORXMainFeatureWidget::goToHit(qint64 key, bool next)
{
    ORXFeatureGroup* group = m_groups.value(key, nullptr);
    if (!group || group->searchText().isEmpty())
        return;
    CFeatureGroupTreeView* groups = group->groupView();
    const auto goInShownGroup = [&](bool behind) {
        ORXFeatureTreeView* view = pageView(key, m_pPageStack->currentIndex());
        return view && m_pSearch->goToHit(
                           view, CFeatureGroupModel::itemFromIndex(groups->currentIndex()), behind);
    };
    // Behind the last hit of the last group it begins again.
    const bool found = goInShownGroup(next) || (groups->showNextHitGroup(), goInShownGroup(false));
    if (found && !next)
        pageView(key, m_pPageStack->currentIndex())->setFocus(Qt::ShortcutFocusReason);
}

// Pages and actions -------------------------------------------------------------------------------

void ORXMainFeatureWidget::onTabIndexChange(int index)
{
    ORXFeatureTree* tree = currentTree();
    if (index == m_pPageStack->currentIndex() || index < 0 || index >= kTabs || !tree)
        return;
    if (index == WholeTreeTab) {
        tree->RefreshFeatures();
    } else {
        IORXFeatureWidget* page = curatedPages().at(index - CommonTab);
        page->setIsCanEdit(tree->isCanEdit());
        page->resetCamaraID(m_lCameraID);
        if (index == ImageProcessingTab)
            m_pImagePage->afterCurrentTabShow();
    }
    m_pPageStack->setCurrentIndex(index);
    m_pTabs->setCurrent(index);
}

// The favourites have their menu where their name stands, too.
void ORXMainFeatureWidget::showColumnMenu(qint64 key, const QPoint& position)
{
    const ORXFeatureGroup* group = m_groups.value(key, nullptr);
    ORXFeatureTree* tree = m_trees.value(key, nullptr);
    if (!group || !tree)
        return;
    const CFeatureGroupTreeView* column = group->groupView();
    const ORXPropertyTreeItem* item = CFeatureGroupModel::itemFromIndex(column->indexAt(position));
    if (item && item->itemType() == ORXPropertyTreeItem::FavoritesGroup)
        tree->showFavoritesMenu(column->viewport()->mapToGlobal(position));
}

void ORXMainFeatureWidget::StartUpdateThread()
{
    if (ORXFeatureTree* tree = currentTree())
        tree->StartUpdateThread();
}

// Everyone of this window is asked before the first is waited for.
void ORXMainFeatureWidget::requestStop(ORXFeatureTree* tree)
{
    m_pImagePage->requestStop();
    if (tree)
        tree->requestStop();
}

void ORXMainFeatureWidget::PauseUpdateThread()
{
    ORXFeatureTree* tree = currentTree();
    requestStop(tree);
    // First what may hold the tree's feature mutex for many calls of the host.
    m_pImagePage->stopHostCalls();
    if (tree)
        tree->PauseUpdateThread();
}

void ORXMainFeatureWidget::onRefreshFeature()
{
    if (ORXFeatureTree* tree = currentTree())
        tree->OnBtnRefresh();
}

void ORXMainFeatureWidget::OnToolBarBtnClicked(int index)
{
    using Action = void (ORXMainFeatureWidget::*)();
    static const QMap<int, Action> kActions = {
        {ToolBarIndex::kLanguage, &ORXMainFeatureWidget::ExecChangedLanuage},
        {ToolBarIndex::kSave, &ORXMainFeatureWidget::onSaveFeatures},
        {ToolBarIndex::kRefresh, &ORXMainFeatureWidget::onRefreshFeature},
        {ToolBarIndex::kUserLevel, &ORXMainFeatureWidget::OnUserLeverChanged},
    };
    if (const Action action = kActions.value(index, nullptr))
        (this->*action)();
}

void ORXMainFeatureWidget::OnUserLeverChanged()
{
    m_pToolBar->OnChangedUserLever();
    for (ORXFeatureTree* tree : qAsConst(m_trees))
        tree->OnUserLevelChanged();
}

void ORXMainFeatureWidget::onSaveFeatures()
{
    // The host may close or release the window while one of these stands on the stack.
    const ReentrancyScope scope;
    {
        ORXFeatureSaveWidget dialog(m_lCameraID, this);
        if (dialog.IsSupport()) {
            connect(this, &ORXMainFeatureWidget::sigBeforeDeleteFeature, &dialog,
                    [&dialog](qint64 key) { dialog.notify(ListenCode::kBeforeTreeRemoved, &key); });
            dialog.exec();
            return;
        }
    }
    ZELCustomMessageBox box(this);
    m_pPrompt = &box;
    fillPrompt(&box);
    box.exec();
}

void ORXMainFeatureWidget::fillPrompt(ZELCustomMessageBox* box) const
{
    box->cSetCaption(shared(QT_TRANSLATE_NOOP("ORXFeatureWidget", "Prompt")));
    box->cSetContent(shared(QT_TRANSLATE_NOOP("ORXFeatureWidget", "Not supported.")));
    box->cSetHintStyle(ZELCustomMessageBox::Hint_Warning);
    box->cEndSetParameter();
}

void ORXMainFeatureWidget::UpdateToolBarBtn(qint64 key)
{
    if (key == m_lCameraID)
        m_pToolBar->UpdateToolBarBtn(key);
}

void ORXMainFeatureWidget::enabledSelfDefienedFeatures(bool enabled)
{
    for (IORXFeatureWidget* page : curatedPages()) {
        if (!page)
            return;
    }
    for (IORXFeatureWidget* page : curatedPages())
        page->setEnabled(enabled);
}

// Language and title ------------------------------------------------------------------------------

void ORXMainFeatureWidget::SetLanguage(int language)
{
    ORXInterface::setLanguage(language == 1 ? QStringLiteral("CH") : QStringLiteral("ENG"));
    ExecChangedLanuage();
    m_pToolBar->updateLangeBtn();
}

void ORXMainFeatureWidget::ExecChangedLanuage()
{
    const bool chinese = ORXInterface::language() == QLatin1String("CH");
    if (chinese && !m_bTranslatorInstalled) {
        const QString file = OBDeviceControl::GetDllPath() +
                             QStringLiteral("/./FeatureTreeResource/FeatureTree_zh_CN.qm");
        if (!m_translator.load(file))
            return;
        m_bTranslatorInstalled = QCoreApplication::installTranslator(&m_translator);
    } else if (!chinese && m_bTranslatorInstalled) {
        QCoreApplication::removeTranslator(&m_translator);
        m_bTranslatorInstalled = false;
    }
    for (ORXFeatureTree* tree : qAsConst(m_trees))
        tree->notifyEditorUpdate();
    for (IORXFeatureWidget* page : curatedPages())
        page->translate();
    for (ORXFeatureGroup* group : qAsConst(m_groups))
        group->ClearSearch();
}

void ORXMainFeatureWidget::changeEvent(QEvent* event)
{
    ZELCustomMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange && m_pTabs) {
        retranslate();
        showEmptyTexts(m_lCameraID);
        showTitle(m_lCameraID);
        if (m_pPrompt)
            fillPrompt(m_pPrompt);
    }
}

void ORXMainFeatureWidget::ResetTitleText()
{
    cSetTitleText(OBDeviceControl::GetDeviceName());
}

void ORXMainFeatureWidget::SetTitleVisible(bool visible)
{
    cSetTitleVisible(visible);
}

QString ORXMainFeatureWidget::GetTabCutString(const QString& text) const
{
    QFont font(ZELCustom::globalFontFamily());
    font.setPixelSize(kTabFontSize);
    return QFontMetrics(font).elidedText(text, Qt::ElideRight, kTabTextWidth);
}
