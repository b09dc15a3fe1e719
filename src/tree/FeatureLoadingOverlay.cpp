// SPDX-License-Identifier: Apache-2.0
#include "tree/FeatureLoadingOverlay.h"

#include "device/OBDeviceControl.h"
#include "styledctl/ZELCustomLoadingDialog.h"
#include "tree/IORXFeatureWidget.h"

#include <QCoreApplication>

namespace {

constexpr int kOverlayPerCameraDeviceType = 8;

} // namespace

int getLoadingIndex(int deviceType, qint64 cameraId)
{
    return deviceType == kOverlayPerCameraDeviceType ? static_cast<int>(cameraId) + 3 : 1;
}

FeatureLoadingOverlay::FeatureLoadingOverlay(const IORXFeatureWidget* page)
    : m_pPage(page)
{
}

int FeatureLoadingOverlay::index() const
{
    return getLoadingIndex(OBDeviceControl::GetDeviceType(), m_pPage->cameraID());
}

QString FeatureLoadingOverlay::text() const
{
    return m_bSetting ? QCoreApplication::translate("ORXFeatureTree", "Setting features...")
                      : QCoreApplication::translate("ORXFeatureTree", "Updating features...");
}

void FeatureLoadingOverlay::show(const QString& text) const
{
    if (m_pPage->cameraID() != -1)
        ZELCustomLoadingDialog::showLoading(text, index());
}

void FeatureLoadingOverlay::hide() const
{
    if (m_pPage->cameraID() != -1)
        ZELCustomLoadingDialog::hideLoading(index());
}

bool FeatureLoadingOverlay::applies(bool setting) const
{
    return m_pPage->cameraID() != -1 &&
           (setting || OBDeviceControl::GetDeviceType() == kOverlayPerCameraDeviceType);
}

// The overlay paints by itself as soon as it is shown, so no events need to be processed here: the
// host must not be able to close the window from inside a write.
void FeatureLoadingOverlay::showFor(bool setting)
{
    if (!applies(setting))
        return;
    ZELCustomLoadingDialog::setHostWindow(m_pPage->window(), index());
    m_bSetting = setting;
    show(text());
}

void FeatureLoadingOverlay::hideFor(bool setting) const
{
    if (applies(setting))
        hide();
}

void FeatureLoadingOverlay::retranslate() const
{
    if (m_pPage->cameraID() != -1 && ZELCustomLoadingDialog::isLoading(index()))
        show(text());
}
