// SPDX-License-Identifier: Apache-2.0
#include "main/ORXMainFeatureWidget.h"

#include "device/HostCaller.h"
#include "device/OBDeviceControl.h"
#include "device/ORXListenTools.h"
#include "device/ReentrancyScope.h"
#include "main/CFeatureGroupTreeView.h"
#include "main/FeatureSearch.h"
#include "main/ORXFeatureGroup.h"
#include "main/ORXFeatureToolBar.h"
#include "main/PageTabBar.h"
#include "main/ReadingProgressLine.h"
#include "pages/ORXCommonFeature.h"
#include "pages/ORXImgProcessingFeature.h"
#include "pages/ORXTriggerFeature.h"
#include "styledctl/ZELCustomDockTitleBar.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "styledctl/ZELCustomWidget.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXFeatureTreeView.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QPointer>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {

constexpr int kTitleBarHeight = 31;
constexpr int kGroupWidth = 195;
constexpr int kWidth = 516;

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
    // Before the pages: Tab comes to widgets in the order in which they were made.
    m_pTabs = new PageTabBar(kTabs, this);
    m_pCommonPage = new ORXCommonFeature(this);
    m_pTriggerPage = new ORXTriggerFeature(this);
    m_pImagePage = new ORXImgProcessingFeature(this);
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
    auto* progress = new ReadingProgressLine(this);
    progress->setSource([this] {
        const ORXFeatureTree* tree = currentTree();
        const auto now = tree ? tree->progress() : QGetFeaturesThread::Progress();
        return ReadingProgressLine::Progress{now.done, now.total};
    });
    pages->addWidget(progress);
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
    for (IORXFeatureWidget* page : curatedPages())
        connect(page->treeView(), &ORXFeatureTreeView::SigRowsInSight, this,
                &ORXMainFeatureWidget::readFirst);
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
    if (!visible && !m_bSilentHide)
        afterHide();
}

void ORXMainFeatureWidget::afterHide()
{
    if (m_pPrompt)
        m_pPrompt->reject();
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
    if (m_pPrompt)
        m_pPrompt->reject();
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
