// SPDX-License-Identifier: Apache-2.0
#include "tree/ORXFeatureTree.h"

#include "device/OBDeviceControl.h"
#include "device/ORXListenTools.h"
#include "device/ReentrancyScope.h"
#include "model/CTreeEnumationItemValue.h"
#include "model/NodesReadAhead.h"
#include "model/ORXPropertyTreeModel.h"
#include "styledctl/ZELCustom.h"
#include "styledctl/ZELCustomDockTitleBar.h"
#include "styledctl/ZELSplitterKeys.h"
#include "tree/FeatureDescriptionPanel.h"
#include "tree/FeatureInfoTabs.h"
#include "tree/HostWaitLine.h"
#include "tree/ItemText.h"
#include "tree/ORXFeatureTreeView.h"
#include "tree/ReadOnlyReasonLine.h"

#include <QAction>
#include <QEvent>
#include <QSplitter>
#include <QVBoxLayout>

namespace {

constexpr int kDescriptionHeight = 90; // at least, with a line that says why it is read-only
constexpr int kTreeShare = 3;          // of the height, against 1 of the description

const QLatin1String kDeviceUserId("DeviceUserID");
const QLatin1String kRegionDisplaySelector("RegionDisplaySelector");

} // namespace

ORXFeatureTree::ORXFeatureTree(qint64 cameraId, QWidget* parent)
    : IORXFeatureWidget(ORXPropertyTreeItem::FeatureTreePage, parent)
    , m_lockedRows(*this)
    , m_pFavorites(new FeatureFavorites(treeView(), *this, this))
    , m_pDescription(new FeatureDescriptionPanel(this))
    , m_reason([this](const QString& name) { return propertyItemByName(name); })
    , m_pReasonLine(new ReadOnlyReasonLine(m_reason, this))
    , m_pInfoTabs(new FeatureInfoTabs(this))
    , m_pMessages(new FeatureMessages(this))
    , m_overlay(this)
    , m_reading(m_index, this)
    , m_autoTrigger(this)
    , m_edits(this, m_reading, *m_pMessages, m_overlay)
    , m_marks(&m_watch)
{
    setCameraID(cameraId);
    treeView()->setMarks(&m_marks);
    buildLayout();
    connectSignals();
    connectReading();
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
    // What is waited for stands above the description.
    auto* below = new QWidget(this);
    auto* belowLayout = new QVBoxLayout(below);
    belowLayout->setContentsMargins(0, 0, 0, 0);
    belowLayout->setSpacing(0);
    const auto nameOf = [this](const QString& feature) {
        const ORXPropertyTreeItem* item = propertyItemByName(feature);
        return item && item->value() ? ItemText::name(*item) : feature;
    };
    belowLayout->addWidget(new HostWaitLine(nameOf, below));
    auto* description = new QWidget(this);
    description->setMinimumHeight(kDescriptionHeight);
    auto* descriptionLayout = new QVBoxLayout(description);
    descriptionLayout->setContentsMargins(0, 0, 0, 0);
    descriptionLayout->setSpacing(0);
    descriptionLayout->addWidget(m_pDescription, 1);
    descriptionLayout->addWidget(m_pReasonLine);
    m_pInfoTabs->addPanel(description, [] { return tr("Description"); });
    belowLayout->addWidget(m_pInfoTabs, 1);

    auto* splitter = new QSplitter(Qt::Vertical, this);
    splitter->setStyle(ZELCustom::style());
    splitter->setChildrenCollapsible(false);
    new ZELSplitterKeys(splitter);
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
    connect(treeView(), &QTreeView::pressed, this, &Tree::OnChangeItem);
    // A key that is held passes many rows, and the first row gets the focus while the window
    // appears: texts are laid out when nothing else is to be done.
    connect(treeView()->selectionModel(), &QItemSelectionModel::currentChanged, &m_describeTimer,
            [this] { m_describeTimer.start(0); });
    m_describeTimer.setSingleShot(true);
    connect(&m_describeTimer, &QTimer::timeout, this,
            [this] { OnChangeItem(treeView()->currentIndex()); });
    connect(treeView(), &QWidget::customContextMenuRequested, this,
            &Tree::OnTreeFeaturesCustomContextMenuRequested);
    connect(treeView(), &ORXFeatureTreeView::SigFavoriteMoved, this, &Tree::moveFavorteItem);
    connect(m_pFavorites, &FeatureFavorites::SigListChanged, this,
            &Tree::notifyFavoriteFeatureChange);
    connect(m_pFavorites->addAction(), &QAction::triggered, this, &Tree::OnActionFavoriteAdd);
    connect(m_pFavorites->removeAction(), &QAction::triggered, this, &Tree::OnActionFavoriteRemove);
    connect(m_pFavorites->removeAllAction(), &QAction::triggered, this,
            &Tree::OnActionFavoriteRemoveAll);
    connect(&m_edits, &FeatureEdits::SigWritten, this, [this](const QString& name) {
        m_watch.noteWritten(name, GetFeatureInvalidatorList(name));
    });
    connect(&m_edits, &FeatureEdits::SigExecuted, this, [this](const QString& name) {
        m_watch.noteExecuted(name);
        m_watch.noteWritten(name, GetFeatureInvalidatorList(name));
    });
    connect(&m_lockedRows, &LockedRows::SigRowChanged, this,
            [this](ORXPropertyTreeItem* item) { item->notifyViewUpdate(cameraID(), 1, false); });
    connect(&m_edits, &FeatureEdits::SigDeviceReset, this, &Tree::afterDeviceReset);
    connect(&m_edits, &FeatureEdits::SigSettingsLoaded, this, &Tree::afterSettingsLoaded);
    connect(m_pDescription, &FeatureDescriptionPanel::SigShown, m_pReasonLine,
            &ReadOnlyReasonLine::showItem);
    connect(m_pReasonLine, &ReadOnlyReasonLine::SigShowFeature, this, &Tree::SigShowFeature);
    connect(m_pReasonLine, &ReadOnlyReasonLine::SigLeft, treeView(),
            [this] { treeView()->setFocus(Qt::OtherFocusReason); });
    connect(treeView(), &ORXFeatureTreeView::SigNotEditable, this, [this] {
        finishDescribing();
        if (!m_pReasonLine->hasLinks())
            return;
        m_pInfoTabs->setCurrentIndex(0);
        m_pReasonLine->setFocus(Qt::TabFocusReason);
    });
    connect(this, &Tree::SigFeatureChangeOsd, this, &Tree::OnSigFeatureChangeOsd);
    connect(&m_autoTrigger, &AutoSoftwareTrigger::SigChanged, this,
            [this](bool enabled) { emit SigAutoSoftwareTrigChanged(cameraID(), enabled); });
}

