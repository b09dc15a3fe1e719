// SPDX-License-Identifier: Apache-2.0
#include "device/RegisteredCallbacks.h"

#include "device/DeviceError.h"
#include "device/Guarded.h"
#include "device/GuiThread.h"
#include "device/HostCallWatch.h"
#include "device/HostOpening.h"
#include "device/ReentrancyScope.h"
#include "device/StopRequest.h"

#include <optional>

std::atomic<OB_FT_GetFeatureFunc> RegisteredCallbacks::s_pGetFeatureFunc{nullptr};
std::atomic<OB_FT_SetFeatureFunc> RegisteredCallbacks::s_pSetFeatureFunc{nullptr};
std::atomic<OB_FT_GetModeFunc> RegisteredCallbacks::s_pGetModeFunc{nullptr};
std::atomic<OB_FT_InvalidateFunc> RegisteredCallbacks::s_pInvalidateFunc{nullptr};
std::atomic<OB_FT_ActionFunc> RegisteredCallbacks::s_pActionFunc{nullptr};
std::atomic<void*> RegisteredCallbacks::s_pUser{nullptr};

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

void RegisteredCallbacks::set(OB_FT_GetFeatureFunc getFeature, OB_FT_SetFeatureFunc setFeature,
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

bool RegisteredCallbacks::isRefused()
{
    return StopRequest::isHere() || !HostOpening::isOpen();
}

int RegisteredCallbacks::getFeature(int type, const QString& name, void* buffer)
{
    QByteArray localName = name.toLocal8Bit();
    return callHost(name, s_pGetFeatureFunc.load(), type, localName.data(), buffer, s_pUser.load());
}

int RegisteredCallbacks::setFeature(int type, const QString& name, const QString& value)
{
    QByteArray localName = name.toLocal8Bit();
    QByteArray localValue = value.toLocal8Bit();
    return callHost(name, s_pSetFeatureFunc.load(), type, localName.data(), localValue.data(),
                    s_pUser.load());
}

int RegisteredCallbacks::getMode(const QString& name, int* mode)
{
    QByteArray localName = name.toLocal8Bit();
    return callHost(name, s_pGetModeFunc.load(), localName.data(), mode, s_pUser.load());
}

void RegisteredCallbacks::invalidate()
{
    callHost(QString(), s_pInvalidateFunc.load(), s_pUser.load());
}

void RegisteredCallbacks::act(int code)
{
    callHost(QString(), s_pActionFunc.load(), code, s_pUser.load());
}
