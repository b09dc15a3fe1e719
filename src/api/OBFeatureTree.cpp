// SPDX-License-Identifier: Apache-2.0
// The exported functions. Nothing but plain C types and no exception crosses them.
#include "OBFeatureTree/OBFeatureTree.h"

#include "api/ApplicationSetup.h"
#include "device/OBDeviceControl.h"
#include "main/ORXMainFeatureWidget.h"

#include <QApplication>
#include <QDebug>

#include <exception>

namespace {

constexpr int kOk = 0;
constexpr int kNotInitialised = -1;

bool s_bInit = false;

// Runs `action`; an exception ends here, in the log.
template <typename Action>
void guarded(const char* function, const Action& action)
{
    try {
        action();
    } catch (const std::exception& error) {
        qCritical("%s: %s", function, error.what());
    } catch (...) {
        qCritical("%s: unknown exception", function);
    }
}

// As guarded(), for the functions that need OB_FT_Init before them.
template <typename Action>
int whenInitialised(const char* function, const Action& action)
{
    // Without an application there is no window either; see OB_FT_Init.
    if (!s_bInit || !qApp || !ORXMainFeatureWidget::hasInstance())
        return kNotInitialised;
    guarded(function, [&action] { action(ORXMainFeatureWidget::instance(nullptr)); });
    return kOk;
}

} // namespace

int OB_FT_Init(const char* deviceXml, char* translateXml, QWidget* parent)
{
    const bool again = s_bInit;
    s_bInit = true;
    guarded("OB_FT_Init", [=] {
        if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
            qCritical("%s", "OB_FT_Init: the host has no QApplication; there will be no window");
            return;
        }
        if (again) {
            qInfo("%s", "OB_FT_Init: called again without OB_FT_Release; the window is kept");
            // The favourites are read anew below; what was changed so far must not be lost.
            OBDeviceControl::SaveFavoritesXml();
        }
        ApplicationSetup::runOnce();
        ORXMainFeatureWidget::instance(parent);
        OBDeviceControl::Init(deviceXml, translateXml);
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
        OBDeviceControl::SetCallBackFunc(getFeature, setFeature, getMode, invalidate, action,
                                         user);
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
    guarded("OB_FT_Release", [] {
        OBDeviceControl::SaveFavoritesXml();
        if (qApp)
            ORXMainFeatureWidget::ReleaseInstance();
    });
    s_bInit = false;
    return kOk;
}