void ORXFeatureTree::connectReading()
{
    using Tree = ORXFeatureTree;
    using Reading = FeatureReadingControl;
    connect(&m_reading, &Reading::SigPassEnded, this, &Tree::OnGetThreadEnd);
    connect(&m_reading, &Reading::SigFullReadEnded, this,
            [this] { emit SigFullReadEnded(cameraID()); });
    connect(&m_reading, &Reading::SigFirstReadEnded, this, &Tree::afterFirstRead);
    connect(&m_reading, &Reading::SigWaitEnded, this, [this] {
        m_overlay.hide();
        if (!m_reading.isRereadDue())
            m_watch.noteRereadEnded();
    });
    connect(&m_reading, &Reading::SigPollingFeatureChanged, this, &Tree::SigPollingFeatureChanged);
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
    m_index.GenerateDomElementMap(NodesReadAhead::take(*OBDeviceControl::GetDeviceXml()));
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
    m_watch.watch(AllTreeItemsMap().values().toVector(),
                  [this](const QString& name) { return m_index.pollingMap().contains(name); });
    GenerateFavoritesItems();
}

void ORXFeatureTree::createItems()
{
    auto* root = new ORXPropertyTreeItem(nullptr, ORXPropertyTreeItem::FeatureTreePage);
    root->setItemType(ORXPropertyTreeItem::CustomItem);
    root->value()->setDisplayName(QStringLiteral("Feature Tree"));
    root->value()->setTranslateName(QStringLiteral("属性树"));
    m_pFavorites->forgetItems();
    m_pDescription->showItem(nullptr);
    m_builder.createItems(root, m_index.nodes(), treeView());
    setRootItem(cameraID(), root);
    m_marks.clear();
    m_reason.setNodes(m_index.nodes());
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
        m_reading.stopTimers();
        m_autoTrigger.stopAndWait();
        m_pDescription->showItem(nullptr);
        m_pFavorites->forgetItems();
        m_marks.clear();
        m_watch.watch({});
        m_builder.clear();
    }
    IORXFeatureWidget::removeCameraID(cameraId);
}

