// SPDX-License-Identifier: Apache-2.0
#include "device/OBDeviceControl.h"

#include "basetools/ORXInterface.h"
#include "device/Guarded.h"
#include "device/GuiThread.h"
#include "device/HostCallWatch.h"
#include "device/HostOpening.h"
#include "device/ReentrancyScope.h"
#include "device/StopRequest.h"
#include "device/XmlLimits.h"

#include <QDebug>

#include <cstdlib>
#include <cstring>
#include <optional>

std::atomic<OB_FT_GetFeatureFunc> OBDeviceControl::s_pGetFeatureFunc{nullptr};
std::atomic<OB_FT_SetFeatureFunc> OBDeviceControl::s_pSetFeatureFunc{nullptr};
std::atomic<OB_FT_GetModeFunc> OBDeviceControl::s_pGetModeFunc{nullptr};
std::atomic<OB_FT_InvalidateFunc> OBDeviceControl::s_pInvalidateFunc{nullptr};
std::atomic<OB_FT_ActionFunc> OBDeviceControl::s_pActionFunc{nullptr};
std::atomic<void*> OBDeviceControl::s_pUser{nullptr};
_OB_FT_DEVICEINFO_* OBDeviceControl::s_pDeviceInfo = nullptr;
QDomDocument OBDeviceControl::s_domFeaturesXml;
QString OBDeviceControl::s_strDllPath;
std::atomic<int> OBDeviceControl::s_nUserLevr{1};
std::atomic<bool> OBDeviceControl::s_bSupportChunk{true};

namespace {

constexpr int kGenTLDeviceType = 256;
constexpr int kDeviceNameBytes = 127;

void report(int* err, int code)
{
    if (err)
        *err = code;
}

// A worker that was told to stop makes no call of the host, and a released library makes none.
bool isRefused()
{
    return StopRequest::isHere() || !HostOpening::isOpen();
}

bool isStopped(int* err)
{
    if (!isRefused())
        return false;
    report(err, DeviceError::kStopped);
    return true;
}

// Every call of the host; `feature` is what it is about. From inside one on the GUI thread the host
// may release the library: what would destroy widgets is put off. An exception of the host ends
// here.
template <typename Callback, typename... Arguments>
int callHost(const QString& feature, Callback callback, Arguments... arguments)
{
    const HostCallWatch watch(feature);
    std::optional<ReentrancyScope> scope;
    if (onGuiThread())
        scope.emplace();
    int code = DeviceError::kCallbackThrew;
    guarded("A callback of the host", [&] { code = callback(arguments...); });
    return code;
}

// The code as the log has always shown it: sign-extended, in lower-case hexadecimal.
QString signedHex(int code)
{
    const auto wide = static_cast<qint64>(code);
    const quint64 magnitude = wide < 0 ? static_cast<quint64>(-wide) : static_cast<quint64>(wide);
    return (wide < 0 ? QStringLiteral("-") : QString()) + QString::number(magnitude, 16);
}

} // namespace

void OBDeviceControl::SetCallBackFunc(OB_FT_GetFeatureFunc getFeature,
                                      OB_FT_SetFeatureFunc setFeature, OB_FT_GetModeFunc getMode,
                                      OB_FT_InvalidateFunc invalidate, OB_FT_ActionFunc action,
                                      void* user)
{
    s_pUser = user;
    s_pGetFeatureFunc = getFeature;
    s_pSetFeatureFunc = setFeature;
    s_pGetModeFunc = getMode;
    s_pInvalidateFunc = invalidate;
    s_pActionFunc = action;
    HostOpening::begin();
    const HostOpening opening;
    // A chunk mode that is readable but off still means that the device knows chunks.
    bool active = false;
    const bool known = GetBoolNodeValue(QStringLiteral("ChunkModeActive"), &active, nullptr, true);
    if (!opening.isOver())
        s_bSupportChunk = known;
}

void OBDeviceControl::EndCalls()
{
    HostOpening::end();
}

