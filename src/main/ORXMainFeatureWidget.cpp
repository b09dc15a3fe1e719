// SPDX-License-Identifier: Apache-2.0
#include "main/ORXMainFeatureWidget.h"

#include "basetools/ORXInterface.h"
#include "device/OBDeviceControl.h"
#include "device/ORXListenTools.h"
#include "device/ReentrancyScope.h"
#include "main/CFeatureGroupTreeView.h"
#include "main/FeatureSearch.h"
#include "main/ORXFeatureGroup.h"
#include "main/ORXFeatureToolBar.h"
#include "main/PageTabBar.h"
#include "pages/ORXCommonFeature.h"
#include "pages/ORXFeatureSaveWidget.h"
#include "pages/ORXImgProcessingFeature.h"
#include "pages/ORXTriggerFeature.h"
#include "styledctl/ZELCustom.h"
#include "styledctl/ZELCustomDockTitleBar.h"
#include "styledctl/ZELCustomLoadingDialog.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "styledctl/ZELCustomWidget.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXFeatureTreeView.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {

constexpr qint64 kHostCamera = 1;
constexpr int kTabs = 4;
constexpr int kTitleBarHeight = 31;
constexpr int kGroupWidth = 195;
constexpr int kWidth = 516;
constexpr int kTabTextWidth = 80;
constexpr int kTabFontSize = 13;
const char kTextContext[] = "ORXFeatureWidget";

QString shared(const char* text)
{
    return QCoreApplication::translate(kTextContext, text);
}

} // namespace

ORXMainFeatureWidget* ORXMainFeatureWidget::s_pInstance = nullptr;

ORXMainFeatureWidget* ORXMainFeatureWidget::instance(QWidget* parent)
{
    if (!s_pInstance)
        s_pInstance = new ORXMainFeatureWidget(parent);
    return s_pInstance;
}

void ORXMainFeatureWidget::ReleaseInstance()
{
    ORXMainFeatureWidget* widget = s_pInstance;
    if (!widget)
        return;
    s_pInstance = nullptr;
    IFeatureTreeFinder::install(nullptr);
    widget->PauseUpdateThread();
    const auto destroy = [widget] {
        widget->removeFeatureTree(widget->m_lCameraID);
        widget->m_bSilentHide = true;
        widget->close();
        delete widget;
    };
    if (ReentrancyScope::isActive()) {
        for (ORXFeatureTree* tree : qAsConst(widget->m_trees))
            tree->readyForDelete();
        widget->m_bSilentHide = true;
        widget->hide();
    }
    ReentrancyScope::runWhenInactive(destroy);
}

ORXMainFeatureWidget::ORXMainFeatureWidget(QWidget* parent)
    : ZELCustomMainWindow(parent)
{
    setObjectName(QStringLiteral("ORXMainFeatureWidget"));
    ORXListenTools::instance()->addListener(this, ORXListenTools::PriorityNormal);
    IFeatureTreeFinder::install(this);
    initUI();
}

ORXMainFeatureWidget::~ORXMainFeatureWidget()
{
    ORXListenTools::instance()->removeListener(this);
    if (IFeatureTreeFinder::instance() == this)
        IFeatureTreeFinder::install(nullptr);
    // Groups look at items, pages borrow items: both go before the trees.
    qDeleteAll(m_groups);
    m_groups.clear();
    qDeleteAll(curatedPages());
    clearFeatureTrees();
    if (m_bTranslatorInstalled)
        QCoreApplication::removeTranslator(&m_translator);
}

