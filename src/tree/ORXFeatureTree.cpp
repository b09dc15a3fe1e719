// SPDX-License-Identifier: Apache-2.0
#include "tree/ORXFeatureTree.h"

#include "basetools/ORXInterface.h"
#include "device/OBDeviceControl.h"
#include "device/ORXListenTools.h"
#include "model/CTreeStringItemValue.h"
#include "model/ORXPropertyTreeModel.h"
#include "reading/FeatureDocText.h"
#include "styledctl/ZELCustom.h"
#include "styledctl/ZELCustomDockTitleBar.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "styledctl/ZELTouchScrolling.h"
#include "tree/FeatureFavorites.h"
#include "tree/HostWaitLine.h"
#include "tree/ORXFeatureTreeView.h"
#include "tree/SteadyBeat.h"

#include <QDebug>
#include <QEvent>
#include <QMenu>
#include <QSplitter>
#include <QTextEdit>
#include <QVBoxLayout>

namespace {

constexpr int kTreeShare = 3; // of the height, against 1 of the description
constexpr int kDescriptionMinHeight = 90;
constexpr int kDescriptionFontPx = 13;

const QLatin1String kDeviceUserId("DeviceUserID");
const QLatin1String kTriggerSoftware("TriggerSoftware");

void triggerSoftware()
{
    OBDeviceControl::SetCommandNodeValue(kTriggerSoftware);
}

} // namespace

ORXFeatureTree::ORXFeatureTree(qint64 cameraId, QWidget* parent)
    : IORXFeatureWidget(ORXPropertyTreeItem::FeatureTreePage, parent)
    , m_pFavorites(new FeatureFavorites(treeView(), *this, this))
    , m_pDescription(new QTextEdit(this))
    , m_pPartialThread(new QGetFeaturesThread(this, this))
    , m_pFullThread(new QGetFeaturesThread(this, this))
    , m_autoTrigger(std::make_unique<SteadyBeat>(triggerSoftware))
{
    setCameraID(cameraId);
    buildLayout();
    connectSignals();
    RefreshWidgetInfo();
    ORXListenTools::instance()->addListener(this, ORXListenTools::PriorityNormal);
}

ORXFeatureTree::~ORXFeatureTree()
{
    readyForDelete();
    Release();
}

void ORXFeatureTree::buildLayout()
{
    m_pDescription->setObjectName(QStringLiteral("FeatureDescription"));
    m_pDescription->setReadOnly(true);
    new ZELTouchScrolling(m_pDescription);
    QFont font(ZELCustom::globalFontFamily());
    font.setPixelSize(kDescriptionFontPx);
    m_pDescription->setFont(font);
    m_pDescription->setFrameShape(QFrame::NoFrame);
    m_pDescription->setMinimumHeight(kDescriptionMinHeight);
    m_pDescription->setStyleSheet(ZELCustom::styleSheet(ZELCustom::Sheet_TextPanel) +
                                  ZELCustom::styleSheet(ZELCustom::Sheet_ScrollBar));

    // What is waited for stands above the description.
    auto* below = new QWidget(this);
    auto* belowLayout = new QVBoxLayout(below);
    belowLayout->setContentsMargins(0, 0, 0, 0);
    belowLayout->setSpacing(0);
    const auto nameOf = [this](const QString& feature) {
        const ORXPropertyTreeItem* item = propertyItemByName(feature);
        if (!item || !item->value())
            return feature;
        return ORXInterface::language() == QLatin1String("CH") ? item->value()->translateName()
                                                               : item->value()->displayName();
    };
    belowLayout->addWidget(new HostWaitLine(nameOf, below));
    belowLayout->addWidget(m_pDescription, 1);

    auto* splitter = new QSplitter(Qt::Vertical, this);
    splitter->setStyleSheet(ZELCustom::styleSheet(ZELCustom::Sheet_Splitter));
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(treeView());
    splitter->addWidget(below);
    splitter->setStretchFactor(0, kTreeShare);
    splitter->setStretchFactor(1, 1);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(splitter);
}

void ORXFeatureTree::connectSignals()
{
    using Tree = ORXFeatureTree;
    connect(m_pPartialThread, &QGetFeaturesThread::sigThreadEnd, this, &Tree::OnGetThreadEnd);
    connect(m_pFullThread, &QGetFeaturesThread::sigThreadEnd, this, &Tree::OnGetThreadEnd);
    connect(treeView(), &QTreeView::pressed, this, &Tree::OnChangeItem);
    connect(treeView()->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &Tree::OnChangeItem);
    connect(treeView(), &QWidget::customContextMenuRequested, this,
            &Tree::OnTreeFeaturesCustomContextMenuRequested);
    connect(treeView(), &ORXFeatureTreeView::SigFavoriteMoved, this, &Tree::moveFavorteItem);
    connect(m_pFavorites, &FeatureFavorites::SigListChanged, this,
            &Tree::notifyFavoriteFeatureChange);
    connect(m_pFavorites->addAction(), &QAction::triggered, this, &Tree::OnActionFavoriteAdd);
    connect(m_pFavorites->removeAction(), &QAction::triggered, this, &Tree::OnActionFavoriteRemove);
    connect(m_pFavorites->removeAllAction(), &QAction::triggered, this,
            &Tree::OnActionFavoriteRemoveAll);
    connect(&m_pollingTimer, &QTimer::timeout, this, &Tree::OnTimerFeatureNoCache);
    connect(&m_invalidationTimer, &QTimer::timeout, this, &Tree::OnTimeInvalidaterFeaturesUpdate);
    connect(&m_refreshTimer, &QTimer::timeout, this, &Tree::OnTimerRefreshFinished);
    connect(this, &Tree::SigFeatureChangeOsd, this, &Tree::OnSigFeatureChangeOsd);
    connect(this, &Tree::SigPollingFeatureChanged, this, &Tree::OnPollingFeatureChanged);
}

