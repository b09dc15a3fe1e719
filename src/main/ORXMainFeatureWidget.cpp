// SPDX-License-Identifier: Apache-2.0
#include "main/ORXMainFeatureWidget.h"

#include "basetools/ORXInterface.h"
#include "changes/ChangesPanel.h"
#include "changes/TrendPanel.h"
#include "device/HostCaller.h"
#include "device/OBDeviceControl.h"
#include "device/ORXListenTools.h"
#include "device/ReentrancyScope.h"
#include "main/CFeatureGroupTreeView.h"
#include "main/CameraColumn.h"
#include "main/ORXFeatureGroup.h"
#include "main/ORXFeatureToolBar.h"
#include "main/PageTabBar.h"
#include "main/ReadingProgressLine.h"
#include "main/SettingsAction.h"
#include "styledctl/ZELCustomDockTitleBar.h"
#include "styledctl/ZELCustomWidget.h"
#include "tree/FeatureInfoTabs.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXFeatureTreeView.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QPointer>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {

constexpr int kTitleBarHeight = 31;
constexpr int kGroupWidth = 195;
constexpr int kWidth = 516;
constexpr qint64 kHostCamera = 1;

} // namespace

ORXMainFeatureWidget* ORXMainFeatureWidget::s_pInstance = nullptr;
const ORXMainFeatureWidget* ORXMainFeatureWidget::s_pRemoving = nullptr;

ORXMainFeatureWidget* ORXMainFeatureWidget::instance(QWidget* parent)
{
    if (!s_pInstance)
        s_pInstance = new ORXMainFeatureWidget(parent);
    return s_pInstance;
}

void ORXMainFeatureWidget::ReleaseInstance()
{
    const QPointer<ORXMainFeatureWidget> widget(s_pInstance);
    if (!widget || widget->m_bReleasing)
        return;
    widget->m_bReleasing = true;
    // What the user was typing is written as when he closes the window.
    ORXListenTools::instance()->notifyListeners(ListenCode::kCommitPendingEdit, nullptr);
    if (!widget)
        return;
    widget->PauseUpdateThread();
    for (ORXFeatureTree* tree : qAsConst(widget->m_trees))
        tree->readyForDelete();
    // The host hears of the hidden window, and may open the next one from there.
    s_pInstance = nullptr;
    widget->close();
    // What stands below a call of the host goes on without calling it again.
    if (!s_pInstance)
        OBDeviceControl::EndCalls();
    if (!widget)
        return;
    if (IFeatureTreeFinder::instance() == widget)
        IFeatureTreeFinder::install(nullptr);
    ReentrancyScope::runWhenInactive([widget] {
        if (!widget)
            return;
        widget->removeFeatureTree(widget->m_lCameraID);
        delete widget;
    });
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
    // A parent of the host may destroy the window before OB_FT_Start and without OB_FT_Release.
    if (isInstance())
        s_pInstance = nullptr;
    PauseUpdateThread();
    ORXListenTools::instance()->removeListener(this);
    if (IFeatureTreeFinder::instance() == this)
        IFeatureTreeFinder::install(nullptr);
    // Columns look at items, pages borrow items: both go before the trees.
    qDeleteAll(m_columns);
    m_columns.clear();
    m_pPages->clear();
    clearFeatureTrees();
    m_language.remove();
}

void ORXMainFeatureWidget::initUI()
{
    m_pToolBar = new ORXFeatureToolBar(this);
    m_pDockTitleBar = new ZELCustomDockTitleBar(this);
    m_pDockTitleBar->setFixedHeight(kTitleBarHeight);
    m_pDockTitleBar->cSetBackgroundColor(
        QStringLiteral("ZEL_DB_COLOR_ORXMainFeatureWidgetColor_TitleBar_Background_Gradient"));
    m_pPages = new FeaturePages(this);
    m_pGroupStack = new QStackedWidget(this);
    m_pGroupStack->setFixedWidth(kGroupWidth);
    m_pSettings = new SettingsAction(this);
    layOut();
    connectSignals();
    UpdateToolBarBtn(m_lCameraID);
    m_pPages->retranslateTabs();
    ResetTitleText();
    layout()->totalSizeHint(); // loads fonts and pictures while the description is being read
}

void ORXMainFeatureWidget::layOut()
{
    auto* content = new ZELCustomWidget(this);
    content->cSetBackgroundColor(
        QStringLiteral("ZEL_DB_COLOR_CommonColor_FeatureWidget_backgroundRole"));
    auto* pages = new QVBoxLayout;
    pages->setSpacing(0);
    pages->addWidget(m_pPages->tabBar());
    auto* progress = new ReadingProgressLine(this);
    progress->setSource([this] {
        const ORXFeatureTree* tree = currentTree();
        const auto now = tree ? tree->progress() : QGetFeaturesThread::Progress();
        return ReadingProgressLine::Progress{now.done, now.total};
    });
    pages->addWidget(progress);
    pages->addWidget(m_pPages->stack(), 1);
    auto* row = new QHBoxLayout(content);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(m_pGroupStack);
    row->addLayout(pages, 1);
    cContentLayout()->addWidget(m_pToolBar);
    cContentLayout()->addWidget(m_pDockTitleBar);
    cContentLayout()->addWidget(content, 1);
}