bool OBDeviceControl::GetValue(FeatureType type, const QString& name, void* buffer, int* err,
                               bool checkReadable)
{
    const OB_FT_GetFeatureFunc get = s_pGetFeatureFunc;
    if (!get) {
        report(err, DeviceError::kNoCallback);
        return false;
    }
    const HostOpening opening;
    const bool readable = !checkReadable || IsNodeReadable(name);
    if (isRefused() || opening.isOver()) {
        report(err, DeviceError::kStopped);
        return false;
    }
    if (!readable) {
        report(err, DeviceError::kNotReadable);
        return false;
    }
    QByteArray localName = name.toLocal8Bit();
    const int code =
        callHost(name, get, static_cast<int>(type), localName.data(), buffer, s_pUser.load());
    report(err, code);
    return code == 0;
}

bool OBDeviceControl::GetIntegerNodeValue(const QString& name, _ZDCC_INTVALUE_EX_T* value, int* err,
                                          bool checkReadable)
{
    return GetValue(FeatureType::Integer, name, value, err, checkReadable);
}

bool OBDeviceControl::GetFloatNodeValue(const QString& name, _ZDCC_FLOATVALUE_T* value, int* err,
                                        bool checkReadable)
{
    return GetValue(FeatureType::Float, name, value, err, checkReadable);
}

bool OBDeviceControl::GetEnumNodeValue(const QString& name, _ZDCC_ENUMVALUE_T* value, int* err,
                                       bool checkReadable)
{
    if (!GetValue(FeatureType::Enumeration, name, value, err, checkReadable))
        return false;
    // A host may count beyond the array.
    constexpr uint32_t kEntries = sizeof(value->supported) / sizeof(value->supported[0]);
    if (value->supportedCount > kEntries)
        value->supportedCount = kEntries;
    return true;
}

bool OBDeviceControl::GetBoolNodeValue(const QString& name, bool* value, int* err,
                                       bool checkReadable)
{
    // A host may write any byte; a C++ bool must never hold one other than 0 and 1.
    unsigned char byte = 0;
    if (!GetValue(FeatureType::Boolean, name, &byte, err, checkReadable))
        return false;
    *value = byte != 0;
    return true;
}

bool OBDeviceControl::GetStringNodeValue(const QString& name, QString& value, int* maxLength,
                                         int* err, bool checkReadable)
{
    _ZDCC_STRINGVALUE_T record;
    std::memset(&record, 0, sizeof(record));
    if (!GetValue(FeatureType::String, name, &record, err, checkReadable))
        return false;
    value = ORXInterface::fromLocalText(record.value, sizeof(record.value));
    if (maxLength)
        *maxLength = static_cast<int>(record.maximumLength);
    return true;
}

bool OBDeviceControl::SetValue(FeatureType type, const QString& name, const QString& value,
                               int* err)
{
    if (isStopped(err))
        return false;
    const OB_FT_SetFeatureFunc set = s_pSetFeatureFunc;
    int code = DeviceError::kNoCallback;
    if (set) {
        QByteArray localName = name.toLocal8Bit();
        QByteArray localValue = value.toLocal8Bit();
        code = callHost(name, set, static_cast<int>(type), localName.data(), localValue.data(),
                        s_pUser.load());
    }
    report(err, code);
    if (code == 0)
        return true;
    // The line says "Read" although this is a write: log filters in the field know it so.
    qCritical().noquote() << QStringLiteral("Read Feature Failed; NodeName : %1;  ErrorCode : %2")
                                 .arg(name, signedHex(code));
    return false;
}

bool OBDeviceControl::SetIntegerNodeValue(const QString& name, qint64 value, int* err)
{
    return SetValue(FeatureType::Integer, name, QString::number(value, 10), err);
}

bool OBDeviceControl::SetFloatNodeValue(const QString& name, float value, int* err)
{
    return SetValue(FeatureType::Float, name, QString::number(static_cast<double>(value), 'g', 4),
                    err);
}

bool OBDeviceControl::SetEnumNodeValue(const QString& name, unsigned int value, int* err)
{
    return SetValue(FeatureType::Enumeration, name, QString::number(value), err);
}

bool OBDeviceControl::SetBoolNodeValue(const QString& name, bool value, int* err)
{
    return SetValue(FeatureType::Boolean, name, value ? QStringLiteral("1") : QStringLiteral("0"),
                    err);
}

