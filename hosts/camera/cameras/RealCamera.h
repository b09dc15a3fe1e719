// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cameras/GObjectPointer.h"
#include "cameras/NodeMapCamera.h"

#include <atomic>
#include <memory>
#include <string>
#include <vector>

typedef struct _ArvDevice ArvDevice;

// Any GigE Vision or USB3 Vision camera. A camera that is unplugged answers the running call with
// Timeout after a few seconds at the most, and every later one with NotConnected at once, until
// reconnect() finds it again.
class RealCamera : public NodeMapCamera
{
public:
    // A camera that answered to a search.
    struct Found
    {
        std::string id, vendor, model, serial, address, protocol;
    };

    // Searches all interfaces; takes about a second.
    static std::vector<Found> list();

    // Opens a camera by identifier, address, serial number, or name of model. Null when there is
    // none or it cannot be opened; the reason goes to *error as an English sentence.
    static std::unique_ptr<RealCamera> open(const std::string& nameOrAddress, std::string* error);

    ~RealCamera() override;

    const std::string& descriptionXml() const override { return m_xml; }
    DeviceRecord deviceRecord() const override { return m_record; }
    int invalidate() override; // the node map is not allowed to cache
    bool isConnected() const override { return !m_lost; }
    int reconnect() override;

protected:
    int leave(int result) override;
    void written(const std::string& name, const std::string& text) override;

private:
    explicit RealCamera(const std::string& name);

    bool openDevice(std::string* error);
    void closeDevice();
    void readIdentity();
    static void onControlLost(ArvDevice* device, RealCamera* self);

    const std::string m_name; // as the user gave it
    std::string m_id;         // under which the device was opened
    std::string m_xml;
    DeviceRecord m_record;
    std::unique_ptr<DescriptionNodes> m_nodes;
    GObjectPointer<ArvDevice> m_device; // guarded by m_mutex
    std::atomic<bool> m_lost{false};    // also set by the library's heartbeat thread
};