void ORXMainFeatureWidget::connectSignals()
{
    using Self = ORXMainFeatureWidget;
    connect(this, &Self::sigBeforeDeleteFeature, this, &Self::onBeforeDeleteFeature);
    connect(this, &Self::sigBeforeDeleteFeature, m_pSettings,
            &SettingsAction::onBeforeDeleteFeature);
    connect(m_pPages, &FeaturePages::SigRowsInSight, this, &Self::readFirst);
    connect(m_pToolBar, &ORXFeatureToolBar::SigToolBarBtnClicked, this, &Self::OnToolBarBtnClicked);
    connect(m_pPages->tabBar(), &PageTabBar::SigTabClicked, this, [this](int index) {
        onTabIndexChange(index);
        if (CameraColumn* shown = m_columns.value(m_lCameraID, nullptr))
            shown->group()->groupView()->showTab(index);
    });
    connect(new QShortcut(QKeySequence(QKeySequence::Find), this), &QShortcut::activated, this,
            &Self::focusSearch);
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

// Tree and group of no camera are made when they are first to be seen: mostly never.
void ORXMainFeatureWidget::standIn()
{
    if (m_lCameraID >= 0 || hasFeatureTree(-1))
        return;
    m_pPages->addTree(featureTree(-1, true));
    m_pGroupStack->addWidget(featureGroup(-1));
}

void ORXMainFeatureWidget::setVisible(bool visible)
{
    if (visible)
        standIn();
    ZELCustomMainWindow::setVisible(visible);
    if (!visible && !m_bSilentHide)
        afterHide();
}

void ORXMainFeatureWidget::afterHide()
{
    m_pSettings->end();
    // The host may release the library from inside its action.
    const ReentrancyScope scope;
    OBDeviceControl::NotifyWindowsClose();
}

// Nobody looks at a window that waits: everyone who calls the host is asked to stop, the window
// goes, and only then are the calls under way waited for. The host hears of it when none is left.
void ORXMainFeatureWidget::closeEvent(QCloseEvent* event)
{
    const QPointer<ORXMainFeatureWidget> self(this);
    const bool tellHost = isVisible();
    HostCaller::requestStopOfAll();
    m_bSilentHide = true;
    hide();
    m_bSilentHide = false;
    m_pSettings->end();
    PauseUpdateThread();
    if (tellHost)
        afterHide();
    if (!self)
        return;
    // The host may show it again from inside its action.
    if (isVisible())
        event->ignore();
    else
        ZELCustomMainWindow::closeEvent(event);
}

// Cameras -----------------------------------------------------------------------------------------

void ORXMainFeatureWidget::CreateFeature()
{
    m_lCameraID = kHostCamera;
    ORXFeatureTree* tree = featureTree(m_lCameraID, true);
    m_pPages->addTree(tree); // while its nodes are still being read
    tree->CreateFeature();
    InitFeatureUI();
}

void ORXMainFeatureWidget::InitFeatureUI()
{
    featureTree(m_lCameraID, true);
    if (m_pDockTitleBar) {
        DeviceFeatureInit(m_lCameraID);
        UpdateToolBarBtn(m_lCameraID);
    }
    if (m_lCameraID < 0)
        m_pPages->turnTo(WholeTreeTab);
}

void ORXMainFeatureWidget::DeviceFeatureInit(qint64 key)
{
    ORXFeatureTree* tree = m_trees.value(key, nullptr);
    if (!tree)
        return;
    m_pPages->addTree(tree);
    m_pPages->showCamera(tree, key);
    showTitle(key);
    CameraColumn* shown = column(key);
    if (m_pGroupStack->indexOf(shown->group()) < 0)
        m_pGroupStack->addWidget(shown->group());
    m_pGroupStack->setCurrentWidget(shown->group());
    if (key == m_lCameraID)
        shown->showTabs();
    shown->showEmptyTexts();
    shown->leaveEmptyGroup();
}

void ORXMainFeatureWidget::showTitle(qint64 key)
{
    m_pDockTitleBar->cSetTitleText(
        QCoreApplication::translate("ORXFeatureWidget", "Please select a connected camera."));
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
        connect(tree, &ORXFeatureTree::SigFirstEndUpdateFeature, this, [this](qint64 key) {
            if (CameraColumn* read = m_columns.value(key, nullptr))
                read->afterFirstRead();
        });
        connect(tree->treeView(), &ORXFeatureTreeView::SigRowsInSight, this,
                &ORXMainFeatureWidget::readFirst);
        // What stands in until a camera is there has nothing to tell.
        if (cameraId >= 0)
            addPanels(tree);
    }
    return tree;
}

