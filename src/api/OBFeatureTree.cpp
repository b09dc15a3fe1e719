// SPDX-License-Identifier: Apache-2.0
// The exported functions. Nothing but plain C types and no exception crosses them.
#include "OBFeatureTree/OBFeatureTree.h"

#include "api/ApplicationSetup.h"
#include "device/DescriptionParse.h"
#include "device/Guarded.h"
#include "device/GuiThread.h"
#include "device/LoadingLane.h"
#include "device/OBDeviceControl.h"
#include "main/ORXMainFeatureWidget.h"
#include "model/NodesReadAhead.h"

#include <QApplication>
#include <QDebug>

#include <atomic>

namespace {

constexpr int kOk = 0;
constexpr int kNotInitialised = -1;

std::atomic<bool> s_bInit{false};

bool hasApplication(const char* function)
{
    if (qobject_cast<QApplication*>(QCoreApplication::instance()))
        return true;
    qCritical("%s: the host has no QApplication; there is no window", function);
    return false;
}

// The library has no lock for what these functions touch; a call from elsewhere has no effect.
bool isOnGuiThread(const char* function)
{
    if (onGuiThread())
        return true;
    qCritical("%s: called on another thread than the application's; ignored", function);
    return false;
}

// For the functions that need OB_FT_Init before them. A window that went with the host's parent is
// made anew.
template <typename Action>
int whenInitialised(const char* function, const Action& action)
{
    if (!s_bInit)
        return kNotInitialised;
    if (!isOnGuiThread(function))
        return kOk;
    guarded(function, [&] {
        if (hasApplication(function))
            action(ORXMainFeatureWidget::instance(nullptr));
    });
    return kOk;
}

// For a host that ends without OB_FT_Release: no thread of the library may outlive the application.
void releaseWithApplication()
{
    OB_FT_Release();
}

} // namespace

int OB_FT_Init(const char* deviceXml, char* translateXml, QWidget* parent)
{
    if (!isOnGuiThread("OB_FT_Init"))
        return kOk;
    const bool again = s_bInit;
    s_bInit = true;
    guarded("OB_FT_Init", [=] {
        if (!hasApplication("OB_FT_Init"))
            return;
        if (again) {
            qInfo("%s", "OB_FT_Init: called again without OB_FT_Release; the window is kept");
            // The favourites are read anew below; what was changed so far must not be lost.
            OBDeviceControl::SaveFavoritesXml();
        }
        qRemovePostRoutine(releaseWithApplication);
        qAddPostRoutine(releaseWithApplication);
        // While the window is made.
        DescriptionParse description(deviceXml, NodesReadAhead::begin);
        ApplicationSetup::runOnce();
        ORXMainFeatureWidget::instance(parent);
        OBDeviceControl::Init(description, translateXml);
    });
    return kOk;
}

int OB_FT_SetDeviceInfo(_OB_FT_DEVICEINFO_* info)
{
    return whenInitialised("OB_FT_SetDeviceInfo", [=](ORXMainFeatureWidget* widget) {
        OBDeviceControl::SetDeviceInfo(info);
        widget->ResetTitleText();
    });
}

int OB_FT_SetCallBackFunc(OB_FT_GetFeatureFunc getFeature, OB_FT_SetFeatureFunc setFeature,
                          OB_FT_GetModeFunc getMode, OB_FT_InvalidateFunc invalidate,
                          OB_FT_ActionFunc action, void* user)
{
    return whenInitialised("OB_FT_SetCallBackFunc", [=](ORXMainFeatureWidget* widget) {
        // The six values belong together; nobody may call one while they change.
        const bool wasReading = widget->isVisible();
        widget->PauseUpdateThread();
        OBDeviceControl::SetCallBackFunc(getFeature, setFeature, getMode, invalidate, action, user);
        // The host was asked for its chunk mode and may have released the window from there.
        if (!widget->isInstance())
            return;
        widget->CreateFeature();
        if (wasReading)
            widget->StartUpdateThread();
    });
}

int OB_FT_SetWidgetSize(int width, int height)
{
    return whenInitialised("OB_FT_SetWidgetSize", [=](ORXMainFeatureWidget* widget) {
        widget->setFixedSize(width, height);
    });
}

int OB_FT_SetTitleVisible(int)
{
    return whenInitialised("OB_FT_SetTitleVisible", [](ORXMainFeatureWidget*) {});
}

int OB_FT_SetWidgetPosition(int x, int y)
{
    return whenInitialised("OB_FT_SetWidgetPosition",
                           [=](ORXMainFeatureWidget* widget) { widget->move(QPoint(x, y)); });
}

int OB_FT_Start(void*, int language)
{
    return whenInitialised("OB_FT_Start", [=](ORXMainFeatureWidget* widget) {
        widget->SetLanguage(language);
        widget->showOnTop();
    });
}

int OB_FT_Close()
{
    return whenInitialised("OB_FT_Close", [](ORXMainFeatureWidget* widget) { widget->close(); });
}

int OB_FT_UpdateFeatures()
{
    return whenInitialised("OB_FT_UpdateFeatures",
                           [](ORXMainFeatureWidget* widget) { widget->onRefreshFeature(); });
}

int OB_FT_Release()
{
    if (!s_bInit)
        return kNotInitialised;
    if (!isOnGuiThread("OB_FT_Release"))
        return kOk;
    // First: the host hears that the window goes, and may open the next one from there.
    s_bInit = false;
    guarded("OB_FT_Release", [] {
        OBDeviceControl::SaveFavoritesXml();
        qRemovePostRoutine(releaseWithApplication);
        NodesReadAhead::drop();
        LoadingLane::finish();
        if (qApp)
            ORXMainFeatureWidget::ReleaseInstance();
    });
    return kOk;
}
