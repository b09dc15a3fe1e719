// SPDX-License-Identifier: Apache-2.0
#include "device/HostCallbacks.h"

#include "device/DeviceError.h"
#include "device/Guarded.h"
#include "device/GuiThread.h"
#include "device/HostCallWatch.h"
#include "device/HostOpening.h"
#include "device/ReentrancyScope.h"
#include "device/StopRequest.h"

#include <optional>

std::atomic<OB_FT_GetFeatureFunc> HostCallbacks::s_pGetFeatureFunc{nullptr};
std::atomic<OB_FT_SetFeatureFunc> HostCallbacks::s_pSetFeatureFunc{nullptr};
std::atomic<OB_FT_GetModeFunc> HostCallbacks::s_pGetModeFunc{nullptr};
std::atomic<OB_FT_InvalidateFunc> HostCallbacks::s_pInvalidateFunc{nullptr};
std::atomic<OB_FT_ActionFunc> HostCallbacks::s_pActionFunc{nullptr};
std::atomic<void*> HostCallbacks::s_pUser{nullptr};

namespace {

// Every call of the host; `feature` is what it is about. An exception of the host ends here.
template <typename Callback, typename... Arguments>
int callHost(const QString& feature, Callback callback, Arguments... arguments)
{
    if (!callback)
        return DeviceError::kNoCallback;
    const HostCallWatch watch(feature);
    std::optional<ReentrancyScope> scope;
    if (onGuiThread())
        scope.emplace();
    int code = DeviceError::kCallbackThrew;
    guarded("A callback of the host", [&] { code = callback(arguments...); });
    return code;
}

} // namespace

void HostCallbacks::set(OB_FT_GetFeatureFunc getFeature, OB_FT_SetFeatureFunc setFeature,
                        OB_FT_GetModeFunc getMode, OB_FT_InvalidateFunc invalidate,
                        OB_FT_ActionFunc action, void* user)
{
    s_pUser = user;
    s_pGetFeatureFunc = getFeature;
    s_pSetFeatureFunc = setFeature;
    s_pGetModeFunc = getMode;
    s_pInvalidateFunc = invalidate;
    s_pActionFunc = action;
}

bool HostCallbacks::isRefused()
{
    return StopRequest::isHere() || !HostOpening::isOpen();
}

int HostCallbacks::getFeature(int type, const QString& name, void* buffer)
{
    QByteArray localName = name.toLocal8Bit();
    return callHost(name, s_pGetFeatureFunc.load(), type, localName.data(), buffer, s_pUser.load());
}

int HostCallbacks::setFeature(int type, const QString& name, const QString& value)
{
    QByteArray localName = name.toLocal8Bit();
    QByteArray localValue = value.toLocal8Bit();
    return callHost(name, s_pSetFeatureFunc.load(), type, localName.data(), localValue.data(),
                    s_pUser.load());
}

int HostCallbacks::getMode(const QString& name, int* mode)
{
    QByteArray localName = name.toLocal8Bit();
    return callHost(name, s_pGetModeFunc.load(), localName.data(), mode, s_pUser.load());
}

void HostCallbacks::invalidate()
{
    callHost(QString(), s_pInvalidateFunc.load(), s_pUser.load());
}

void HostCallbacks::act(int code)
{
    callHost(QString(), s_pActionFunc.load(), code, s_pUser.load());
}
