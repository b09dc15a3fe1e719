// SPDX-License-Identifier: Apache-2.0
#include "pages/ORXImgProcessingFeature.h"

#include "device/ORXListenTools.h"
#include "device/ReentrancyScope.h"
#include "model/CTreeCustomDrawItemValue.h"
#include "pages/ImgProcessingTable.h"
#include "pages/ORXCCMUpdateThread.h"
#include "pages/ORXCCMWidget.h"
#include "pages/QLUTDrawWidget.h"
#include "pages/RegionDrawWidget.h"
#include "styledctl/ZELCustom.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXFeatureTreeView.h"

#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

using namespace ImgProcessing;

namespace {

constexpr int kRowsShare = 1; // of the page's height; the panel gets as much
constexpr int kPanelShare = 1;
constexpr int kLutMargin = 9;
constexpr int kAreasRetryMs = 30;

} // namespace

ORXImgProcessingFeature::ORXImgProcessingFeature(QWidget* parent)
    : CuratedPage(table(), ORXPropertyTreeItem::ImageProcessingPage, parent)
    , m_pChunks(new SelectorChecks(
          {{"ChunkSelector", "ChunkEnable"}, {"FrameSpecInfoSelector", "FrameSpecInfo"}},
          FeatureTag::Watermark, this))
    , m_pEvents(
          new SelectorChecks({{"EventSelector", "EventNotification"}}, FeatureTag::Event, this))
    , m_pPanels(new QStackedWidget(this))
    , m_pRegion(new RegionDrawWidget(m_pPanels))
    , m_pLutPanel(new QScrollArea(m_pPanels))
    , m_pLut(new QLUTDrawWidget(m_pLutPanel))
{
    ORXCCMWidget::registerEditor();
    buildLayout();
    m_refreshTimer.setSingleShot(true);
    m_areasTimer.setSingleShot(true);
    connect(&m_refreshTimer, &QTimer::timeout, this, &ORXImgProcessingFeature::refresh);
    connect(&m_areasTimer, &QTimer::timeout, this, &ORXImgProcessingFeature::scheduleRefresh);
    connect(m_pRegion, &RegionDrawWidget::SigEdited, this, &ORXImgProcessingFeature::writeRegion);
    connect(m_pLut, &QLUTDrawWidget::SigTransferring, this, &ORXImgProcessingFeature::lockTable);
    connectLUTItems();
    ORXListenTools::instance()->addListener(this, ORXListenTools::PriorityNormal);
}

ORXImgProcessingFeature::~ORXImgProcessingFeature()
{
    ORXListenTools::instance()->removeListener(this);
    stopHostCalls();
}

void ORXImgProcessingFeature::buildLayout()
{
    m_pPanels->addWidget(m_pRegion);
    m_pPanels->addWidget(m_pLutPanel);
    // The curve has one size: in a small window it is scrolled.
    m_pLutPanel->setWidget(m_pLut);
    m_pLutPanel->setAlignment(Qt::AlignCenter);
    m_pLutPanel->setFrameShape(QFrame::NoFrame);
    m_pLutPanel->setFocusPolicy(Qt::NoFocus);
    m_pLutPanel->viewport()->setAutoFillBackground(false);
    m_pLutPanel->verticalScrollBar()->setStyleSheet(
        ZELCustom::styleSheet(ZELCustom::Sheet_ScrollBar));
    m_pPanels->hide();
    auto* splitter = new QSplitter(Qt::Vertical, this);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(treeView());
    splitter->addWidget(m_pPanels);
    splitter->setStretchFactor(0, kRowsShare);
    splitter->setStretchFactor(1, kPanelShare);
    layout()->addWidget(splitter);
}

// Items -------------------------------------------------------------------------------------------

void ORXImgProcessingFeature::afterItemsCreated(ORXPropertyTreeItem* root)
{
    createLUTItems(root);
    createMatrixItems(root);
    createPaletteItem(root);
    m_pChunks->attach(tree(), pageItem(kEmbeddedInfoGroup, root), treeView(), cameraID());
    m_pEvents->attach(tree(), pageItem(kEventGroup, root), treeView(), cameraID());
    for (const char* name : {"ChunkSelector", "ChunkEnable", "FrameSpecInfoSelector",
                             "FrameSpecInfo", "EventSelector", "EventNotification"})
        observe(cameraItem(name));
}

void ORXImgProcessingFeature::createTransMap()
{
    fillTransMap(table().texts());
}

