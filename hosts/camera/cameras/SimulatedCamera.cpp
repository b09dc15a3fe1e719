// SPDX-License-Identifier: Apache-2.0
#include "cameras/SimulatedCamera.h"

#include "cameras/SimulatedDevice.h"
#include "cameras/StartValues.h"
#include "description/DescriptionText.h"

#include <arv.h>

SimulatedCamera::SimulatedCamera(const QByteArray& description)
    : m_xml(DescriptionText::toUtf8(description))
    , m_nodes(m_xml.size() <= kMaxDescriptionBytes ? m_xml : std::string())
    , m_device(SimulatedDevice::create(&m_memory))
{
    if (!m_nodes.isValid())
        return;
    m_gc.reset(arv_gc_new(m_device.get(), m_xml.data(), m_xml.size()));
    if (!m_gc)
        return;
    m_map = std::make_unique<CameraNodeMap>(m_gc.get(), m_nodes);
    StartValues(*m_map, m_memory).apply();
}

SimulatedCamera::~SimulatedCamera() = default;

DeviceRecord SimulatedCamera::deviceRecord() const
{
    DeviceRecord record;
    record.name = m_nodes.modelName().empty() ? "Simulated camera" : m_nodes.modelName();
    return record;
}
