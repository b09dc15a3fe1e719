// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cameras/GObjectPointer.h"
#include "cameras/NodeMapCamera.h"
#include "cameras/RegisterMemory.h"
#include "description/DescriptionNodes.h"

#include <QByteArray>

typedef struct _ArvDevice ArvDevice;
typedef struct _ArvGc ArvGc;

// Serves any feature description from a register memory in this process. Registers start with
// plausible values (see StartValues). A description that does not parse is still served as text;
// every call is then answered with NoDescription.
class SimulatedCamera : public NodeMapCamera
{
public:
    // The description as it comes from a file: any encoding, with or without byte-order mark.
    explicit SimulatedCamera(const QByteArray& description);
    ~SimulatedCamera() override;

    const std::string& descriptionXml() const override { return m_xml; }
    DeviceRecord deviceRecord() const override;
    int invalidate() override { return 0; } // nothing is cached
    bool isConnected() const override { return true; }
    int reconnect() override { return 0; }

    // True when a node map could be made of the description.
    bool hasNodeMap() const { return m_map != nullptr; }
    const DescriptionNodes& nodes() const { return m_nodes; }

    // Descriptions above this size get no node map.
    static constexpr std::size_t kMaxDescriptionBytes = std::size_t{64} * 1024 * 1024;

protected:
    RegisterMemory m_memory; // guarded by m_mutex

private:
    std::string m_xml;
    DescriptionNodes m_nodes;
    GObjectPointer<ArvDevice> m_device;
    GObjectPointer<ArvGc> m_gc;
};