void ORXImgProcessingFeature::resetCamaraID(qint64 cameraId)
{
    if (cameraId == cameraID()) {
        scheduleRefresh();
        return;
    }
    forgetCamera();
    const bool known = getRootItem(cameraId, false) != nullptr;
    CuratedPage::resetCamaraID(cameraId);
    m_pLut->resetCameraID(cameraID());
    if (known && tree()) {
        m_pChunks->attach(tree(), pageItem(kEmbeddedInfoGroup), treeView(), cameraID());
        m_pEvents->attach(tree(), pageItem(kEventGroup), treeView(), cameraID());
    }
    if (cameraID() != -1)
        scheduleRefresh();
}

void ORXImgProcessingFeature::removeCameraID(qint64 cameraId)
{
    if (cameraId == cameraID())
        forgetCamera();
    CuratedPage::removeCameraID(cameraId);
}

// Nothing asks or shows the camera any more; a running host call is waited for.
void ORXImgProcessingFeature::forgetCamera()
{
    m_refreshTimer.stop();
    m_areasTimer.stop();
    stopHostCalls();
    lockTable(false);
    m_pLut->resetCameraID(-1);
    for (SelectorChecks* each : checks())
        each->clear();
    setDrawMode(RegionDrawWidget::DrawNothing);
    m_bDrawnElsewhere = false;
    m_pRegion->setAreas(std::nullopt, std::nullopt);
    m_pPanels->hide();
}

void ORXImgProcessingFeature::stopHostCalls()
{
    m_pLut->StopTransfer(true);
    for (SelectorChecks* each : checks())
        each->stopHostCalls();
    ORXCCMUpdateThread::stopAll();
}

// Following the camera ----------------------------------------------------------------------------

void ORXImgProcessingFeature::itemValueChanged(ORXPropertyTreeItem* item)
{
    if (!item->isFeatureTreeItem())
        return;
    const QString name = item->value()->nodeName(0);
    for (SelectorChecks* each : checks()) {
        if (each->concerns(name))
            each->requestStates();
    }
    m_bMatrixChanged |= concernsMatrix(name);
    scheduleRefresh();
}

void ORXImgProcessingFeature::itemVisibleStateChanged(ORXPropertyTreeItem* item)
{
    CuratedPage::itemVisibleStateChanged(item);
    scheduleRefresh();
}

// The camera was read anew: what stands behind the selectors may be another, too.
void ORXImgProcessingFeature::itemSpecialInfoChanged(ORXPropertyTreeItem*, int info)
{
    if (info != static_cast<int>(NotifyViewSpecial::ChunkSelectionChanged))
        return;
    for (SelectorChecks* each : checks())
        each->requestStates();
}

void ORXImgProcessingFeature::scheduleRefresh()
{
    if (!m_refreshTimer.isActive())
        m_refreshTimer.start(0);
}

void ORXImgProcessingFeature::refresh()
{
    if (!tree() || !getRootItem(-1, false))
        return;
    updateLUTItems();
    updatePalette();
    updateMatrix();
    for (SelectorChecks* each : checks())
        each->refresh();
    updateAreas();
    updatePanel();
}

void ORXImgProcessingFeature::updateValue()
{
    scheduleRefresh();
}

void ORXImgProcessingFeature::afterCurrentTabShow()
{
    scheduleRefresh();
}

void ORXImgProcessingFeature::showEvent(QShowEvent* event)
{
    CuratedPage::showEvent(event);
    scheduleRefresh();
}

// Nobody draws in a page out of sight, nor looks at its boxes.
void ORXImgProcessingFeature::hideEvent(QHideEvent* event)
{
    CuratedPage::hideEvent(event);
    for (SelectorChecks* each : checks())
        each->setShown(false);
    setDrawMode(RegionDrawWidget::DrawNothing);
}

void ORXImgProcessingFeature::translate()
{
    CuratedPage::translate();
    scheduleRefresh();
}

void ORXImgProcessingFeature::resizeEvent(QResizeEvent* event)
{
    CuratedPage::resizeEvent(event);
    fitPanel();
}

int ORXImgProcessingFeature::notify(int code, void* payload)
{
    if (code == ListenCode::kFirstReadEnded && payload &&
        *static_cast<qint64*>(payload) == cameraID()) {
        scheduleRefresh();
        for (SelectorChecks* each : checks())
            each->requestStates();
    } else if (code == ListenCode::kDrawModeChanged && payload) {
        // While another page draws in the same camera, this one does not.
        const auto* change = static_cast<const DrawModeChange*>(payload);
        if (change->cameraId == cameraID() && change->sender != this) {
            m_bDrawnElsewhere = change->on != 0;
            updatePanel();
        }
    }
    return 0;
}

bool ORXImgProcessingFeature::setFeatureValue(const QString& tagName, const QString& nodeName,
                                              const QVariant& value)
{
    for (SelectorChecks* each : checks()) {
        if (featureTag(tagName) == each->tag())
            return each->write(nodeName, value.toBool());
    }
    return CuratedPage::setFeatureValue(tagName, nodeName, value);
}