// Building ----------------------------------------------------------------------------------------

// The whole tree's root is made by CreateFeature, never on demand.
ORXPropertyTreeItem* ORXFeatureTree::getRootItem(qint64 cameraId, bool)
{
    return IORXFeatureWidget::getRootItem(cameraId, false);
}

void ORXFeatureTree::CreateFeature()
{
    if (cameraID() < 0 || isInitialized(cameraID()) || !treeView())
        return;
    m_index.GenerateDomElementMap(OBDeviceControl::GetDeviceXml()->documentElement());
    treeView()->setDragEnabled(true);
    treeView()->setAcceptDrops(true);
    treeView()->setDragDropMode(QAbstractItemView::DragDrop);
    createItems();
    treeView()->openPersistentEdit(rootItem(), false);
    m_index.setItemNames(AllTreeItemsMap().keys());
    m_index.ResetFeaturesInvalidatorMap();
    m_index.GenerateFeaturePValueList();
    m_index.GenerateFeaturePairList();
    m_index.GenerateFeaturesTLParamsLocked();
    m_index.GeneratePSelectedList();
    m_index.GenerateFeatureNoCacheList();
    showDescription();
    GenerateFavoritesItems();
}

void ORXFeatureTree::createItems()
{
    auto* root = new ORXPropertyTreeItem(nullptr, ORXPropertyTreeItem::FeatureTreePage);
    root->setItemType(ORXPropertyTreeItem::CustomItem);
    root->value()->setDisplayName(QStringLiteral("Feature Tree"));
    root->value()->setTranslateName(QStringLiteral("属性树"));
    m_pFavorites->forgetItems();
    m_pCurrentItem = nullptr;
    m_builder.createItems(root, m_index.nodes(), treeView());
    setRootItem(cameraID(), root);
    treeView()->resetData(cameraID(), root);
    treeView()->expandAll();
}

const QMap<QString, ORXPropertyTreeItem*>& ORXFeatureTree::AllTreeItemsMap() const
{
    return m_builder.AllTreeItemsMap();
}

ORXPropertyTreeItem* ORXFeatureTree::propertyItemByName(const QString& name) const
{
    return m_builder.AllTreeItemsMap().value(name, nullptr);
}

void ORXFeatureTree::removeCameraID(qint64 cameraId)
{
    if (isInitialized(cameraId)) {
        StopThread(true);
        stopTimersForReset();
        stopAutoSoftwareTrig(true);
        m_pCurrentItem = nullptr;
        m_pFavorites->forgetItems();
        m_builder.clear();
    }
    IORXFeatureWidget::removeCameraID(cameraId);
}

void ORXFeatureTree::readyForDelete()
{
    m_bDeleting = true;
    ShowLoadingDlg(false, QString());
    StopThread(true);
    stopAutoSoftwareTrig(true);
}

void ORXFeatureTree::Release()
{
    m_pollingTimer.stop();
    m_invalidationTimer.stop();
    m_refreshTimer.stop();
    stopAutoSoftwareTrig(true);
    ORXListenTools::instance()->removeListener(this);
}

// Description panel and title ---------------------------------------------------------------------

void ORXFeatureTree::OnChangeItem(const QModelIndex& index)
{
    ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index);
    if (!item || !item->value())
        return;
    m_pCurrentItem = item;
    showDescription();
}

void ORXFeatureTree::showDescription()
{
    QString html;
    if (ORXPropertyTreeItem::isAlive(m_pCurrentItem) && m_pCurrentItem->value()) {
        const bool chinese = ORXInterface::language() == QLatin1String("CH");
        html = chinese ? m_pCurrentItem->value()->docTextCN() : m_pCurrentItem->value()->docText();
        if (html.isEmpty())
            html = FeatureDocText::GetFeatureTitleText(*m_pCurrentItem->value(),
                                                       ORXInterface::language());
    }
    // An unchanged text stays as the user scrolled or marked it.
    if (html == m_strDescription)
        return;
    m_strDescription = html;
    m_pDescription->clear();
    m_pDescription->insertHtml(html);
    m_pDescription->moveCursor(QTextCursor::Start);
}

