// SPDX-License-Identifier: Apache-2.0
#include "pages/RegionPicture.h"

#include "device/ReentrancyScope.h"
#include "model/CTreeCustomDrawItemValue.h"
#include "pages/CuratedPage.h"
#include "pages/ImgProcessingTable.h"
#include "region/RegionDrawWidget.h"
#include "tree/ORXFeatureTree.h"

#include <QPointer>

using namespace ImgProcessing;

namespace {

constexpr int kRetryMs = 30;

} // namespace

RegionPicture::RegionPicture(CuratedPage& page, RegionDrawWidget& picture)
    : m_page(page)
    , m_picture(picture)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &RegionPicture::SigOutdated);
    connect(&picture, &RegionDrawWidget::SigEdited, this, &RegionPicture::writeRegion);
}

// Limits and values that were read at different moments would show a region that never was.
void RegionPicture::update()
{
    const ORXFeatureTree* whole = m_page.tree();
    if (whole->isReading())
        m_timer.start(kRetryMs);
    else
        m_picture.setAreas(RegionArea::read(*whole, RegionArea::imageNames()),
                           RegionArea::read(*whole, RegionArea::autoFunctionNames()));
}

void RegionPicture::clear()
{
    m_timer.stop();
    setDrawMode(RegionDrawWidget::DrawNothing);
    m_picture.setAreas(std::nullopt, std::nullopt);
}

void RegionPicture::setDrawMode(int mode)
{
    const int before = m_picture.drawMode();
    if (mode == before)
        return;
    m_picture.setDrawMode(static_cast<RegionDrawWidget::DrawMode>(mode));
    const ORXPropertyTreeItem* draw = m_page.cameraID() != -1 ? m_page.pageItem(kDraw) : nullptr;
    if (auto* value = draw ? dynamic_cast<CTreeCustomDrawItemValue*>(draw->value()) : nullptr) {
        value->m_bDrawing = mode != RegionDrawWidget::DrawNothing;
        value->m_nDrawMode = mode;
    }
    if (before != RegionDrawWidget::DrawNothing)
        emit SigDrawModeChange(before, false);
    if (mode != RegionDrawWidget::DrawNothing)
        emit SigDrawModeChange(mode, true);
}

void RegionPicture::writeRegion(const RegionArea::Target& target)
{
    const RegionArea* area = m_picture.edited();
    if (!area || !m_page.tree())
        return;
    // The host may take the camera away while it is written to.
    const ReentrancyScope scope;
    const QPointer<ORXFeatureTree> whole(m_page.tree());
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
            item->endUpdateItem(m_page.cameraID());
        }
    }
    if (written)
        m_picture.showEdited(wanted);
    // Each of them changes the limits of others; after a refusal the camera's own values show.
    for (const auto& write : writes)
        whole->rereadInvalidated(write.first);
    emit SigOutdated();
}