// Region and panel --------------------------------------------------------------------------------

bool ORXImgProcessingFeature::showsGroup(const char* group)
{
    const ORXPropertyTreeItem* item = pageItem(group);
    return item && item->groupVisible() && item->visible();
}

// Limits and values that were read at different moments would show a region that never was.
void ORXImgProcessingFeature::updateAreas()
{
    if (tree()->isReading()) {
        m_areasTimer.start(kAreasRetryMs);
        return;
    }
    m_pRegion->setAreas(RegionArea::read(*tree(), RegionArea::imageNames()),
                        RegionArea::read(*tree(), RegionArea::autoFunctionNames()));
}

// What belongs to the shown group stands below its rows.
void ORXImgProcessingFeature::updatePanel()
{
    QWidget* panel = nullptr;
    int mode = RegionDrawWidget::DrawNothing;
    if (showsGroup(kROIGroup) && m_pRegion->hasAreas()) {
        panel = m_pRegion;
        mode = RegionDrawWidget::DrawImageRegion;
    } else if (showsGroup(kAOIGroup) && m_pRegion->hasAreas()) {
        panel = m_pRegion;
        mode = RegionDrawWidget::DrawAutoFunctionArea;
    } else if (showsGroup(kLUTGroup) && pageItem(kLUTClear)) {
        panel = m_pLutPanel;
    }
    if (panel)
        m_pPanels->setCurrentWidget(panel);
    m_pChunks->setShown(isVisible() && showsGroup(kEmbeddedInfoGroup));
    m_pEvents->setShown(isVisible() && showsGroup(kEventGroup));
    fitPanel();
    m_pPanels->setVisible(panel != nullptr);
    setDrawMode(isVisible() && !m_bDrawnElsewhere ? mode : RegionDrawWidget::DrawNothing);
}

// What the panel cannot use is the rows'.
void ORXImgProcessingFeature::fitPanel()
{
    const bool lut = m_pPanels->currentWidget() == m_pLutPanel;
    m_pPanels->setMaximumHeight(lut ? m_pLut->sizeHint().height() + 2 * kLutMargin
                                    : m_pRegion->usefulHeight(width()));
}

void ORXImgProcessingFeature::setDrawMode(int mode)
{
    const int before = m_pRegion->drawMode();
    if (mode == before)
        return;
    m_pRegion->setDrawMode(static_cast<RegionDrawWidget::DrawMode>(mode));
    const ORXPropertyTreeItem* draw = cameraID() != -1 ? pageItem(kDraw) : nullptr;
    if (auto* value = draw ? dynamic_cast<CTreeCustomDrawItemValue*>(draw->value()) : nullptr) {
        value->m_bDrawing = mode != RegionDrawWidget::DrawNothing;
        value->m_nDrawMode = mode;
    }
    if (before != RegionDrawWidget::DrawNothing)
        notifyDrawModeChange(before, false);
    if (mode != RegionDrawWidget::DrawNothing)
        notifyDrawModeChange(mode, true);
}

void ORXImgProcessingFeature::notifyDrawModeChange(int mode, bool on)
{
    DrawModeChange change = {
        0, static_cast<quint8>(on), static_cast<qint32>(pageType()), mode, cameraID(), this};
    ORXListenTools::instance()->notifyListeners(ListenCode::kDrawModeChanged, &change);
}

void ORXImgProcessingFeature::writeRegion(const RegionArea::Target& target)
{
    const RegionArea* area = m_pRegion->edited();
    if (!area || !tree())
        return;
    // The host may take the camera away while it is written to.
    const ReentrancyScope scope;
    const QPointer<ORXFeatureTree> whole(tree());
    const QVector<QPair<QString, qint64>> writes = area->writesTo(target);
    const RegionArea wanted = area->movedTo(target);
    bool written = true;
    for (const auto& write : writes) {
        written =
            whole->setFeatureValue(featureTagName(FeatureTag::Integer), write.first, write.second);
        if (!whole || whole->cameraID() == -1)
            return;
        if (!written)
            break;
        if (ORXPropertyTreeItem* item = whole->propertyItemByName(write.first)) {
            item->value()->setValue(write.second);
            // Published, so that a later read of another value counts as a change.
            item->endUpdateItem(cameraID());
        }
    }
    if (written)
        m_pRegion->showEdited(wanted);
    // Each of them changes the limits of others; after a refusal the camera's own values show.
    for (const auto& write : writes)
        whole->UpdateFeatures(FEATURES_UPDATE_INVALIDATED, write.first,
                              QGetFeaturesThread::UpdateFlags(UpdateFlagSets::kFirstRead), false,
                              false);
    scheduleRefresh();
}
