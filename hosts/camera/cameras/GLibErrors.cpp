// SPDX-License-Identifier: Apache-2.0
#include "cameras/GLibErrors.h"

#include "cameras/CameraError.h"

#include <arv.h>
#include <gio/gio.h>

#include <array>

namespace {

struct Entry
{
    int code;
    CameraError::Code result;
};

constexpr std::array<Entry, 10> kDeviceErrors{{
    {ARV_DEVICE_ERROR_NOT_CONNECTED, CameraError::NotConnected},
    {ARV_DEVICE_ERROR_NOT_FOUND, CameraError::NotConnected},
    {ARV_DEVICE_ERROR_NOT_CONTROLLER, CameraError::NotWritable},
    {ARV_DEVICE_ERROR_TIMEOUT, CameraError::Timeout},
    {ARV_DEVICE_ERROR_WRONG_FEATURE, CameraError::WrongType},
    {ARV_DEVICE_ERROR_FEATURE_NOT_FOUND, CameraError::NodeNotFound},
    {ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_PARAMETER, CameraError::OutOfRange},
    {ARV_DEVICE_ERROR_PROTOCOL_ERROR_WRITE_PROTECT, CameraError::NotWritable},
    {ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED, CameraError::NotWritable},
    {ARV_DEVICE_ERROR_PROTOCOL_ERROR_BUSY, CameraError::Busy},
}};

constexpr std::array<Entry, 4> kNodeErrors{{
    {ARV_GC_ERROR_OUT_OF_RANGE, CameraError::OutOfRange},
    {ARV_GC_ERROR_ENUM_ENTRY_NOT_FOUND, CameraError::OutOfRange},
    {ARV_GC_ERROR_INVALID_LENGTH, CameraError::OutOfRange},
    {ARV_GC_ERROR_READ_ONLY, CameraError::NotWritable},
}};

template <std::size_t N>
int lookUp(const std::array<Entry, N>& table, int code, CameraError::Code otherwise)
{
    for (const Entry& entry : table) {
        if (entry.code == code)
            return entry.result;
    }
    return otherwise;
}

} // namespace

bool isDeviceError(const GError* error)
{
    return error && (error->domain == ARV_DEVICE_ERROR || error->domain == G_IO_ERROR);
}

int cameraErrorOf(const GError* error)
{
    if (!error)
        return CameraError::Ok;
    if (error->domain == ARV_GC_ERROR)
        return lookUp(kNodeErrors, error->code, CameraError::BrokenDescription);
    if (error->domain == ARV_DEVICE_ERROR)
        return lookUp(kDeviceErrors, error->code, CameraError::Transfer);
    return isDeviceError(error) ? CameraError::Transfer : CameraError::BrokenDescription;
}
