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

using namespace ImgProcessing;

ORXImgProcessingFeature::ORXImgProcessingFeature(QWidget* parent)
    : CuratedPage(table(), ORXPropertyTreeItem::ImageProcessingPage, parent)
    , m_pChunks(new SelectorChecks(
          {{"ChunkSelector", "ChunkEnable"}, {"FrameSpecInfoSelector", "FrameSpecInfo"}},
          FeatureTag::Watermark, this))
    , m_pEvents(
          new SelectorChecks({{"EventSelector", "EventNotification"}}, FeatureTag::Event, this))
    , m_pPanel(new ImgProcessingPanel(treeView(), this))
    , m_region(*this, *m_pPanel->region())
    , m_lut(*this, *m_pPanel->lut())
    , m_matrix(*this)
    , m_palette(*this)
{
    ORXCCMWidget::registerEditor();
    m_refreshTimer.setSingleShot(true);
    connect(&m_refreshTimer, &QTimer::timeout, this, &ORXImgProcessingFeature::refresh);
    connect(&m_region, &RegionPicture::SigOutdated, this,
            &ORXImgProcessingFeature::scheduleRefresh);
    connect(&m_region, &RegionPicture::SigDrawModeChange, this,
            &ORXImgProcessingFeature::notifyDrawModeChange);
    connect(lutEditor(), &QLUTDrawWidget::SigUpdateFeatureTree, this,
            &ORXImgProcessingFeature::scheduleRefresh);
    connect(lutEditor(), &QLUTDrawWidget::SigTransferring, this, [this](bool running) {
        m_lut.lockTable(running);
        scheduleRefresh();
    });
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
    m_lut.createLUTItems(root);
    m_matrix.create(root);
    m_palette.create(root);
    connect(tree(), &ORXFeatureTree::SigFullReadEnded, this,
            &ORXImgProcessingFeature::rereadBehindSelectors);
    attach(root);
    for (const char* name : {"ChunkSelector", "ChunkEnable", "FrameSpecInfoSelector",
                             "FrameSpecInfo", "EventSelector", "EventNotification"})
        observe(cameraItem(name));
}

// Turns what stands behind selectors to the camera whose page is shown.
void ORXImgProcessingFeature::attach(ORXPropertyTreeItem* root)
{
    m_matrix.attach(root);
    m_pChunks->attach(tree(), pageItem(kEmbeddedInfoGroup, root), treeView(), cameraID());
    m_pEvents->attach(tree(), pageItem(kEventGroup, root), treeView(), cameraID());
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
    lutEditor()->resetCameraID(cameraID());
    if (known && tree())
        attach(getRootItem(cameraID(), false));
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
    stopHostCalls();
    m_lut.lockTable(false);
    lutEditor()->resetCameraID(-1);
    for (SelectorChecks* each : checks())
        each->clear();
    m_matrix.detach();
    m_region.clear();
    m_bDrawnElsewhere = false;
    m_pPanel->hide();
}

void ORXImgProcessingFeature::requestStop()
{
    lutEditor()->StopTransfer(false);
    for (SelectorChecks* each : checks())
        each->requestStop();
    if (ColorMatrix* matrix = colorMatrix())
        matrix->requestStop();
}

// Everyone is asked before the first is waited for.
void ORXImgProcessingFeature::stopHostCalls()
{
    requestStop();
    lutEditor()->StopTransfer(true);
    for (SelectorChecks* each : checks())
        each->stopHostCalls();
    if (ColorMatrix* matrix = colorMatrix())
        matrix->stopHostCalls();
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
    m_matrix.noteChange(name);
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
    if (info == static_cast<int>(NotifyViewSpecial::ChunkSelectionChanged))
        requestStates();
}

void ORXImgProcessingFeature::requestStates()
{
    for (SelectorChecks* each : checks())
        each->requestStates();
}

// The whole camera was read: what no pass can see is read, too.
void ORXImgProcessingFeature::rereadBehindSelectors()
{
    requestStates();
    if (ColorMatrix* matrix = colorMatrix())
        matrix->read();
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
    m_lut.update();
    m_palette.update();
    m_matrix.update();
    for (SelectorChecks* each : checks())
        each->refresh();
    m_region.update();
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
    if (ColorMatrix* matrix = colorMatrix())
        matrix->setShown(false);
    m_region.setDrawMode(RegionDrawWidget::DrawNothing);
}

void ORXImgProcessingFeature::translate()
{
    CuratedPage::translate();
    scheduleRefresh();
}

void ORXImgProcessingFeature::resizeEvent(QResizeEvent* event)
{
    CuratedPage::resizeEvent(event);
    m_pPanel->fit(width());
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

// Panel -------------------------------------------------------------------------------------------

bool ORXImgProcessingFeature::showsGroup(const char* group)
{
    const ORXPropertyTreeItem* item = pageItem(group);
    return item && item->groupVisible() && item->visible();
}

// What belongs to the shown group stands below its rows.
void ORXImgProcessingFeature::updatePanel()
{
    ImgProcessingPanel::Content content = ImgProcessingPanel::Nothing;
    int mode = RegionDrawWidget::DrawNothing;
    if (showsGroup(kROIGroup) && regionPicture()->hasAreas()) {
        content = ImgProcessingPanel::Region;
        mode = RegionDrawWidget::DrawImageRegion;
    } else if (showsGroup(kAOIGroup) && regionPicture()->hasAreas()) {
        content = ImgProcessingPanel::Region;
        mode = RegionDrawWidget::DrawAutoFunctionArea;
    } else if (showsGroup(kLUTGroup) && pageItem(kLUTClear)) {
        content = ImgProcessingPanel::Curve;
    }
    m_pChunks->setShown(isVisible() && showsGroup(kEmbeddedInfoGroup));
    m_pEvents->setShown(isVisible() && showsGroup(kEventGroup));
    if (ColorMatrix* matrix = colorMatrix())
        matrix->setShown(isVisible() && showsGroup(kCCMGroup));
    m_pPanel->setContent(content, width());
    m_region.setDrawMode(isVisible() && !m_bDrawnElsewhere ? mode : RegionDrawWidget::DrawNothing);
}

void ORXImgProcessingFeature::notifyDrawModeChange(int mode, bool on)
{
    DrawModeChange change = {
        0, static_cast<quint8>(on), static_cast<qint32>(pageType()), mode, cameraID(), this};
    ORXListenTools::instance()->notifyListeners(ListenCode::kDrawModeChanged, &change);
}