void ORXMainFeatureWidget::initUI()
{
    m_pToolBar = new ORXFeatureToolBar(this);
    m_pDockTitleBar = new ZELCustomDockTitleBar(this);
    m_pDockTitleBar->setFixedHeight(kTitleBarHeight);
    m_pDockTitleBar->cSetBackgroundColor(
        QStringLiteral("ZEL_DB_COLOR_ORXMainFeatureWidgetColor_TitleBar_Background_Gradient"));
    m_pCommonPage = new ORXCommonFeature(this);
    m_pTriggerPage = new ORXTriggerFeature(this);
    m_pImagePage = new ORXImgProcessingFeature(this);
    m_pTabs = new PageTabBar(kTabs, this);
    m_pTreeStack = new QStackedWidget(this);
    m_pGroupStack = new QStackedWidget(this);
    m_pGroupStack->setFixedWidth(kGroupWidth);
    m_pPageStack = new QStackedWidget(this);
    m_pSearch = new FeatureSearch(this);

    auto* content = new ZELCustomWidget(this);
    content->cSetBackgroundColor(
        QStringLiteral("ZEL_DB_COLOR_CommonColor_FeatureWidget_backgroundRole"));
    auto* pages = new QVBoxLayout;
    pages->setSpacing(0);
    pages->addWidget(m_pTabs);
    pages->addWidget(m_pPageStack, 1);
    auto* row = new QHBoxLayout(content);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(m_pGroupStack);
    row->addLayout(pages, 1);
    cContentLayout()->addWidget(m_pToolBar);
    cContentLayout()->addWidget(m_pDockTitleBar);
    cContentLayout()->addWidget(content, 1);

    // Stand in until a camera is there.
    m_pTreeStack->addWidget(featureTree(-1, true));
    m_pGroupStack->addWidget(featureGroup(-1));
    m_pPageStack->addWidget(m_pTreeStack);
    m_pPageStack->addWidget(m_pCommonPage);
    m_pPageStack->addWidget(m_pTriggerPage);
    m_pPageStack->addWidget(m_pImagePage);

    connect(this, &ORXMainFeatureWidget::sigBeforeDeleteFeature, this,
            &ORXMainFeatureWidget::onBeforeDeleteFeature);
    connect(m_pToolBar, &ORXFeatureToolBar::SigToolBarBtnClicked, this,
            &ORXMainFeatureWidget::OnToolBarBtnClicked);
    connect(m_pTabs, &PageTabBar::SigTabClicked, this, [this](int index) {
        onTabIndexChange(index);
        if (ORXFeatureGroup* group = m_groups.value(m_lCameraID, nullptr))
            group->groupView()->showTab(index);
    });
    connect(new QShortcut(QKeySequence(QKeySequence::Find), this), &QShortcut::activated, this,
            &ORXMainFeatureWidget::focusSearch);
    UpdateToolBarBtn(m_lCameraID);
    retranslate();
    ResetTitleText();
}

void ORXMainFeatureWidget::retranslate()
{
    static const char* const kTabTexts[kTabs] = {
        QT_TRANSLATE_NOOP("ORXMainFeatureWidget", "Feature Tree"),
        QT_TRANSLATE_NOOP("ORXMainFeatureWidget", "Common"),
        QT_TRANSLATE_NOOP("ORXMainFeatureWidget", "Trigger"),
        QT_TRANSLATE_NOOP("ORXMainFeatureWidget", "Image"),
    };
    for (int i = 0; i < kTabs; ++i)
        m_pTabs->setTab(i, GetTabCutString(tr(kTabTexts[i])), tr(kTabTexts[i]));
    m_pTabs->setCurrent(m_pPageStack->currentIndex());
}

QList<IORXFeatureWidget*> ORXMainFeatureWidget::curatedPages() const
{
    return {m_pCommonPage, m_pTriggerPage, m_pImagePage};
}

// Cameras -----------------------------------------------------------------------------------------

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
    for (int i = 0; i < pages.size(); ++i) {
        pages.at(i)->setIsCanEdit(tree->isCanEdit());
        pages.at(i)->resetCamaraID(key);
        m_pTabs->setTabEnabled(CommonTab + i, pages.at(i)->getRootItem(key, false) != nullptr);
    }
    m_pImagePage->afterCurrentTabShow();
    showTitle(key);
    ORXFeatureGroup* group = featureGroup(key);
    if (m_pGroupStack->indexOf(group) < 0)
        m_pGroupStack->addWidget(group);
    m_pGroupStack->setCurrentWidget(group);
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
    }
    return tree;
}

bool ORXMainFeatureWidget::hasFeatureTree(qint64 cameraId) const
{
    return m_trees.contains(cameraId);
}

