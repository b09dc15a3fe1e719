// SPDX-License-Identifier: Apache-2.0
#include "cameras/RealCamera.h"

#include "cameras/CameraError.h"
#include "cameras/GErrorHolder.h"
#include "cameras/GLibErrors.h"
#include "description/DescriptionText.h"

#include <arv.h>

#include <QByteArray>

namespace {

std::string textOf(const char* text)
{
    return text ? text : "";
}

bool answersTo(const RealCamera::Found& camera, const std::string& name)
{
    return camera.id == name || camera.address == name || camera.serial == name ||
           camera.model == name;
}

} // namespace

std::vector<RealCamera::Found> RealCamera::list()
{
    std::vector<Found> result;
    arv_update_device_list();
    const unsigned count = arv_get_n_devices();
    for (unsigned i = 0; i < count; ++i) {
        result.push_back({textOf(arv_get_device_id(i)), textOf(arv_get_device_vendor(i)),
                          textOf(arv_get_device_model(i)), textOf(arv_get_device_serial_nbr(i)),
                          textOf(arv_get_device_address(i)), textOf(arv_get_device_protocol(i))});
    }
    return result;
}

std::unique_ptr<RealCamera> RealCamera::open(const std::string& nameOrAddress, std::string* error)
{
    std::unique_ptr<RealCamera> camera(new RealCamera(nameOrAddress));
    if (!camera->openDevice(error))
        return nullptr;
    size_t size = 0;
    const char* xml = arv_device_get_genicam_xml(camera->m_device.get(), &size);
    if (!xml || size == 0) {
        *error = "the camera gives no feature description";
        return nullptr;
    }
    camera->m_xml = DescriptionText::toUtf8(QByteArray(xml, static_cast<int>(size)));
    camera->m_nodes = std::make_unique<DescriptionNodes>(camera->m_xml);
    camera->readIdentity();
    return camera;
}

RealCamera::RealCamera(const std::string& name)
    : m_name(name)
    , m_id(name)
{
}

RealCamera::~RealCamera()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    closeDevice();
}

bool RealCamera::openDevice(std::string* error)
{
    GErrorHolder failure;
    m_device.reset(arv_open_device(m_id.c_str(), failure.out()));
    if (!m_device) {
        // Serial numbers and model names are known to the search only.
        for (const Found& camera : list()) {
            if (!answersTo(camera, m_name))
                continue;
            m_id = camera.id;
            m_device.reset(arv_open_device(m_id.c_str(), failure.out()));
            break;
        }
    }
    if (!m_device) {
        *error = failure.get() ? failure.get()->message : "no camera answers to that name";
        return false;
    }
    m_lost = false;
    g_signal_connect(m_device.get(), "control-lost", G_CALLBACK(onControlLost), this);
    return true;
}

void RealCamera::closeDevice()
{
    m_map.reset();
    if (m_device)
        g_signal_handlers_disconnect_by_data(m_device.get(), this);
    m_device.reset();
}

void RealCamera::readIdentity()
{
    if (ArvGc* map = arv_device_get_genicam(m_device.get()))
        m_map = std::make_unique<CameraNodeMap>(map, *m_nodes);
    m_record.type =
        ARV_IS_GV_DEVICE(m_device.get()) ? DeviceRecord::GigEVision : DeviceRecord::Usb3Vision;
    if (!m_map || m_map->getString("DeviceModelName", &m_record.name) != CameraError::Ok ||
        m_record.name.empty())
        m_record.name = m_id;
}

void RealCamera::onControlLost(ArvDevice* /*device*/, RealCamera* self)
{
    self->m_lost = true;
}

int RealCamera::invalidate()
{
    return m_lost ? static_cast<int>(CameraError::NotConnected) : CameraError::Ok;
}

int RealCamera::reconnect()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_lost)
        return CameraError::Ok;
    closeDevice();
    std::string error;
    if (!openDevice(&error))
        return CameraError::NotConnected;
    readIdentity();
    return CameraError::Ok;
}

int RealCamera::leave(int result)
{
    // The library has repeated the request several times before it gives up.
    if (result == CameraError::Timeout || result == CameraError::NotConnected)
        m_lost = true;
    return result;
}

void RealCamera::written(const std::string& name, const std::string& /*text*/)
{
    if (name == "DeviceReset")
        m_lost = true;
}