void ORXFeatureTree::readyForDelete()
{
    m_overlay.hide();
    emit SigReadyForDelete();
    m_reading.end();
    m_autoTrigger.stopAndWait();
}

void ORXFeatureTree::Release()
{
    m_reading.stopTimers();
    m_autoTrigger.stopAndWait();
    ORXListenTools::instance()->removeListener(this);
}

// Description panel, title, language --------------------------------------------------------------

void ORXFeatureTree::OnChangeItem(const QModelIndex& index)
{
    const ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index);
    if (item && item->value())
        m_pDescription->showItem(item);
}

void ORXFeatureTree::finishDescribing()
{
    if (!m_describeTimer.isActive())
        return;
    m_describeTimer.stop();
    OnChangeItem(treeView()->currentIndex());
}

void ORXFeatureTree::itemValueChanged(ORXPropertyTreeItem* item)
{
    if (!item || !item->value())
        return;
    // The whole text comes with the first read.
    m_pDescription->refreshIfShown(item);
    m_pReasonLine->itemChanged(*item);
    if (item->value()->nodeName(0) == kDeviceUserId)
        refreshCameraItemName();
}

void ORXFeatureTree::itemVisibleStateChanged(ORXPropertyTreeItem* item)
{
    m_pReasonLine->itemChanged(*item);
    if (!item->visible() && item->value())
        m_autoTrigger.featureWent(item->value()->nodeName(0));
}

void ORXFeatureTree::refreshCameraItemName()
{
    const ORXPropertyTreeItem* item = propertyItemByName(kDeviceUserId);
    const QString userName = item && item->value() ? item->value()->displayValue() : QString();
    const QString name = userName.isEmpty() ? OBDeviceControl::GetDeviceName() : userName;
    if (m_pDockTitleBar && !name.isEmpty())
        m_pDockTitleBar->cSetTitleText(name);
}

// Whatever the tree has on screen says the same in the other language.
void ORXFeatureTree::changeEvent(QEvent* event)
{
    IORXFeatureWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        RefreshWidgetInfo();
        m_pMessages->retranslate();
        m_overlay.retranslate();
    }
}

void ORXFeatureTree::RefreshWidgetInfo()
{
    m_pFavorites->retranslate();
    m_pDescription->retranslate();
    treeView()->setPlaceholderText(
        tr("Nothing to show here. A right click, a long touch or the Menu key on a feature "
           "adds it to the favorites."));
}

void ORXFeatureTree::notifyEditorUpdate()
{
    treeView()->viewport()->update();
    treeView()->updateAllEditorData();
    m_pDescription->refresh();
}

void ORXFeatureTree::ClearTreeViewInfo()
{
    treeView()->clearDelegateInfo();
}

// Favourites --------------------------------------------------------------------------------------