// A new user has no favourites yet; the first look should not fall on an empty page.
void ORXMainFeatureWidget::afterFirstRead(qint64 key)
{
    ORXFeatureGroup* group = m_groups.value(key, nullptr);
    if (!group)
        return;
    // The names are known only now.
    group->searchAgain();
    if (m_pPageStack->currentIndex() == WholeTreeTab && group->searchText().isEmpty())
        group->groupView()->leaveEmptyFavorites();
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
    connect(group, &ORXFeatureGroup::SigSearched, this,
            [this, key](const QString& text) { afterSearch(key, text); });
    connect(group, &ORXFeatureGroup::SigGoToHits, this, [this, key] { goToHit(key, false); });
    connect(group, &ORXFeatureGroup::SigNextHit, this, [this, key] { goToHit(key, true); });
    return group;
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
    const ORXFeatureGroup* group = m_groups.value(key, nullptr);
    ORXFeatureTree* tree = m_trees.value(key, nullptr);
    if (!group || !tree)
        return;
    const QString emptyText = group->groupView()->allHits() > 0
                                  ? tr("No feature of this group matches \"%1\".").arg(text)
                                  : ORXFeatureGroup::tr("No feature matches \"%1\".").arg(text);
    QVector<ORXFeatureTreeView*> views;
    for (int tab = 0; tab < kTabs; ++tab) {
        ORXFeatureTreeView* view = pageView(key, tab);
        if (!view)
            continue;
        views.append(view);
        view->setPlaceholderText(text.isEmpty() ? QString() : emptyText);
    }
    m_pSearch->apply(views, text);
    if (text.isEmpty())
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
    ORXListenTools::instance()->notifyListeners(ListenCode::kBeforeTreeRemoved, &key);
    delete m_trees.take(key);
}

void ORXMainFeatureWidget::clearFeatureTrees()
{
    qDeleteAll(m_trees);
    m_trees.clear();
}

int ORXMainFeatureWidget::notify(int code, void* payload)
{
    if (code == ListenCode::kBeforeTreeRemoved && payload)
        emit sigBeforeDeleteFeature(*static_cast<qint64*>(payload));
    return 0;
}

void ORXMainFeatureWidget::onBeforeDeleteFeature(qint64 key)
{
    ORXFeatureTree* tree = m_trees.value(key, nullptr);
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

void ORXMainFeatureWidget::StartUpdateThread()
{
    if (ORXFeatureTree* tree = currentTree())
        tree->StartUpdateThread();
}

void ORXMainFeatureWidget::PauseUpdateThread()
{
    if (ORXFeatureTree* tree = currentTree())
        tree->PauseUpdateThread();
    m_pImagePage->stopHostCalls();
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

// Showing and hiding ------------------------------------------------------------------------------

QSize ORXMainFeatureWidget::sizeHint() const
{
    return {kWidth, ZELCustomMainWindow::sizeHint().height()};
}

void ORXMainFeatureWidget::showOnTop()
{
    // Changing parent or flags hides a visible window for a moment; the host is not told of that.
    m_bSilentHide = true;
    setParent(nullptr, windowFlags());
    StartUpdateThread();
    setWindowFlags(windowFlags() | Qt::WindowStaysOnTopHint);
    m_bSilentHide = false;
    show();
    raise();
    activateWindow();
    if (ORXFeatureTree* tree = currentTree())
        tree->treeView()->setFocus();
}

void ORXMainFeatureWidget::setVisible(bool visible)
{
    ZELCustomMainWindow::setVisible(visible);
    const bool released = s_pInstance != this;
    if (!visible && m_pPrompt && (!m_bSilentHide || released))
        m_pPrompt->reject();
    if (visible || m_bSilentHide)
        return;
    // The host may release the library from inside its action.
    const ReentrancyScope scope;
    OBDeviceControl::NotifyWindowsClose();
}

void ORXMainFeatureWidget::closeEvent(QCloseEvent* event)
{
    PauseUpdateThread();
    ZELCustomMainWindow::closeEvent(event);
}