void ORXMainFeatureWidget::addPanels(ORXFeatureTree* tree)
{
    auto* changes = new ChangesPanel(tree, tree);
    tree->infoTabs()->addPanel(
        changes, [] { return ChangesPanel::tr("Changes"); }, changes->actions());
    tree->infoTabs()->addPanel(new TrendPanel(tree, tree), [] { return TrendPanel::tr("Trend"); });
    const auto showFeature = [this, tree](const QString& name) {
        if (CameraColumn* shown = m_columns.value(tree->cameraID(), nullptr))
            shown->showFeature(name);
    };
    connect(changes, &ChangesPanel::SigShowFeature, this, showFeature);
    connect(tree, &ORXFeatureTree::SigShowFeature, this, showFeature);
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

CameraColumn* ORXMainFeatureWidget::column(qint64 key)
{
    CameraColumn*& found = m_columns[key];
    if (found)
        return found;
    found = new CameraColumn(key, featureTree(key, true), m_pPages, this);
    connect(found->group(), &ORXFeatureGroup::SigTabChanged, this,
            &ORXMainFeatureWidget::onTabIndexChange);
    connect(found->group()->groupView(), &CFeatureGroupTreeView::SigPageShown, found,
            [this, key, made = found] {
                if (key == m_lCameraID)
                    made->showTabs();
            });
    return found;
}

ORXFeatureGroup* ORXMainFeatureWidget::featureGroup(qint64 key)
{
    return column(key)->group();
}

ORXPropertyTreeItem* ORXMainFeatureWidget::getItemByName(const QString& name, FeatureTabIndex tab)
{
    if (tab == WholeTreeTab)
        return currentTree() ? currentTree()->propertyItemByName(name) : nullptr;
    IORXFeatureWidget* page = m_pPages->curatedPage(tab);
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
    m_pPages->stopHostCalls();
    if (tree)
        tree->StopThread(true);
    if (CameraColumn* gone = m_columns.take(key)) {
        m_pGroupStack->removeWidget(gone->group());
        delete gone;
    }
    m_pPages->removeCamera(key);
    if (tree) {
        m_pPages->removeTree(tree);
        tree->removeCameraID(key);
    }
    m_lCameraID = -1;
    if (isVisible())
        standIn();
}

// Search ------------------------------------------------------------------------------------------

void ORXMainFeatureWidget::focusSearch()
{
    if (auto* group = qobject_cast<ORXFeatureGroup*>(m_pGroupStack->currentWidget()))
        group->focusSearch();
}

// Pages and actions -------------------------------------------------------------------------------

void ORXMainFeatureWidget::onTabIndexChange(int index)
{
    ORXFeatureTree* tree = currentTree();
    if (index == m_pPages->current() || index < 0 || index >= FeaturePages::kTabs || !tree)
        return;
    if (index == WholeTreeTab)
        tree->RefreshFeatures();
    else
        m_pPages->showCamera(tree, m_lCameraID, index);
    m_pPages->turnTo(index);
}

void ORXMainFeatureWidget::StartUpdateThread()
{
    if (ORXFeatureTree* tree = currentTree())
        tree->StartUpdateThread();
}

// Everyone of this window is asked before the first is waited for.
void ORXMainFeatureWidget::requestStop(ORXFeatureTree* tree)
{
    m_pPages->requestStop();
    if (tree)
        tree->requestStop();
}

void ORXMainFeatureWidget::PauseUpdateThread()
{
    ORXFeatureTree* tree = currentTree();
    requestStop(tree);
    // First what may hold the tree's feature mutex for many calls of the host.
    m_pPages->stopHostCalls();
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
    m_pSettings->run(m_lCameraID);
}

void ORXMainFeatureWidget::UpdateToolBarBtn(qint64 key)
{
    if (key == m_lCameraID)
        m_pToolBar->UpdateToolBarBtn(key);
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
    if (!m_language.apply())
        return;
    for (ORXFeatureTree* tree : qAsConst(m_trees))
        tree->notifyEditorUpdate();
    m_pPages->translateCurated();
    for (CameraColumn* each : qAsConst(m_columns))
        each->group()->ClearSearch();
}

void ORXMainFeatureWidget::changeEvent(QEvent* event)
{
    ZELCustomMainWindow::changeEvent(event);
    if (event->type() != QEvent::LanguageChange || !m_pSettings)
        return;
    m_pPages->retranslateTabs();
    if (CameraColumn* shown = m_columns.value(m_lCameraID, nullptr))
        shown->showEmptyTexts();
    showTitle(m_lCameraID);
    m_pSettings->retranslate();
}

void ORXMainFeatureWidget::ResetTitleText()
{
    cSetTitleText(OBDeviceControl::GetDeviceName());
}

void ORXMainFeatureWidget::SetTitleVisible(bool visible)
{
    cSetTitleVisible(visible);
}
