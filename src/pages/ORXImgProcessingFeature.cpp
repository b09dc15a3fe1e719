// SPDX-License-Identifier: Apache-2.0
#include "pages/ORXImgProcessingFeature.h"

#include "ccm/ColorMatrix.h"
#include "ccm/ORXCCMWidget.h"
#include "device/ORXListenTools.h"
#include "lut/QLUTDrawWidget.h"
#include "pages/ImgProcessingTable.h"
#include "region/RegionDrawWidget.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXFeatureTreeView.h"

#include <QScrollArea>
#include <QStackedWidget>

using namespace ImgProcessing;

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

// Items -------------------------------------------------------------------------------------------

void ORXImgProcessingFeature::afterItemsCreated(ORXPropertyTreeItem* root)
{
    createLUTItems(root);
    createMatrixItems(root);
    attachMatrix(root);
    connect(tree(), &ORXFeatureTree::SigFullReadEnded, this,
            &ORXImgProcessingFeature::rereadBehindSelectors);
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
        attachMatrix(getRootItem(cameraID(), false));
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
    m_matrix.reset();
    setDrawMode(RegionDrawWidget::DrawNothing);
    m_bDrawnElsewhere = false;
    m_pRegion->setAreas(std::nullopt, std::nullopt);
    m_pPanels->hide();
}

void ORXImgProcessingFeature::requestStop()
{
    m_pLut->StopTransfer(false);
    for (SelectorChecks* each : checks())
        each->requestStop();
    if (m_matrix)
        m_matrix->requestStop();
}

// Everyone is asked before the first is waited for.
void ORXImgProcessingFeature::stopHostCalls()
{
    requestStop();
    m_pLut->StopTransfer(true);
    for (SelectorChecks* each : checks())
        each->stopHostCalls();
    if (m_matrix)
        m_matrix->stopHostCalls();
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

// The whole camera was read: what no pass can see is read, too.
void ORXImgProcessingFeature::rereadBehindSelectors()
{
    for (SelectorChecks* each : checks())
        each->requestStates();
    if (m_matrix)
        m_matrix->read();
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
    if (m_matrix)
        m_matrix->setShown(false);
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
