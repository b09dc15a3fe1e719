// SPDX-License-Identifier: Apache-2.0
#include "device/OBDeviceControl.h"

#include "basetools/ORXInterface.h"
#include "device/DescriptionParse.h"
#include "device/HostOpening.h"
#include "device/HtmlEscape.h"
#include "device/RegisteredCallbacks.h"
#include "styledctl/ZELCustom.h"

#include <QDebug>

#include <cstdlib>
#include <cstring>

_OB_FT_DEVICEINFO_* OBDeviceControl::s_pDeviceInfo = nullptr;
XmlDocument OBDeviceControl::s_domFeaturesXml;
QList<FavoriteFeature> OBDeviceControl::s_mapFavoritesFeature;
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

bool isStopped(int* err)
{
    if (!RegisteredCallbacks::isRefused())
        return false;
    report(err, DeviceError::kStopped);
    return true;
}

// The code as log filters know it: sign-extended, in lower-case hexadecimal.
QString signedHex(int code)
{
    const auto wide = static_cast<qint64>(code);
    const quint64 magnitude = wide < 0 ? static_cast<quint64>(-wide) : static_cast<quint64>(wide);
    return (wide < 0 ? QStringLiteral("-") : QString()) + QString::number(magnitude, 16);
}

} // namespace

// Description and callbacks -----------------------------------------------------------------------

void OBDeviceControl::Init(const char* deviceXml, const char* translateXml)
{
    DescriptionParse description(deviceXml);
    Init(description, translateXml);
}

void OBDeviceControl::Init(DescriptionParse& description, const char* translateXml)
{
    parsePropertyTransXml();
    LoadFavoritesXml();
    description.finish(s_domFeaturesXml);
    if (translateXml)
        FeatureTexts::addHostXml(translateXml);
}

void OBDeviceControl::parsePropertyTransXml()
{
    FeatureTexts::beginOwn(GetDllPath() +
                           QStringLiteral("/FeatureTreeResource/FeaturesTranslate.xml"));
}

void OBDeviceControl::SetCallBackFunc(OB_FT_GetFeatureFunc getFeature,
                                      OB_FT_SetFeatureFunc setFeature, OB_FT_GetModeFunc getMode,
                                      OB_FT_InvalidateFunc invalidate, OB_FT_ActionFunc action,
                                      void* user)
{
    RegisteredCallbacks::set(getFeature, setFeature, getMode, invalidate, action, user);
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

// Reads -------------------------------------------------------------------------------------------

bool OBDeviceControl::GetValue(FeatureType type, const QString& name, void* buffer, int* err,
                               bool checkReadable)
{
    if (!RegisteredCallbacks::canGetFeature()) {
        report(err, DeviceError::kNoCallback);
        return false;
    }
    const HostOpening opening;
    const bool readable = !checkReadable || IsNodeReadable(name);
    if (RegisteredCallbacks::isRefused() || opening.isOver()) {
        report(err, DeviceError::kStopped);
        return false;
    }
    if (!readable) {
        report(err, DeviceError::kNotReadable);
        return false;
    }
    const int code = RegisteredCallbacks::getFeature(static_cast<int>(type), name, buffer);
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

// Writes ------------------------------------------------------------------------------------------

bool OBDeviceControl::SetValue(FeatureType type, const QString& name, const QString& value,
                               int* err)
{
    if (isStopped(err))
        return false;
    const int code = RegisteredCallbacks::setFeature(static_cast<int>(type), name, value);
    report(err, code);
    if (code == 0)
        return true;
    // The line says "Read" although this is a write: log filters know it so.
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

// Access and actions ------------------------------------------------------------------------------

int OBDeviceControl::GetNodeAccessMode(const QString& name, int* err)
{
    if (!RegisteredCallbacks::canGetMode()) {
        report(err, DeviceError::kNoCallback);
        return OB_FT_ACCESS_NOT_IMPLEMENTED;
    }
    if (isStopped(err))
        return OB_FT_ACCESS_NOT_IMPLEMENTED;
    int mode = OB_FT_ACCESS_NOT_IMPLEMENTED;
    const int code = RegisteredCallbacks::getMode(name, &mode);
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
    if (HostOpening::isOpen())
        RegisteredCallbacks::invalidate();
}

void OBDeviceControl::NotifyWindowsClose()
{
    if (HostOpening::isOpen())
        RegisteredCallbacks::act(OB_FT_ACTION_WINDOW_HIDDEN);
}

// Device and texts --------------------------------------------------------------------------------

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

QString OBDeviceControl::stringToHtmlFilter(const QString& text, const QColor& colour, bool bold)
{
    return QStringLiteral("<span style=\" color:#%1; font-size:13px;font-family:%4 ;%3\">%2</span>")
        .arg(colour.name(QColor::HexRgb).mid(1))
        .arg(htmlEscaped(text))
        .arg(bold ? QStringLiteral("font-weight:bold") : QString())
        .arg(ZELCustom::globalFontFamily(1));
}
