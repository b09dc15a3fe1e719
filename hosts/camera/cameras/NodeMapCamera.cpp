// SPDX-License-Identifier: Apache-2.0
#include "cameras/NodeMapCamera.h"

#include "cameras/CameraError.h"

#include <OBFeatureTree/OBFeatureTree.h>

// Another thread may have lost the camera while this one waited for the lock.
int NodeMapCamera::enter()
{
    if (!isConnected())
        return CameraError::NotConnected;
    return m_map ? CameraError::Ok : CameraError::NoDescription;
}

int NodeMapCamera::read(int type, const std::string& name, void* record)
{
    if (!isConnected())
        return CameraError::NotConnected;
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (const int error = enter())
        return error;
    aboutToRead(name);
    return leave(m_map->read(type, name, record));
}

int NodeMapCamera::write(int type, const std::string& name, const std::string& text)
{
    if (!isConnected())
        return CameraError::NotConnected;
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (const int error = enter())
        return error;
    int result = aboutToWrite(name, text);
    if (result == CameraError::Ok)
        result = m_map->write(type, name, text);
    if (result == CameraError::Ok)
        written(name, text);
    return leave(result);
}

int NodeMapCamera::accessMode(const std::string& name, int* mode)
{
    *mode = OB_FT_ACCESS_NOT_IMPLEMENTED;
    if (!isConnected())
        return CameraError::NotConnected;
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (const int error = enter())
        return error;
    return leave(m_map->accessMode(name, mode));
}