void ORXFeatureTree::setDockTitleBar(ZELCustomDockTitleBar* titleBar)
{
    m_pDockTitleBar = titleBar;
}

void ORXFeatureTree::itemValueChanged(ORXPropertyTreeItem* item)
{
    if (!item || !item->value())
        return;
    // The whole text comes with the first read.
    if (item == m_pCurrentItem)
        showDescription();
    const QString name = item->value()->nodeName(0);
    if (name == kDeviceUserId)
        refreshCameraItemName();
}

// The switch of the automatic trigger vanishes with the command: nobody else could end it.
void ORXFeatureTree::itemVisibleStateChanged(ORXPropertyTreeItem* item)
{
    if (!m_autoTrigger->isRunning() || item->visible() ||
        item->value()->nodeName(0) != kTriggerSoftware)
        return;
    qInfo("Automatic software trigger: switched off, %s is not available any more",
          kTriggerSoftware.data());
    stopAutoSoftwareTrig(false);
}

void ORXFeatureTree::refreshCameraItemName()
{
    const ORXPropertyTreeItem* item = propertyItemByName(kDeviceUserId);
    const QString userName = item && item->value() ? item->value()->displayValue() : QString();
    const QString name = userName.isEmpty() ? OBDeviceControl::GetDeviceName() : userName;
    if (m_pDockTitleBar && !name.isEmpty())
        m_pDockTitleBar->cSetTitleText(name);
}

void ORXFeatureTree::changeEvent(QEvent* event)
{
    IORXFeatureWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        RefreshWidgetInfo();
        retranslateMessages();
    }
}

void ORXFeatureTree::RefreshWidgetInfo()
{
    m_pFavorites->retranslate();
    m_pDescription->setPlaceholderText(tr("Select a feature to read what it does."));
    treeView()->setPlaceholderText(
        tr("Nothing to show here. A right click, a long touch or the Menu key on a feature "
           "adds it to the favorites."));
    showDescription();
}

void ORXFeatureTree::notifyEditorUpdate()
{
    treeView()->viewport()->update();
    treeView()->updateAllEditorData();
    showDescription();
}

void ORXFeatureTree::ClearTreeViewInfo()
{
    treeView()->clearDelegateInfo();
}

// Favourites --------------------------------------------------------------------------------------

bool ORXFeatureTree::IsFavoritesItem(const QString& name) const
{
    return FeatureFavorites::IsFavoritesItem(name);
}

void ORXFeatureTree::OnTreeFeaturesCustomContextMenuRequested(const QPoint& position)
{
    if (QMenu* menu = m_pFavorites->menuAt(position))
        menu->popup(treeView()->viewport()->mapToGlobal(position));
}

void ORXFeatureTree::showFavoritesMenu(const QPoint& globalPosition)
{
    ORXPropertyTreeItem* root = rootItem();
    if (QMenu* menu = m_pFavorites->menuFor(root ? root->child(0) : nullptr))
        menu->popup(globalPosition);
}

void ORXFeatureTree::OnActionFavoriteAdd()
{
    m_pFavorites->addContextItem();
}

void ORXFeatureTree::OnActionFavoriteRemove()
{
    m_pFavorites->removeContextItem();
}

void ORXFeatureTree::OnActionFavoriteRemoveAll()
{
    m_pFavorites->clearFavorites();
}

void ORXFeatureTree::addFavoriteItem(ORXPropertyTreeItem* item)
{
    m_pFavorites->addFavoriteItem(item);
}

void ORXFeatureTree::removeFavoriteItem(ORXPropertyTreeItem* favorite)
{
    m_pFavorites->removeFavoriteItem(favorite);
}

void ORXFeatureTree::removeAllFavoriteItems()
{
    m_pFavorites->removeAllFavoriteItems();
}

bool ORXFeatureTree::GenerateFavoritesItems()
{
    if (!treeView())
        return false;
    m_pFavorites->GenerateFavoritesItems();
    return true;
}

void ORXFeatureTree::moveFavorteItem(ORXPropertyTreeItem* moved, ORXPropertyTreeItem* target)
{
    m_pFavorites->moveFavorteItem(moved, target);
}

void ORXFeatureTree::notifyFavoriteFeatureChange()
{
    qint64 key = cameraID();
    ORXListenTools::instance()->notifyListeners(ListenCode::kFavoritesChanged, &key);
}

int ORXFeatureTree::notify(int code, void* payload)
{
    if (code == ListenCode::kFavoritesChanged && payload && cameraID() != -1 &&
        *static_cast<qint64*>(payload) != cameraID()) {
        GenerateFavoritesItems();
    } else if (code == ListenCode::kFeatureChanged && payload) {
        const auto* changed = static_cast<const NamedFeature*>(payload);
        if (changed->lCameraID == cameraID() && changed->pName)
            UpdateFeatures(FEATURES_UPDATE_INVALIDATED, QString::fromLocal8Bit(changed->pName),
                           QGetFeaturesThread::UpdateFlags(UpdateFlagSets::kRefresh), false, false);
    }
    return 0;
}