bool ORXFeatureTree::GenerateFavoritesItems()
{
    if (!treeView())
        return false;
    m_pFavorites->GenerateFavoritesItems();
    return true;
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

// Reading -----------------------------------------------------------------------------------------

void ORXFeatureTree::StartUpdateThread()
{
    if (cameraID() < 0)
        return;
    ShowLoadingFeatures(true, false);
    m_reading.start(cameraID(), AllTreeItemsMap());
    refreshCameraItemName();
}

void ORXFeatureTree::PauseUpdateThread()
{
    m_autoTrigger.requestStop();
    m_reading.pause();
    m_autoTrigger.stopAndWait();
}

void ORXFeatureTree::requestStop()
{
    m_reading.requestStop();
    m_autoTrigger.requestStop();
}

void ORXFeatureTree::OnGetThreadEnd()
{
    treeView()->viewport()->update();
    treeView()->describeEditors();
    m_pDescription->refresh();
    emit SigPassEnded();
}

void ORXFeatureTree::afterFirstRead()
{
    qint64 key = cameraID();
    emit SigFirstEndUpdateFeature(key);
    ORXListenTools::instance()->notifyListeners(ListenCode::kFirstReadEnded, &key);
}

void ORXFeatureTree::OnUserLevelChanged()
{
    if (cameraID() < 0)
        return;
    ShowLoadingFeatures(true, false);
    m_reading.userLevelChanged();
}

void ORXFeatureTree::OnBtnRefresh()
{
    ShowLoadingFeatures(true, false);
    OBDeviceControl::InvalidateNodes();
    m_reading.refresh();
}

void ORXFeatureTree::OnCameraStartShot()
{
    ClearTreeViewInfo();
    m_reading.readLockable();
}

void ORXFeatureTree::OnCameraStopShot()
{
    m_edits.skipNextStart();
    OnCameraStartShot();
}

void ORXFeatureTree::OnCameraClose()
{
    StopThread(true);
    m_reading.stopTimers();
    m_autoTrigger.stopAndWait();
    // Without a camera nothing would hide it any more.
    m_overlay.hide();
    m_marks.clear();
    treeView()->clearModelInfo();
    setCameraID(-1);
    m_pDescription->showItem(nullptr);
}

bool ORXFeatureTree::rereadFeatureValue(ORXPropertyTreeItem* item, bool notifyView)
{
    if (!item || !item->value() || item->value()->nodeName(0).isEmpty() ||
        !FeatureValueReader::hasReader(item->tag()))
        return false;
    const bool read = FeatureValueReader::readDirectly(item);
    item->setWasRead(true, cameraID());
    if (notifyView)
        item->notifyViewUpdate(cameraID(), -1, false);
    return read;
}

void ORXFeatureTree::SetAutoSoftwareTrig(bool enable, unsigned int intervalMs)
{
    if (!enable)
        m_autoTrigger.stop();
    else if (!m_reading.hasEnded() && cameraID() >= 0)
        m_autoTrigger.start(intervalMs);
}

void ORXFeatureTree::OnSigFeatureChangeOsd()
{
    ORXListenTools::instance()->notifyListeners(ListenCode::kFeatureChangedOsd, nullptr);
}

// Writing -----------------------------------------------------------------------------------------

bool ORXFeatureTree::setFeatureValue(const QString& tagName, const QString& nodeName,
                                     const QVariant& value)
{
    return m_edits.edit(featureTag(tagName), nodeName, value);
}

bool ORXFeatureTree::setFeatureValue(ORXPropertyTreeItem* item, const QVariant& value,
                                     bool updateView)
{
    if (!item || !item->value())
        return false;
    const bool written = setFeatureValue(item->tagName(), item->value()->nodeName(0), value);
    if (updateView && ORXPropertyTreeItem::isAlive(item)) {
        item->value()->setValue(value);
        item->notifyViewUpdate(cameraID(), -1, false);
    }
    return written;
}

void ORXFeatureTree::afterDeviceReset()
{
    m_autoTrigger.stop();
    m_marks.clear();
    ClearTreeViewInfo();
    setIsCanEdit(false);
}

void ORXFeatureTree::afterSettingsLoaded()
{
    if (!GetOstSettingData())
        qCritical("%s", "GetOstSettingData failed");
    emit SigFeatureChangeOsd();
}

bool ORXFeatureTree::GetOstSettingData()
{
    const ORXPropertyTreeItem* item = propertyItemByName(kRegionDisplaySelector);
    const auto* value =
        item ? dynamic_cast<const CTreeEnumationItemValue*>(item->value()) : nullptr;
    if (!value)
        return false;
    const qint64 number = value->number();
    {
        const ReentrancyScope scope;
        m_reading.waitUntilNotRereading(kRegionDisplaySelector);
    }
    if (m_reading.hasEnded()) // released meanwhile
        return false;
    return OBDeviceControl::SetEnumNodeValue(kRegionDisplaySelector,
                                             static_cast<unsigned int>(number));
}

void ORXFeatureTree::ShowLoadingDlg(bool show, const QString& text)
{
    if (show)
        m_overlay.show(text);
    else
        m_overlay.hide();
}

void ORXFeatureTree::ShowLoadingFeatures(bool show, bool setting)
{
    if (show)
        m_overlay.showFor(setting);
    else if (!m_reading.isRereading())
        m_overlay.hideFor(setting);
}