bool OBDeviceControl::SetStringNodeValue(const QString& name, const QString& value, int* err)
{
    return SetValue(FeatureType::String, name, value, err);
}

bool OBDeviceControl::SetCommandNodeValue(const QString& name, int* err)
{
    return SetValue(FeatureType::Command, name, QString(), err);
}

int OBDeviceControl::GetNodeAccessMode(const QString& name, int* err)
{
    const OB_FT_GetModeFunc getMode = s_pGetModeFunc;
    if (!getMode) {
        report(err, DeviceError::kNoCallback);
        return OB_FT_ACCESS_NOT_IMPLEMENTED;
    }
    if (isStopped(err))
        return OB_FT_ACCESS_NOT_IMPLEMENTED;
    QByteArray localName = name.toLocal8Bit();
    int mode = OB_FT_ACCESS_NOT_IMPLEMENTED;
    const int code = callHost(name, getMode, localName.data(), &mode, s_pUser.load());
    report(err, code);
    return code == 0 ? mode : OB_FT_ACCESS_NOT_IMPLEMENTED;
}

bool OBDeviceControl::isReadableMode(int mode)
{
    return mode == OB_FT_ACCESS_WRITE_ONLY || mode == OB_FT_ACCESS_READ_ONLY ||
           mode == OB_FT_ACCESS_READ_WRITE;
}

bool OBDeviceControl::IsNodeReadable(const QString& name)
{
    return isReadableMode(GetNodeAccessMode(name, nullptr));
}

void OBDeviceControl::InvalidateNodes()
{
    const OB_FT_InvalidateFunc invalidate = s_pInvalidateFunc;
    if (invalidate && HostOpening::isOpen())
        callHost(QString(), invalidate, s_pUser.load());
}

void OBDeviceControl::NotifyWindowsClose()
{
    const OB_FT_ActionFunc action = s_pActionFunc;
    if (action && HostOpening::isOpen())
        callHost(QString(), action, OB_FT_ACTION_WINDOW_HIDDEN, s_pUser.load());
}

void OBDeviceControl::SetDeviceInfo(const _OB_FT_DEVICEINFO_* info)
{
    if (!info)
        return;
    if (!s_pDeviceInfo) {
        s_pDeviceInfo = static_cast<_OB_FT_DEVICEINFO_*>(std::malloc(sizeof(_OB_FT_DEVICEINFO_)));
        if (!s_pDeviceInfo)
            return;
    }
    s_pDeviceInfo->deviceType = info->deviceType;
    std::memcpy(s_pDeviceInfo->deviceName, info->deviceName, sizeof(info->deviceName));
}

int OBDeviceControl::GetDeviceType()
{
    return s_pDeviceInfo ? static_cast<int>(s_pDeviceInfo->deviceType) : 0;
}

QString OBDeviceControl::GetDeviceName()
{
    return s_pDeviceInfo ? ORXInterface::fromLocalText(s_pDeviceInfo->deviceName, kDeviceNameBytes)
                         : QString();
}

bool OBDeviceControl::IsGenTLInterface()
{
    return GetDeviceType() == kGenTLDeviceType;
}

QDomDocument* OBDeviceControl::GetDeviceXml()
{
    return &s_domFeaturesXml;
}

void OBDeviceControl::loadDeviceXml(const char* deviceXml)
{
    s_domFeaturesXml = QDomDocument();
    const std::size_t bytes = std::strlen(deviceXml);
    QDomDocument document;
    if (XmlLimits::acceptable(deviceXml, bytes) &&
        document.setContent(QString::fromUtf8(deviceXml, static_cast<int>(bytes))))
        s_domFeaturesXml = document;
    else
        qCritical("%s", "Create XML pDeviceXml DomDocument Failed");
}

bool OBDeviceControl::IsSupportChunk()
{
    return s_bSupportChunk;
}

int OBDeviceControl::GetUserLevel()
{
    return s_nUserLevr;
}

void OBDeviceControl::SetUserLevel(int level)
{
    s_nUserLevr = level;
}

void OBDeviceControl::SetDllPath(const QString& path)
{
    s_strDllPath = path;
}

QString OBDeviceControl::GetDllPath()
{
    return s_strDllPath;
}
