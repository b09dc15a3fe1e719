// SPDX-License-Identifier: Apache-2.0
// What ORXImgProcessingFeature shows below its rows: the picture of the sensor or the curve.
#include "ccm/ColorMatrix.h"
#include "device/ORXListenTools.h"
#include "device/ReentrancyScope.h"
#include "lut/QLUTDrawWidget.h"
#include "model/CTreeCustomDrawItemValue.h"
#include "pages/ImgProcessingTable.h"
#include "pages/ORXImgProcessingFeature.h"
#include "region/RegionDrawWidget.h"
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
    if (m_matrix)
        m_matrix->setShown(isVisible() && showsGroup(kCCMGroup));
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
        whole->rereadInvalidated(write.first);
    scheduleRefresh();
}
